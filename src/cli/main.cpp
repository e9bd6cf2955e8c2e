#include <iostream>
#include <string>
#include <vector>

#include "cli/program.h"

int main(int count, char** values) {
    const std::vector<std::string> arguments(values + 1, values + count);
    return tovera::cli::runProgram(arguments, std::cout, std::cerr);
}
