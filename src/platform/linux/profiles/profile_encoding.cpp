#include "platform/linux/profiles/profile_encoding.h"

#include "frame/utf8.h"
#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16Mark = "\xFF\xFE";
constexpr std::string_view swappedMark = "\xFE\xFF";

std::u16string fromUtf16(std::string_view bytes, std::size_t low) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto lowByte = static_cast<std::uint8_t>(bytes[i + low]);
        const auto highByte = static_cast<std::uint8_t>(bytes[i + 1 - low]);
        text += static_cast<char16_t>(highByte << 8 | lowByte);
    }
    return text;
}

std::string toUtf16(std::u16string_view text, std::size_t low) {
    std::string bytes(text.size() * 2, '\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        bytes[2 * i + low] = static_cast<char>(text[i] & 0xFF);
        bytes[2 * i + 1 - low] = static_cast<char>(text[i] >> 8);
    }
    return bytes;
}

}  // namespace

ProfileContent::ProfileContent(std::string_view bytes) : bytes_(bytes) {
    const auto marked = [&](std::string_view mark, Form form) {
        if (form_ != Form::Ansi || !bytes.starts_with(mark)) return;
        form_ = form;
        mark_ = mark;
        bytes_.remove_prefix(mark.size());
    };
    marked(utf8Mark, Form::Utf8);
    marked(utf16Mark, Form::Utf16);
    marked(swappedMark, Form::Utf16Swapped);
    if (form_ == Form::Ansi) return;
    text_ = form_ == Form::Utf8 ? fromUtf8(bytes_) : fromUtf16(bytes_, form_ == Form::Utf16 ? 0 : 1);
    ansi_ = toAnsi1252(text_);
}

std::string ProfileContent::encoded(std::u16string_view text) const {
    return form_ == Form::Utf8 ? toUtf8(text) : toUtf16(text, form_ == Form::Utf16 ? 0 : 1);
}

std::optional<std::string> ProfileContent::with(const ProfileEdits& edits) const {
    if (form_ == Form::Ansi) return withEdits(bytes_, edits);
    if (encoded(text_) != bytes_) return {};
    return std::string(mark_) + encoded(withEdits(text_, edits, fromAnsi1252));
}

}  // namespace tovera
