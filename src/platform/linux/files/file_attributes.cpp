#include "platform/linux/files/file_attributes.h"

#include <algorithm>
#include <optional>
#include <string>
#include <sys/xattr.h>
#include <vector>

namespace tovera {
namespace {

/// The access list is one of them. None on a file system that has no attributes.
std::vector<std::string> attributesOf(const FileDescriptor& file) {
    std::vector<std::string> names;
    const auto size = flistxattr(file.get(), nullptr, 0);
    if (size <= 0) return names;
    std::string list(static_cast<std::size_t>(size), '\0');
    list.resize(
        static_cast<std::size_t>(std::max<ssize_t>(flistxattr(file.get(), list.data(), list.size()), 0)));
    for (std::size_t at = 0; at < list.size(); at += names.back().size() + 1) names.emplace_back(&list[at]);
    return names;
}

std::optional<std::string> attribute(const FileDescriptor& file, const std::string& name) {
    const auto size = fgetxattr(file.get(), name.c_str(), nullptr, 0);
    if (size < 0) return std::nullopt;
    std::string value(static_cast<std::size_t>(size), '\0');
    if (fgetxattr(file.get(), name.c_str(), value.data(), value.size()) != size) return std::nullopt;
    return value;
}

bool set(const FileDescriptor& file, const std::string& name, const std::string& value) {
    return fsetxattr(file.get(), name.c_str(), value.data(), value.size(), 0) == 0;
}

/// A new file may have inherited an access list from its folder.
bool takeList(const FileDescriptor& fresh, const FileDescriptor& old) {
    const auto names = attributesOf(old);
    for (const auto& name : attributesOf(fresh))
        if (std::ranges::count(names, name) == 0 && fremovexattr(fresh.get(), name.c_str()) != 0)
            return false;
    return std::ranges::all_of(names, [&](const std::string& name) {
        const auto value = attribute(old, name);
        return value && (attribute(fresh, name) == value || set(fresh, name, *value));
    });
}

}  // namespace

bool takeAttributes(const FileDescriptor& fresh, const FileDescriptor& old, const struct stat& oldFacts) {
    struct stat facts {};
    if (fstat(fresh.get(), &facts) != 0) return false;
    const bool isOwned = facts.st_uid == oldFacts.st_uid && facts.st_gid == oldFacts.st_gid;
    if (!isOwned && fchown(fresh.get(), oldFacts.st_uid, oldFacts.st_gid) != 0) return false;
    if (!takeList(fresh, old) || fchmod(fresh.get(), oldFacts.st_mode & 0777U) != 0) return false;
    return fstat(fresh.get(), &facts) == 0 && facts.st_mode == oldFacts.st_mode;
}

}  // namespace tovera
