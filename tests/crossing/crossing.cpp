// crossing encrypt FILE: writes the ciphertexts of 300 texts. crossing decrypt FILE: reads what the other
// home has written, and tells how many came back as those texts. crossing sign FILE: writes a signature, as
// bytes.
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>

#include "crypto/cls_cryptage.h"
#include "frame/services.h"

namespace {

using namespace tovera;

constexpr int cases = 300;
constexpr std::size_t longestText = 100'000;

/// The services of the home, but for message boxes, which nobody answers here.
struct QuietServices : Services {
    using Services::messageBox;
    I4 messageBox(const Bstr& text, I4, const Bstr&) override {
        failed = failed || text.view().starts_with(u"Err");
        return 1;
    }
    R8 launch(const Bstr& line, WindowStyle style) override { return real.launch(line, style); }
    ObjectRef createObject(std::u16string_view progId) override { return real.createObject(progId); }
    ComponentFacts facts() override { return real.facts(); }
    ScreenFacts screen() override { return real.screen(); }
    RegionalSettings regionalSettings() override { return real.regionalSettings(); }
    std::string toAnsi(std::u16string_view text) override { return real.toAnsi(text); }
    std::u16string fromAnsi(std::string_view bytes) override { return real.fromAnsi(bytes); }
    void pumpMessages() override {}

    Services& real = home().services;
    bool failed = false;
};

/// Bytes that hold every value, the same in both homes.
std::string bytesOf(std::size_t length, std::uint32_t seed) {
    std::string bytes(length, '\0');
    for (auto& byte : bytes) {
        seed = seed * 1664525U + 1013904223U;
        byte = static_cast<char>(seed >> 24U);
    }
    return bytes;
}

std::size_t lengthOf(int number) {
    const auto n = static_cast<std::size_t>(number);
    return n < 200 ? n : 200 + (longestText - 200) * (n - 200) * (n - 200) / 9801;
}

struct Run {
    Bstr text(const std::string& bytes) { return Bstr(services.fromAnsi(bytes)); }
    void prepare(int number) {
        object.setPassword(text(bytesOf(static_cast<std::size_t>(number) % 301, 7U)));
    }
    std::string textOf(int number) const {
        return bytesOf(lengthOf(number), static_cast<std::uint32_t>(number));
    }

    void encrypt(std::ostream& out) {
        for (int number = 0; number < cases; ++number) {
            prepare(number);
            object.setInBuffer(text(textOf(number)));
            object.Encrypt();
            const auto bytes = services.toAnsi(object.OutBuffer().view());
            out << bytes.size() << '\n' << bytes;
        }
    }
    int decrypt(std::istream& in) {
        int same = 0;
        for (int number = 0; number < cases; ++number) {
            std::size_t size = 0;
            in >> size;
            in.get();
            std::string bytes(size, '\0');
            in.read(bytes.data(), static_cast<std::streamsize>(size));
            prepare(number);
            object.setInBuffer(text(bytes));
            object.Decrypt();
            same += in && services.toAnsi(object.OutBuffer().view()) == textOf(number) ? 1 : 0;
        }
        return same;
    }
    void sign(std::ostream& out) {
        object.setInBuffer(u"Bonjour le monde");
        object.Sign();
        out << services.toAnsi(object.Signature().view());
    }

    QuietServices services;
    Platform platform = home().with(services);
    Cls_Cryptage object{platform};
};

}  // namespace

int main(int count, char** arguments) {
    const std::string what = count == 3 ? arguments[1] : "";
    Run run;
    if (what == "decrypt") {
        std::ifstream in(arguments[2], std::ios::binary);
        std::cout << run.decrypt(in) << " of " << cases << " texts came back\n";
    } else if (what == "encrypt" || what == "sign") {
        std::ofstream out(arguments[2], std::ios::binary);
        what == "sign" ? run.sign(out) : run.encrypt(out);
        if (!out.flush()) return 1;
    } else {
        return 2;
    }
    return run.services.failed ? 1 : 0;
}
