#include "own_home.h"

#include <fstream>
#include <iterator>
#include <objbase.h>

namespace tovera::testing {
namespace {

std::set<std::filesystem::path> entries() {
    std::set<std::filesystem::path> found;
    for (const auto* folder : {"C:\\", "C:\\windows"})
        for (const auto& entry : std::filesystem::directory_iterator(folder)) found.insert(entry.path());
    return found;
}

}  // namespace

OwnRegistry::~OwnRegistry() {
    for (const auto* key : {"A\\B", "A", "Software\\Prod", "Software\\P"})
        port().RegDeleteKeyA(rootKeys::currentUser, {key});
}

UserFolder::UserFolder() : before_(entries()) {
    CoInitialize(nullptr);
}

UserFolder::~UserFolder() {
    CoUninitialize();
    std::error_code ignored;
    for (const auto& entry : entries())
        if (!before_.contains(entry)) std::filesystem::remove_all(entry, ignored);
}

void UserFolder::makeFile(const std::string& path, const std::string& text) const {
    std::filesystem::create_directories(std::filesystem::path(onC(path)).parent_path());
    std::ofstream(onC(path), std::ios::binary) << text;
}

std::string UserFolder::textOf(const std::string& path) const {
    std::ifstream file(onC(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tovera::testing
