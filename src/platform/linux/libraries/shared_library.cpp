#include "platform/linux/libraries/shared_library.h"

#include <dlfcn.h>

#include "frame/error.h"

namespace tovera {

void* SharedLibrary::load() {
    const std::lock_guard guard(mutex_);
    if (!handle_) handle_ = dlopen(name_, RTLD_NOW | RTLD_LOCAL);
    if (!handle_ && otherName_) handle_ = dlopen(otherName_, RTLD_NOW | RTLD_LOCAL);
    return handle_;
}

bool SharedLibrary::isPresent() {
    return load() != nullptr;
}

void* SharedLibrary::function(const char* name) {
    auto* const library = load();
    if (!library) raise(ErrorNumber::FileNotFound);
    auto* const address = dlsym(library, name);
    if (!address) raise(ErrorNumber::EntryPointNotFound);
    return address;
}

}  // namespace tovera
