#pragma once

#include "frame/utf8.h"
#include "fuzz/input.h"
#include "platform/linux/files/file_url.h"
#include "platform/linux/network/dns_servers.h"
#include "platform/linux/network/samba_settings.h"

namespace tovera::fuzz {

/// What others have written is read as far as it can be.
inline void linesOfServers(Input input) {
    const auto lines = 1 + std::ranges::count(input, '\n');
    const auto servers = nameServersIn(input);
    require(servers.size() <= static_cast<std::size_t>(lines), "one server a line");
    for (const auto& server : servers) {
        require(server.size() <= 15 && std::ranges::count(server, '.') == 3, "an address in dotted decimal");
        require(nameServersIn("nameserver " + server) == std::vector{server}, "an address reads as itself");
    }
    require(sambaSettingsIn(input).sections.size() <= static_cast<std::size_t>(lines), "one section a line");
}

inline void urlsOfFiles(Input input) {
    const auto url = fromUtf8(input);
    const auto path = pathOfUrl(url);
    if (schemeOf(url).empty()) require(path == url, "a path stays as it is");
    if (path) require(path->size() <= url.size(), "decoding makes nothing longer");
    const auto withScheme = u"x-" + url;
    if (!schemeOf(withScheme).empty()) require(!pathOfUrl(withScheme), "a URL of another kind is no path");
}

}  // namespace tovera::fuzz
