#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovera {

/// The servers that lines of a `resolv.conf` name, in their order: those of the internet in dotted decimal,
/// as the resolver reads them.
std::vector<std::string> nameServersIn(std::string_view lines);

/// The DNS servers of the machine whose root folder this is. Where it asks a resolver of its own, the servers
/// are those that the resolver asks, as its owner keeps them; where nobody keeps them, the resolver itself.
std::vector<std::string> dnsServers(const std::string& root = "");

}  // namespace tovera
