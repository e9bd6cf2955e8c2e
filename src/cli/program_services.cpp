#include "cli/program_services.h"

#include <istream>
#include <ostream>

#include "frame/utf8.h"
#include "platform/program_streams.h"

namespace tovera::cli {

I4 ProgramServices::messageBox(const Bstr& text, I4 /*flags*/, const Bstr& title) {
    constexpr I4 okButton = 1;
    out_.flush();
    err_ << '[' << toUtf8(title) << "] " << toUtf8(text) << std::endl;
    if (isTerminal(StandardStream::Input) && isTerminal(StandardStream::Error)) {
        std::string answer;
        std::getline(in_, answer);
    }
    return okButton;
}

}  // namespace tovera::cli
