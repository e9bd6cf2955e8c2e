#include "platform/linux/sound/sound_devices.h"

#include <fstream>
#include <memory>
#include <optional>

#if __has_include(<pulse/pulseaudio.h>)
#include <chrono>
#include <pulse/pulseaudio.h>

#include "platform/linux/libraries/shared_library.h"
#endif

namespace tovera {
namespace {

#if __has_include(<pulse/pulseaudio.h>)

/// The functions of PulseAudio's client library, whose protocol PipeWire answers too.
struct PulseLibrary {
    template <class Function>
    using Bound = EntryPoint<Function>;

    SharedLibrary library{"libpulse.so.0"};
    Bound<decltype(pa_mainloop_new)> mainloop_new{library, "pa_mainloop_new"};
    Bound<decltype(pa_mainloop_free)> mainloop_free{library, "pa_mainloop_free"};
    Bound<decltype(pa_mainloop_get_api)> mainloop_get_api{library, "pa_mainloop_get_api"};
    Bound<decltype(pa_mainloop_prepare)> mainloop_prepare{library, "pa_mainloop_prepare"};
    Bound<decltype(pa_mainloop_poll)> mainloop_poll{library, "pa_mainloop_poll"};
    Bound<decltype(pa_mainloop_dispatch)> mainloop_dispatch{library, "pa_mainloop_dispatch"};
    Bound<decltype(pa_context_new)> context_new{library, "pa_context_new"};
    Bound<decltype(pa_context_connect)> context_connect{library, "pa_context_connect"};
    Bound<decltype(pa_context_get_state)> context_get_state{library, "pa_context_get_state"};
    Bound<decltype(pa_context_get_sink_info_list)> sinks{library, "pa_context_get_sink_info_list"};
    Bound<decltype(pa_context_disconnect)> context_disconnect{library, "pa_context_disconnect"};
    Bound<decltype(pa_context_unref)> context_unref{library, "pa_context_unref"};
    Bound<decltype(pa_operation_get_state)> operation_get_state{library, "pa_operation_get_state"};
    Bound<decltype(pa_operation_unref)> operation_unref{library, "pa_operation_unref"};
};

PulseLibrary& pulse() {
    static PulseLibrary functions;
    return functions;
}

/// A connection to the sound server that the user's programs reach; none is started.
class ServerConnection {
  public:
    ServerConnection() : loop_(pulse().mainloop_new()) {
        context_ = pulse().context_new(pulse().mainloop_get_api(loop_), "tovera");
        pulse().context_connect(context_, static_cast<const char*>(nullptr), PA_CONTEXT_NOAUTOSPAWN,
                                static_cast<const pa_spawn_api*>(nullptr));
        isReady_ = runUntil([&] { return pulse().context_get_state(context_) == PA_CONTEXT_READY; });
    }
    ServerConnection(const ServerConnection&) = delete;
    ServerConnection& operator=(const ServerConnection&) = delete;
    ~ServerConnection() {
        pulse().context_disconnect(context_);
        pulse().context_unref(context_);
        pulse().mainloop_free(loop_);
    }

    /// Nothing without a server that answers.
    std::optional<int> sinks() {
        if (!isReady_) return std::nullopt;
        int count = 0;
        const pa_sink_info_cb_t add = [](pa_context*, const pa_sink_info* sink, int, void* counter) {
            if (sink && std::string_view(sink->name) != "auto_null") ++*static_cast<int*>(counter);
        };
        auto* const asking = pulse().sinks(context_, add, static_cast<void*>(&count));
        if (!asking) return std::nullopt;
        const bool answered =
            runUntil([&] { return pulse().operation_get_state(asking) != PA_OPERATION_RUNNING; });
        pulse().operation_unref(asking);
        return answered ? std::optional(count) : std::nullopt;
    }

  private:
    /// False when the server is lost, or takes more than two seconds.
    template <class Condition>
    bool runUntil(Condition&& isReached) {
        constexpr int microsecondsAPass = 100'000;
        while (!isReached()) {
            const bool isAlive = PA_CONTEXT_IS_GOOD(pulse().context_get_state(context_)) != 0;
            if (!isAlive || std::chrono::steady_clock::now() > end_) return false;
            if (pulse().mainloop_prepare(loop_, microsecondsAPass) < 0 || pulse().mainloop_poll(loop_) < 0 ||
                pulse().mainloop_dispatch(loop_) < 0) {
                return false;
            }
        }
        return true;
    }

    std::chrono::steady_clock::time_point end_ = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    pa_mainloop* loop_;
    pa_context* context_ = nullptr;
    bool isReady_ = false;
};

std::optional<int> serverDevices() {
    if (!pulse().library.isPresent()) return std::nullopt;
    return ServerConnection().sinks();
}

#else

std::optional<int> serverDevices() {
    return std::nullopt;
}

#endif

}  // namespace

int soundDevices(const std::string& kernelList) {
    if (const auto count = serverDevices()) return *count;
    std::ifstream list(kernelList);
    int count = 0;
    for (std::string line; std::getline(list, line);) count += line.find("playback") != line.npos ? 1 : 0;
    return count;
}

}  // namespace tovera
