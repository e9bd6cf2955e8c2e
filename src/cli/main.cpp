#include "cli/program.h"
#include "cli/standard_streams.h"

int main(int count, char** values) {
    using namespace tovera;
    startProgram();
    cli::OutputBuffer results(StandardStream::Output), messages(StandardStream::Error);
    std::ostream out(&results), err(&messages);
    err << std::unitbuf;
    cli::InputBuffer steps(out);
    std::istream in(&steps);
    const int status = cli::runProgram(programArguments(count, values), {in, out, err});
    out.flush();
    if (steps.failure().empty() && results.failure().empty()) return status;
    if (!steps.failure().empty()) err << "tovera: can't read the steps: " << steps.failure() << '\n';
    if (!results.failure().empty()) err << "tovera: can't write the results: " << results.failure() << '\n';
    return cli::automationError;
}
