#include "platform/linux/component_facts.h"

#include <dlfcn.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "frame/utf8.h"
#include "platform/linux/files/data_folder.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/paths.h"

namespace tovera {
namespace {

/// The file that this code has been loaded from: the library, or the program that it is part of.
std::filesystem::path ownFile() {
    Dl_info module{};
    dladdr(reinterpret_cast<const void*>(&componentFacts), &module);
    std::error_code ignored;
    const auto file = std::filesystem::absolute(module.dli_fname ? module.dli_fname : "", ignored);
    return file.has_extension() ? file : std::filesystem::read_symlink("/proc/self/exe", ignored);
}

/// One folder may have several names.
std::string withoutLinks(const std::string& folder) {
    std::error_code failure;
    const auto found = std::filesystem::weakly_canonical(folder, failure);
    return failure ? folder : found.string();
}

bool isOwnAlone(const std::string& folder) {
    const auto facts = factsOf(folder);
    return facts && S_ISDIR(facts->st_mode) && facts->st_uid == geteuid() &&
           (facts->st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

}  // namespace

std::u16string componentFolder(const std::string& ownFolder, const std::string& homeFolder) {
    const auto own = withoutLinks(ownFolder);
    const auto home = withoutLinks(homeFolder);
    if (own != home && isBelow(own, home) && isOwnAlone(own)) return fromUtf8(own);
    makeWindowsFolders();
    chmod(foundHostPath(systemFolder).c_str(), S_IRWXU);
    return std::u16string(systemFolder);
}

ComponentFacts componentFacts() {
    const auto file = ownFile();
    ComponentFacts facts;
    facts.fileName = fromUtf8(file.stem().string());
    facts.folder = componentFolder(file.parent_path().string(), homeFolder());
    return facts;
}

}  // namespace tovera
