#include "platform/linux/network/dns_servers.h"

#include <algorithm>
#include <arpa/inet.h>

#include "platform/linux/files/whole_file.h"

namespace tovera {
namespace {

/// Nobody has more; a file that names more is no such file.
constexpr std::size_t mostServers = 256;

constexpr const char* keptBy[] = {"/run/systemd/resolve/resolv.conf",
                                  "/run/NetworkManager/no-stub-resolv.conf"};

std::string_view firstWord(std::string_view text) {
    const auto start = std::min(text.find_first_not_of(" \t"), text.size());
    text.remove_prefix(start);
    return text.substr(0, text.find_first_of(" \t\r\n"));
}

void addServer(std::vector<std::string>& servers, std::string_view line) {
    constexpr std::string_view keyword = "nameserver";
    if (!line.starts_with(keyword) || servers.size() == mostServers) return;
    line.remove_prefix(keyword.size());
    if (!line.starts_with(' ') && !line.starts_with('\t')) return;
    in_addr address{};
    const std::string word(firstWord(line));
    if (word.find('\0') != std::string::npos || inet_aton(word.c_str(), &address) == 0) return;
    char text[INET_ADDRSTRLEN];
    servers.emplace_back(inet_ntop(AF_INET, &address, text, sizeof text));
}

std::vector<std::string> serversOfFile(const std::string& path) {
    std::vector<std::string> servers;
    readLines(path, [&](std::string_view lines) {
        for (auto& server : nameServersIn(lines)) servers.push_back(std::move(server));
        return servers.size() < mostServers;
    });
    return servers;
}

}  // namespace

std::vector<std::string> nameServersIn(std::string_view lines) {
    std::vector<std::string> servers;
    while (!lines.empty()) {
        const auto end = lines.find('\n');
        addServer(servers, lines.substr(0, end));
        lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 1);
    }
    return servers;
}

std::vector<std::string> dnsServers(const std::string& root) {
    const auto isOwn = [](const std::string& server) { return server.starts_with("127."); };
    auto servers = serversOfFile(root + "/etc/resolv.conf");
    if (servers.empty() || !std::ranges::all_of(servers, isOwn)) return servers;
    for (const auto* path : keptBy) {
        auto kept = serversOfFile(root + path);
        if (!kept.empty()) return kept;
    }
    return servers;
}

}  // namespace tovera
