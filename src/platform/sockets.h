#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Windows Sockets 1.1, whose low byte is the major version.
inline constexpr I4 socketVersion = 0x0101;
/// The address family of the internet.
inline constexpr I4 internetFamily = 2;
/// What a call of the sockets gives for a failure, and what stands for no address.
inline constexpr I4 socketError = -1;

/// What is told of a session when it is opened.
struct SocketFacts {
    I4 version = 0;      ///< the low byte is the major version, the one above it the minor version
    I4 mostSockets = 0;  ///< that a session may have
};

/// A machine as the resolver knows it: its name in ANSI, and its addresses in network order.
struct HostEntry {
    std::string name;
    std::vector<std::string> addresses;
};

/// Names and addresses of machines, of `wsock32`.
struct Sockets : Port<Sockets> {
    /// Opens a session of this version; 0 on success.
    virtual I4 WSAStartup(I4 version, SocketFacts& facts) { return missingEntryPoint(version, facts); }
    /// Closes a session; 0 on success.
    virtual I4 WSACleanup() { return missingEntryPoint(); }
    /// The error of the last failed call.
    virtual I4 WSAGetLastError() { return missingEntryPoint(); }
    /// Writes the name of this machine with its NUL into a buffer of this size; -1 on failure.
    virtual I4 gethostname(AnsiText& name, I4 size) { return missingEntryPoint(name, size); }
    virtual std::optional<HostEntry> gethostbyname(const AnsiText& name) { missingEntryPoint(name); }
    /// The machine with an address in network order.
    virtual std::optional<HostEntry> gethostbyaddr(I4 address, I4 length, I4 family) {
        missingEntryPoint(address, length, family);
    }
    /// The address that a text in dotted form stands for, in network order; -1 for none.
    virtual I4 inet_addr(const AnsiText& text) { return missingEntryPoint(text); }
};

Sockets& homeSockets();

}  // namespace tovera
