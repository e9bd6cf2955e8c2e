#include "support/test_platform.h"

#include "frame/utf8.h"

namespace tovera {

void PrintTo(const Bstr& text, std::ostream* out) {
    *out << (text.isNull() ? "null" : '"' + toUtf8(text) + '"');
}

void PrintTo(const Variant& value, std::ostream* out) {
    *out << "variant of alternative " << value.value().index();
    if (const auto* text = value.as<Bstr>()) PrintTo(*text, out);
    if (value.isNumber()) *out << " of value " << Conversions(home().services).to<R8>(value);
}

namespace testing {

I4 TestServices::messageBox(const Bstr& text, I4 flags, const Bstr& title) {
    boxes.push_back({text, flags, title});
    return 1;
}

std::string TestServices::toAnsi(std::u16string_view text) {
    std::string bytes;
    for (const auto c : text) {
        if (c == u'\u3042')
            bytes += "\x82\xA0";
        else
            bytes += c < 256 ? static_cast<char>(c) : c == u'\u0416' ? 'J' : '?';
    }
    return bytes;
}

std::u16string TestServices::fromAnsi(std::string_view bytes) {
    std::u16string text;
    for (const auto c : bytes) text += static_cast<unsigned char>(c);
    return text;
}

}  // namespace testing
}  // namespace tovera
