#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <span>

#include "frame/utf8.h"
#include "interface/idl_text.h"
#include "interface/library_file.h"
#include "interface/manifest_text.h"
#include "platform/platform.h"

// What the build of the Windows component needs of the published interface, made from the class table:
//
//   interface_texts idl             the IDL of the type library, in the ANSI code page
//   interface_texts header-idl      the IDL of the header for C++ clients
//   interface_texts manifest KIND   the manifest for use without registration by programs of the kind x86 or
//   amd64 interface_texts finish IN OUT   finishes a compiled type library

namespace {

using namespace tovera;

std::string ansi(const std::string& text) {
    return home().services.toAnsi(fromUtf8(text));
}

bool finish(const char* from, const char* to) {
    std::ifstream in(from, std::ios::binary);
    const std::string compiled{std::istreambuf_iterator<char>(in), {}};
    std::ofstream out(to, std::ios::binary);
    out << tools::finishedLibrary(compiled);
    return in && out.flush();
}

bool run(std::span<char*> arguments) {
    const std::string_view what = arguments.size() > 1 ? arguments[1] : "";
    if (what == "idl") return bool(std::cout << ansi(tools::idlText(tools::IdlFor::Library)));
    if (what == "header-idl") return bool(std::cout << ansi(tools::idlText(tools::IdlFor::Header)));
    if (what == "manifest" && arguments.size() == 3)
        return bool(std::cout << tools::manifestText(arguments[2]));
    if (what == "finish" && arguments.size() == 4) return finish(arguments[2], arguments[3]);
    std::cerr << "interface_texts: idl | header-idl | manifest KIND | finish IN OUT\n";
    return false;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return run({arguments, static_cast<std::size_t>(count)}) && std::cout.flush() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << "interface_texts: " << failure.what() << '\n';
        return 1;
    }
}
