
#include "network/cls_internet.h"
#include "network/give_back.h"
#include "network/printed_number.h"
#include "platform/sockets.h"

namespace tovera {
namespace {

constexpr std::u16string_view errorTitle = u"ERROR";
constexpr I4 fewestSockets = 1;
constexpr UI1 requiredMajor = 1;
constexpr UI1 requiredMinor = 1;

/// A host's name as the platform writes it: 256 characters, which begin as NULs.
using HostName = FixedText<256>;

UI1 LowByteOf(I4 value) {
    return static_cast<UI1>(value);
}

UI1 HighByteOf(I4 value) {
    return static_cast<UI1>(value >> 8);
}

/// A byte as an unsigned decimal number, behind what has been written.
char16_t* writeDecimal(char16_t* end, UI1 byte) {
    if (byte >= 100) *end++ = static_cast<char16_t>(u'0' + byte / 100);
    if (byte >= 10) *end++ = static_cast<char16_t>(u'0' + byte / 10 % 10);
    *end++ = static_cast<char16_t>(u'0' + byte % 10);
    return end;
}

/// The bytes of an address as unsigned decimal numbers with points between them.
Bstr dotted(std::string_view bytes) {
    constexpr std::size_t longest = 4;  // of a number and its point
    return Bstr::written(longest * bytes.size(), [&](char16_t* end) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            if (i > 0) *end++ = u'.';
            end = writeDecimal(end, static_cast<UI1>(bytes[i]));
        }
        return end;
    });
}

}  // namespace

void Cls_Internet::showError(const Bstr& text) {
    platform_.services.messageBox(text, messageFlags::plain, errorTitle);
}

VariantBool Cls_Internet::OpenSocketSession() {
    SocketFacts facts;
    return VariantBool(platform_.call(&Sockets::WSAStartup, socketVersion, facts) == 0);
}

VariantBool Cls_Internet::OpenCheckedSocketSession() {
    SocketFacts facts;
    if (platform_.call(&Sockets::WSAStartup, socketVersion, facts) != 0) {
        showError(u"The 32-bit Windows Socket is not responding.");
        return False;
    }
    const auto refuse = [&](const auto&... why) {
        return workAndGiveBack([&] { return showError(join(why...)), False; }, [&] { CloseSocketSession(); });
    };
    if (facts.mostSockets < fewestSockets) {
        return refuse(u"This application requires a minimum of ", numberToText(fewestSockets),
                      u" supported sockets.");
    }
    const auto major = LowByteOf(facts.version);
    const auto minor = HighByteOf(facts.version);
    if (major < requiredMajor || (major == requiredMajor && minor < requiredMinor)) {
        return refuse(u"Sockets version ", numberToText(I4{major}), u".", numberToText(I4{minor}),
                      u" is not supported by 32-bit Windows Sockets.");
    }
    return True;
}

void Cls_Internet::CloseSocketSession() {
    if (platform_.call(&Sockets::WSACleanup) != 0) showError(u"Socket error occurred in Cleanup.");
}

/// What is done in a session that is open, which then is closed.
template <class Work>
Bstr Cls_Internet::inSession(Work work) {
    return workAndGiveBack(work, [&] { CloseSocketSession(); });
}

I4 Cls_Internet::lastSocketError() {
    return platform_.call(&Sockets::WSAGetLastError);
}

Bstr Cls_Internet::AddressBytesToText(std::u16string_view address) {
    return dotted(platform_.services.toAnsi(address));
}

Bstr Cls_Internet::GetIPAddress() {
    if (!OpenCheckedSocketSession()) return {};
    return inSession([&]() -> Bstr {
        HostName name(u'\0');
        if (platform_.call(&Sockets::gethostname, name, I4{HostName::size()}) == socketError) {
            showError(join(u"Windows Sockets error ", printedNumber(lastSocketError()),
                           u" has occurred. Unable to successfully get Host Name."));
            return {};
        }
        name = trimBlanks(name.view());
        const auto host = platform_.call(&Sockets::gethostbyname, Bstr(beforeNul(name.view())));
        if (!host) {
            showError(u"Windows Sockets are not responding. Unable to successfully get Host Name.");
            return {};
        }
        return host->addresses.empty() ? Bstr() : dotted(host->addresses.front());
    });
}

Bstr Cls_Internet::GetIPHostName() {
    if (!OpenSocketSession()) return {};
    return inSession([&]() -> Bstr {
        HostName name(u'\0');
        if (platform_.call(&Sockets::gethostname, name, I4{HostName::size()}) == socketError) {
            showError(join(u"Windows Sockets error ", printedNumber(lastSocketError()),
                           u" has occurred.  Unable to successfully get Host Name."));
            return {};
        }
        return beforeNul(name.view());
    });
}

Bstr Cls_Internet::GetHostNameFromIP(Bstr sAddress) {
    if (!OpenSocketSession()) {
        showError(u"Sockets failed to initialize.");
        return {};
    }
    return inSession([&]() -> Bstr {
        const I4 address = platform_.call(&Sockets::inet_addr, sAddress);
        if (address == socketError) {
            showError(u"String passed is an invalid IP.");
            return {};
        }
        const auto host =
            platform_.call(&Sockets::gethostbyaddr, address, I4{sizeof address}, internetFamily);
        if (!host) {
            showError(u"Call to gethostbyaddr failed.");
            return {};
        }
        return platform_.services.fromAnsi(host->name);
    });
}

Bstr Cls_Internet::GetIPFromHostName(Bstr sHostName) {
    if (!OpenSocketSession()) {
        showError(u"Windows Sockets for 32 bit Windows is not successfully responding.");
        return {};
    }
    return inSession([&]() -> Bstr {
        constexpr std::size_t addressLength = 4;
        constexpr std::u16string_view nul(u"\0", 1);
        const auto host = platform_.call(&Sockets::gethostbyname, join(sHostName, nul));
        if (!host || host->addresses.empty()) return {};
        const auto bytes = host->addresses.front().substr(0, addressLength);
        return AddressBytesToText(platform_.services.fromAnsi(bytes));
    });
}

}  // namespace tovera
