#include "platform/linux/files/block_devices.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/sysmacros.h>

#include "platform/linux/files/file_descriptor.h"
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

std::string wholeText(const std::string& path) {
    constexpr std::size_t roomAtFirst = 8192;
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen()) return {};
    std::string bytes(roomAtFirst, '\0');
    std::size_t size = 0;
    while (true) {
        const auto count = ::read(file.get(), bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        size += static_cast<std::size_t>(count);
        if (size == bytes.size()) bytes.resize(2 * size);
    }
    bytes.resize(size);
    return bytes;
}

/// The kernel lists them in one line, and the last to come first: `drive name:		sr1	sr0`.
std::vector<std::string> opticalDrives(const DeviceFolders& folders) {
    constexpr std::string_view key = "drive name:";
    const auto facts = wholeText(folders.opticalDrives);
    const auto line = facts.find(key);
    if (line == facts.npos) return {};
    std::istringstream names(facts.substr(line + key.size(), facts.find('\n', line) - line - key.size()));
    std::vector<std::string> drives;
    for (std::string name; names >> name;)
        if (factsOfTarget(folders.devices + '/' + name)) drives.push_back(name);
    std::ranges::sort(drives, {}, [](const auto& name) { return std::pair(name.size(), name); });
    return drives;
}

std::string volumeId(const DeviceFolders& folders, const std::string& device) {
    const auto noted = linkTo(folders.devices + "/disk/by-uuid", device);
    return noted.empty() ? idOn(nodeOf(folders, device)) : noted;
}

std::string hardwareId(const DeviceFolders& folders, const std::string& device) {
    return linkTo(folders.devices + "/disk/by-id", device);
}

}  // namespace tovera
