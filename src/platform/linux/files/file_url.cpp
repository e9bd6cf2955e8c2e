#include "platform/linux/files/file_url.h"

#include <algorithm>

#include "frame/ascii_case.h"
#include "frame/utf8.h"
#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

bool isOfScheme(char16_t c) {
    return isAsciiLetter(c) || (c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.';
}

int valueOf(char16_t digit) {
    if (digit >= u'0' && digit <= u'9') return digit - u'0';
    const auto lower = smallAscii(digit);
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

/// Bytes behind percent signs are UTF-8, else ANSI. A sign without two digits behind it stands for itself.
std::u16string decoded(std::u16string_view text) {
    std::u16string result;
    std::string bytes;
    const auto flush = [&] {
        const auto unicode = fromUtf8(bytes);
        const bool isUtf8 = unicode.find(u'\uFFFD') == unicode.npos;
        result += isUtf8 ? unicode : fromAnsi1252(bytes);
        bytes.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isCode =
            text[i] == u'%' && i + 2 < text.size() && valueOf(text[i + 1]) >= 0 && valueOf(text[i + 2]) >= 0;
        if (isCode) {
            bytes += static_cast<char>(valueOf(text[i + 1]) * 16 + valueOf(text[i + 2]));
            i += 2;
        } else {
            flush();
            result += text[i];
        }
    }
    flush();
    return result;
}

bool isDrive(std::u16string_view text) {
    return text.size() >= 2 && isAsciiLetter(text[0]) && (text[1] == u':' || text[1] == u'|');
}

bool isSlash(char16_t c) {
    return c == u'/' || c == u'\\';
}

bool isThisMachine(std::u16string_view host) {
    return host.empty() || isWord(host, u"localhost");
}

}  // namespace

std::u16string_view schemeOf(std::u16string_view url) {
    const auto colon = url.find(u':');
    if (colon == url.npos || colon < 2 || !isAsciiLetter(url[0])) return {};
    const auto scheme = url.substr(0, colon);
    return std::ranges::all_of(scheme, isOfScheme) ? scheme : std::u16string_view();
}

std::optional<std::u16string> pathOfUrl(std::u16string_view url) {
    const auto scheme = schemeOf(url);
    if (scheme.empty()) return std::u16string(url);
    if (!isWord(scheme, u"file")) return {};
    auto path = decoded(url.substr(scheme.size() + 1));
    const auto isAt = [&](std::size_t i) { return i < path.size() && isSlash(path[i]); };
    if (isAt(0) && isAt(1)) {
        path.erase(0, 2);
        if (!isDrive(path)) {
            const auto host = std::min(path.find_first_of(u"/\\"), path.size());
            if (!isThisMachine(std::u16string_view(path).substr(0, host))) return std::u16string();
            path.erase(0, host);
        }
    }
    if (isAt(0) && isDrive(std::u16string_view(path).substr(1))) path.erase(0, 1);
    if (isDrive(path)) path[1] = u':';
    return path;
}

}  // namespace tovera
