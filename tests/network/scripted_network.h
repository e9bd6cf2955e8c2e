#pragma once

#include <algorithm>

#include "platform/adapters.h"
#include "platform/download.h"
#include "platform/opening.h"
#include "platform/sharing.h"
#include "platform/sockets.h"
#include "platform/user_name.h"

namespace tovera::testing {

using Log = std::vector<std::string>;

/// The text as an entry point gets it; "null" for no address.
inline std::string shown(const AnsiText& text) {
    return text.isNull ? "null" : '<' + text.bytes + '>';
}

/// Sockets that note each call, and answer as their script says.
struct ScriptedSockets : Sockets {
    I4 WSAStartup(I4 version, SocketFacts& told) override {
        log.push_back("open " + std::to_string(version));
        told = facts;
        open += startup == 0 ? 1 : 0;
        return startup;
    }
    I4 WSACleanup() override {
        log.emplace_back("close");
        --open;
        return cleanup;
    }
    I4 WSAGetLastError() override { return error; }
    I4 gethostname(AnsiText& name, I4 size) override {
        EXPECT_EQ(name.bytes, std::string(256, '\0'));
        EXPECT_EQ(size, 256);
        if (!hostName) return -1;
        std::ranges::copy(*hostName, name.bytes.begin());
        return 0;
    }
    std::optional<HostEntry> gethostbyname(const AnsiText& name) override {
        log.push_back("name " + shown(name));
        if (raises) raise(ErrorNumber::EntryPointNotFound);
        return host;
    }
    std::optional<HostEntry> gethostbyaddr(I4 address, I4 length, I4 family) override {
        log.push_back("address " + std::to_string(address) + ' ' + std::to_string(length) + ' ' +
                      std::to_string(family));
        return host;
    }
    I4 inet_addr(const AnsiText& text) override { return text.bytes == "1.2.3.4" ? 0x04030201 : -1; }

    I4 startup = 0;
    SocketFacts facts{0x0101, 32767};
    I4 cleanup = 0;
    I4 error = 10061;
    std::optional<std::string> hostName = "poste";
    std::optional<HostEntry> host = HostEntry{"un.h\xF4te", {std::string("\x0A\x00\xFF\x07", 4), "\1\2\3\4"}};
    bool raises = false;
    int open = 0;  ///< sessions
    Log log;
};

/// An adapter and DNS servers as a script says.
struct ScriptedAdapters : Adapters {
    I4 Netbios(NetBiosBlock& block) override {
        log.push_back(std::to_string(block.ncb_command) + ' ' + std::to_string(block.ncb_lana_num) + " <" +
                      std::string(block.ncb_callname.begin(), block.ncb_callname.end()) + "> " +
                      std::to_string(block.ncb_length) + ' ' + std::to_string(block.ncb_buffer.size()));
        if (!block.ncb_buffer.empty() && raises) raise(ErrorNumber::EntryPointNotFound);
        if (!block.ncb_buffer.empty())
            std::ranges::copy(std::as_bytes(std::span(address)), block.ncb_buffer.begin());
        return 0x37;  // not looked at
    }
    I4 GetProcessHeap() override { return 77; }
    std::span<std::byte> HeapAlloc(I4 heap, I4 flags, I4 size) override {
        EXPECT_EQ(heap, 77);
        EXPECT_EQ(flags, 12);
        if (hasMemory) memory.resize(static_cast<std::size_t>(size));
        return memory;
    }
    I4 HeapFree(I4 heap, I4 flags, std::span<std::byte> block) override {
        EXPECT_TRUE(heap == 77 && flags == 0 && block.data() == memory.data());
        ++freed;
        return 0;
    }
    I4 GetNetworkParams(NetworkParameters* parameters, I4& room) override {
        if (!parameters) {
            EXPECT_EQ(room, 0);
            room = size;
            return 111;
        }
        EXPECT_EQ(room, size);
        for (const auto& server : servers) server.copy(parameters->DnsServerList.emplace_back().data(), 16);
        return status;
    }

    std::string address = std::string("\x0A\x00\xFF\x1B\x0F\xF0", 6);
    bool hasMemory = true;
    bool raises = false;
    std::vector<std::byte> memory;
    int freed = 0;
    I4 size = 664;
    I4 status = 0;
    std::vector<std::string> servers;
    Log log;
};

struct ScriptedSharing : Sharing {
    I4 NetShareAdd(const Bstr& server, I4 level, const ShareInfo2& share, I4& /*invalid*/) override {
        asked = share;
        machine = server;
        EXPECT_EQ(level, 2);
        return status;
    }
    ShareInfo2 asked;
    Bstr machine;
    I4 status = 0;
};

struct ScriptedDownload : Download {
    I4 URLDownloadToFileA(I4 caller, const AnsiText& url, const AnsiText& file, I4 reserved,
                          I4 bind) override {
        log.push_back(shown(url) + ' ' + shown(file) + ' ' + std::to_string(caller + reserved + bind));
        return status;
    }
    I4 status = 0;
    Log log;
};

struct ScriptedUserName : UserName {
    I4 GetUserNameA(AnsiText& buffer, I4& size) override {
        EXPECT_EQ(buffer.bytes, std::string(255, '\0'));
        EXPECT_EQ(size, 255);
        std::ranges::copy(name, buffer.bytes.begin());
        return 0;  // not looked at
    }
    std::string name;
};

struct ScriptedOpening : Opening {
    I4 GetDesktopWindow() override { return 65552; }
    I4 ShellExecuteA(I4 window, const AnsiText& verb, const AnsiText& file, const AnsiText& parameters,
                     const AnsiText& folder, I4 show) override {
        log.push_back(std::to_string(window) + ' ' + shown(verb) + ' ' + shown(file) + ' ' +
                      shown(parameters) + ' ' + shown(folder) + ' ' + std::to_string(show));
        if (raises) raise(ErrorNumber::FileNotFound);
        return 31;  // no program: not looked at
    }
    bool raises = false;
    Log log;
};

}  // namespace tovera::testing
