#include "c_interface/failures.h"
#include "c_interface/handles.h"
#include "c_interface/host_objects.h"
#include "frame/forwarded_services.h"
#include "frame/utf8.h"
#include "platform/sound_with_boxes.h"
#include "platform/timers.h"

namespace tovera::c {
namespace {

/// How often a wait looks after the host's events, in milliseconds.
constexpr I4 pumpInterval = 20;

class HostServices final : public ForwardedServices {
  public:
    HostServices(const tovera_services& services, void* data)
        : ForwardedServices(home().services), services_(services), data_(data) {}

    bool hasPump() const { return services_.pump != nullptr; }

    using Services::messageBox;
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override {
        const I4 button = services_.message_box ? services_.message_box(data_, toUtf8(text).c_str(), flags,
                                                                        toUtf8(title).c_str())
                                                : -1;
        return button < 0 ? ForwardedServices::messageBox(text, flags, title) : button;
    }
    ObjectRef createObject(std::u16string_view progId) override {
        if (services_.create_object) {
            if (auto made = takeOver(services_.create_object(data_, toUtf8(progId).c_str()))) return made;
        }
        return ForwardedServices::createObject(progId);
    }
    void pumpMessages() override {
        if (!hasPump()) return ForwardedServices::pumpMessages();
        const auto number = services_.pump(data_);
        if (number != 0) recordOf(number, HostFailure()).raise();
    }

  private:
    tovera_services services_;
    void* data_;
};

/// The timers of the home, for a host whose events the home can't wait for.
class PumpingTimers final : public Timers {
  public:
    explicit PumpingTimers(Timers& home) : home_(home) {}

    I4 CreateWaitableTimerA(I4 manualReset, const AnsiText& name) override {
        return home_.CreateWaitableTimerA(manualReset, name);
    }
    I4 SetWaitableTimer(I4 timer, const FileTime& dueTime, I4 period, I4 resume) override {
        return home_.SetWaitableTimer(timer, dueTime, period, resume);
    }
    I4 MsgWaitForMultipleObjects(I4 count, const I4& handle, I4 waitAll, I4 milliseconds,
                                 I4 wakeMask) override {
        constexpr I4 timedOut = 258;
        const bool isLonger = milliseconds < 0 || milliseconds > pumpInterval;
        const auto result = home_.MsgWaitForMultipleObjects(count, handle, waitAll,
                                                            isLonger ? pumpInterval : milliseconds, wakeMask);
        return isLonger && result == timedOut ? waitResults::input : result;
    }
    I4 CloseHandle(I4 handle) override { return home_.CloseHandle(handle); }

  private:
    Timers& home_;
};

class PlatformOfHost final : public HostPlatform {
  public:
    PlatformOfHost(const tovera_services& services, void* data)
        : services_(services, data),
          sound_(home().port<Sound>(), services_),
          timers_(home().port<Timers>()),
          platform_(withTimers(home().with(services_).with(sound_))) {}
    Platform& platform() override { return platform_; }

  private:
    Platform withTimers(const Platform& platform) {
        return services_.hasPump() ? platform.with(timers_) : platform;
    }

    HostServices services_;
    SoundWithBoxes sound_;
    PumpingTimers timers_;
    Platform platform_;
};

}  // namespace
}  // namespace tovera::c

tovera_host* tovera_host_new(const tovera_services* services, void* data) {
    tovera_host* made = nullptr;
    tovera::c::guarded(nullptr, [&] {
        made = std::make_unique<tovera_host>(
                   tovera_host{std::make_shared<tovera::c::PlatformOfHost>(*services, data)})
                   .release();
        return 0;
    });
    return made;
}

void tovera_host_free(tovera_host* host) {
    const std::unique_ptr<tovera_host> freed(host);
}
