#include <arpa/inet.h>
#include <ifaddrs.h>
#include <netdb.h>

#include "peers/peers.h"

namespace bench {
namespace {

/// The C library's look-up of a name, and the text of the first address.
Loop byName(std::string name) {
    return loopOf([=] {
        char room[1024];
        hostent entry{};
        hostent* found = nullptr;
        int error = 0;
        gethostbyname2_r(name.c_str(), AF_INET, &entry, room, sizeof room, &found, &error);
        char text[INET_ADDRSTRLEN] = "";
        if (found) inet_ntop(AF_INET, found->h_addr_list[0], text, sizeof text);
        return std::string(text);
    });
}

Loop interfaces() {
    return loopOf([] {
        ifaddrs* list = nullptr;
        const int error = getifaddrs(&list);
        freeifaddrs(list);
        return error;
    });
}

const Installed names(resolverByName, byName);
const Installed lists(listOfInterfaces, interfaces);

}  // namespace
}  // namespace bench
