#include "platform/linux/network/samba_settings.h"

#include "frame/utf8.h"
#include "platform/linux/text/letter_case.h"

namespace tovera {
namespace {

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

}  // namespace

SambaSettings sambaSettingsIn(std::string_view text) {
    SambaSettings settings;
    while (!text.empty()) {
        const auto end = text.find('\n');
        const auto line = trimmed(text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
        if (line.size() > 2 && line.front() == '[' && line.back() == ']')
            settings.sections.insert(capitals(fromUtf8(line.substr(1, line.size() - 2))));
        const auto equals = line.find('=');
        if (equals == line.npos) continue;
        const auto name = trimmed(line.substr(0, equals));
        const auto value = trimmed(line.substr(equals + 1));
        if (name == "usershare path") settings.userShareFolder = value;
        if (name == "usershare max shares") settings.allowsUserShares = value != "0";
    }
    return settings;
}

}  // namespace tovera
