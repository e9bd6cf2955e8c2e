#include "platform/linux/shell/host_loop.h"

#if __has_include(<gio/gdesktopappinfo.h>)

#include <dlfcn.h>

#include "platform/linux/shell/gio_library.h"

namespace tovera {
namespace {

/// The system's and GLib's records of a descriptor are the same.
static_assert(sizeof(GPollFD) == sizeof(pollfd));

bool hostHasGLib() {
    using Library = std::unique_ptr<void, decltype([](void* library) { dlclose(library); })>;
    return Library(dlopen("libglib-2.0.so.0", RTLD_LAZY | RTLD_NOLOAD)) != nullptr;
}

/// The context that the calling thread serves, taken; nothing when another thread has it.
GMainContext* acquiredContext() {
    if (!hostHasGLib()) return nullptr;
    auto* context = gio().main_context_get_thread_default();
    if (!context) context = gio().main_context_default();
    return gio().main_context_acquire(context) ? context : nullptr;
}

GPollFD* fromFirst(std::vector<pollfd>& descriptors, std::size_t first) {
    return reinterpret_cast<GPollFD*>(descriptors.data() + first);
}

}  // namespace

void pumpHostLoop() {
    constexpr int mostIterations = 64;
    auto* const context = acquiredContext();
    if (!context) return;
    for (int i = 0; i < mostIterations && gio().main_context_pending(context); ++i)
        gio().main_context_iteration(context, 0);
    gio().main_context_release(context);
}

HostLoopWait::HostLoopWait(std::vector<pollfd>& descriptors)
    : context_(acquiredContext()), first_(descriptors.size()) {
    auto* const context = static_cast<GMainContext*>(context_);
    if (!context) return;
    gio().main_context_prepare(context, &priority_);
    for (int room = 16;;) {
        descriptors.resize(first_ + static_cast<std::size_t>(room));
        const int count =
            gio().main_context_query(context, priority_, &longest_, fromFirst(descriptors, first_), room);
        if (count > room) {
            room = count;
            continue;
        }
        descriptors.resize(first_ + static_cast<std::size_t>(count));
        return;
    }
}

HostLoopWait::~HostLoopWait() {
    if (context_) gio().main_context_release(static_cast<GMainContext*>(context_));
}

bool HostLoopWait::isReady(std::vector<pollfd>& descriptors) const {
    if (!context_) return false;
    const auto count = static_cast<int>(descriptors.size() - first_);
    return gio().main_context_check(static_cast<GMainContext*>(context_), priority_,
                                    fromFirst(descriptors, first_), count) != 0;
}

}  // namespace tovera

#else  // built without GLib

namespace tovera {

void pumpHostLoop() {}
HostLoopWait::HostLoopWait(std::vector<pollfd>& descriptors) : first_(descriptors.size()) {}
HostLoopWait::~HostLoopWait() = default;
bool HostLoopWait::isReady(std::vector<pollfd>&) const {
    return false;
}

}  // namespace tovera

#endif
