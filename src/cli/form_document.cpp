#include "cli/form_document.h"

#include "cli/form_classes.h"
#include "frame/error.h"
#include "platform/profile_values.h"

namespace tovera::cli {
namespace {

/// Whether reading an entry with the value `present` from a language file, or falling back on it, can give
/// this text.
bool isReadingOf(std::string_view present, std::string_view text) {
    constexpr std::size_t longestReading = 254;
    const auto isRead = [&](std::string_view value) { return text == value.substr(0, longestReading); };
    present = present.substr(0, present.find('\0'));
    const auto byDefault = present.substr(0, present.find_last_not_of(' ') + 1);
    const auto line = present.substr(0, present.find('\r'));
    return isRead(byDefault) || isRead(withoutQuotes(withoutBlanks(line)));
}

}  // namespace

std::string_view FormDocument::writtenText(std::size_t block, std::string_view property) const {
    const auto* const written = findProperty(file_.blocks[block], property);
    return written ? std::string_view(written->text) : std::string_view{};
}

std::string_view FormDocument::presentText(std::size_t block, std::string_view property) const {
    const auto assigned = texts_.find({block, property});
    return assigned == texts_.end() ? writtenText(block, property) : assigned->second;
}

Bstr FormDocument::text(std::size_t block, std::string_view property) const {
    return services_.fromAnsi(presentText(block, property));
}

void FormDocument::setText(std::size_t block, std::string_view property, const Bstr& text) {
    const auto bytes = services_.toAnsi(text);
    constexpr std::string_view unwritable("\r\n\0", 3);
    if (services_.fromAnsi(bytes) != text.view() || bytes.find_first_of(unwritable) != std::string::npos)
        raise(ErrorNumber::InvalidCall);
    const auto present = presentText(block, property);
    if (bytes == present || isReadingOf(present, bytes)) return;
    if (accessTo(file_, file_.blocks[block], property) != TextAccess::ReadWrite)
        raise(ErrorNumber::NoSuchMember);
    if (bytes == writtenText(block, property)) {
        texts_.erase({block, property});
    } else {
        texts_[{block, property}] = bytes;
    }
}

std::string FormDocument::bytes() const {
    std::vector<TextChange> changes;
    for (const auto& [place, text] : texts_) changes.push_back({place.first, place.second, text});
    return withTexts(file_, changes);
}

}  // namespace tovera::cli
