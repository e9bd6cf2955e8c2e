#include "platform/linux/files/volume_id.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sys/sysmacros.h>

#include "platform/linux/files/file_facts.h"

#if __has_include(<blkid/blkid.h>)
#include <blkid/blkid.h>
#include <memory>

#include "platform/linux/libraries/shared_library.h"
#endif

namespace tovera {
namespace {

/// The name of the first link in a folder, by the alphabet, that leads to the device with these numbers.
std::string linkTo(const std::string& folder, const std::string& device) {
    std::string first;
    std::error_code ignored;
    for (const auto& link : std::filesystem::directory_iterator(folder, ignored)) {
        const auto facts = factsOfTarget(link.path());
        if (!facts || !S_ISBLK(facts->st_mode)) continue;
        const auto numbers =
            std::to_string(major(facts->st_rdev)) + ':' + std::to_string(minor(facts->st_rdev));
        if (numbers == device && (first.empty() || link.path().filename() < first))
            first = link.path().filename();
    }
    return first;
}

/// The file of the device with these numbers, as the kernel names it.
std::string nodeOf(const DeviceFolders& folders, const std::string& device) {
    constexpr std::string_view key = "DEVNAME=";
    std::ifstream facts(folders.blockDevices + '/' + device + "/uevent");
    for (std::string line; std::getline(facts, line);)
        if (line.starts_with(key)) return folders.devices + '/' + line.substr(key.size());
    return {};
}

#if __has_include(<blkid/blkid.h>)

// Its header warns of results that aren't looked at, which is no part of a function's type.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-attributes"

/// The functions of the library that knows what file systems look like.
struct BlkidLibrary {
    template <class Function>
    using Bound = EntryPoint<Function>;

    SharedLibrary library{"libblkid.so.1"};
    Bound<decltype(blkid_new_probe_from_filename)> new_probe{library, "blkid_new_probe_from_filename"};
    Bound<decltype(blkid_do_safeprobe)> do_safeprobe{library, "blkid_do_safeprobe"};
    Bound<decltype(blkid_probe_lookup_value)> lookup_value{library, "blkid_probe_lookup_value"};
    Bound<decltype(blkid_free_probe)> free_probe{library, "blkid_free_probe"};
};

#pragma GCC diagnostic pop

BlkidLibrary& blkid() {
    static BlkidLibrary functions;
    return functions;
}

struct FreeProbe {
    void operator()(blkid_probe probe) const { blkid().free_probe(probe); }
};

std::string idOn(const std::string& node) {
    if (node.empty() || !blkid().library.isPresent()) return {};
    const std::unique_ptr<blkid_struct_probe, FreeProbe> probe(blkid().new_probe(node.c_str()));
    const char* id = nullptr;
    if (!probe || blkid().do_safeprobe(probe.get()) != 0 ||
        blkid().lookup_value(probe.get(), "UUID", &id, static_cast<std::size_t*>(nullptr)) != 0)
        return {};
    return id;
}

#else

std::string idOn(const std::string&) {
    return {};
}

#endif

}  // namespace

std::string volumeId(const DeviceFolders& folders, const std::string& device) {
    const auto noted = linkTo(folders.devices + "/disk/by-uuid", device);
    return noted.empty() ? idOn(nodeOf(folders, device)) : noted;
}

std::string hardwareId(const DeviceFolders& folders, const std::string& device) {
    return linkTo(folders.devices + "/disk/by-id", device);
}

}  // namespace tovera
