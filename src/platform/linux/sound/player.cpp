#include "platform/linux/sound/player.h"

#include "platform/linux/files/file_facts.h"
#include "platform/linux/sound/mci_command.h"

#if __has_include(<gst/gst.h>)

#include <atomic>

#include "platform/linux/sound/gstreamer_library.h"

namespace tovera {
namespace {

bool isReady() {
    static const bool ready = gStreamer().library.isPresent() &&
                              gStreamer().init(static_cast<int*>(nullptr), static_cast<char***>(nullptr),
                                               static_cast<GError**>(nullptr));
    return ready;
}

struct FreeText {
    void operator()(char* text) const { gStreamer().free(text); }
};

class GStreamerPlayer : public Player {
  public:
    GStreamerPlayer(const std::string& path, AtEnd atEnd)
        : atEnd_(atEnd), element_(gStreamer().make("playbin", static_cast<const char*>(nullptr))) {
        if (!element_) return;
        const std::unique_ptr<char, FreeText> uri(
            gStreamer().filename_to_uri(path.c_str(), static_cast<GError**>(nullptr)));
        auto* const object = reinterpret_cast<GObject*>(element_);
        gStreamer().set_argument(object, "uri", uri ? uri.get() : "");
        gStreamer().set_argument(object, "flags", "audio+soft-volume");
        setHandler(&GStreamerPlayer::heard);
    }
    GStreamerPlayer(const GStreamerPlayer&) = delete;
    GStreamerPlayer& operator=(const GStreamerPlayer&) = delete;
    ~GStreamerPlayer() override {
        if (!element_) return;
        setHandler(nullptr);
        gStreamer().set_state(element_, GST_STATE_NULL);
        gStreamer().unref(element_);
    }

    /// Waits until the file is ready to be played; false when it can't be.
    bool prepare() {
        constexpr GstClockTime longest = 10 * GST_SECOND;
        if (!element_ || gStreamer().set_state(element_, GST_STATE_PAUSED) == GST_STATE_CHANGE_FAILURE)
            return false;
        const auto change = gStreamer().get_state(element_, static_cast<GstState*>(nullptr),
                                                  static_cast<GstState*>(nullptr), longest);
        return change == GST_STATE_CHANGE_SUCCESS && !ended_;
    }

    void play() override {
        if (isBroken_) return;
        if (ended_.exchange(false)) {
            const auto flags = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_KEY_UNIT);
            gStreamer().seek(element_, GST_FORMAT_TIME, flags, gint64{0});
        }
        playing_ = true;  // before the end can be heard
        if (gStreamer().set_state(element_, GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE) playing_ = false;
    }
    void stop() override {
        playing_ = false;
        gStreamer().set_state(element_, GST_STATE_PAUSED);
    }
    bool isPlaying() const override { return playing_; }

  private:
    void setHandler(GstBusSyncHandler handler) {
        auto* const bus = gStreamer().get_bus(element_);
        gStreamer().set_sync_handler(bus, handler, static_cast<gpointer>(this), GDestroyNotify{});
        gStreamer().unref(bus);
    }

    /// Called on a thread of the player, which mustn't change its state: that is left to another one.
    static GstBusSyncReply heard(GstBus*, GstMessage* message, gpointer self) {
        const auto type = GST_MESSAGE_TYPE(message);
        if (type == GST_MESSAGE_ERROR) static_cast<GStreamerPlayer*>(self)->isBroken_ = true;
        if (type == GST_MESSAGE_EOS || type == GST_MESSAGE_ERROR)
            static_cast<GStreamerPlayer*>(self)->finish();
        gStreamer().unref_message(reinterpret_cast<GstMiniObject*>(message));
        return GST_BUS_DROP;
    }
    void finish() {
        ended_ = true;
        playing_ = false;
        if (atEnd_ == AtEnd::StaysOpen) return;
        const auto close = [](GstElement* element, gpointer) {
            gStreamer().set_state(element, GST_STATE_NULL);
        };
        gStreamer().call_async(element_, GstElementCallAsyncFunc{close}, gpointer{}, GDestroyNotify{});
    }

    AtEnd atEnd_;
    GstElement* element_;
    std::atomic<bool> playing_ = false;
    std::atomic<bool> ended_ = false;
    std::atomic<bool> isBroken_ = false;  ///< it ended before its end, and plays no more
};

}  // namespace

std::unique_ptr<Player> Player::open(const std::string& path, AtEnd atEnd, I4& code) {
    const auto facts = factsOfTarget(path);
    code = !facts                     ? mci::fileMissing
           : !S_ISREG(facts->st_mode) ? mci::cannotBeOpened
           : !isReady()               ? mci::noDriver
                                      : mci::success;
    if (code != mci::success) return {};
    auto player = std::make_unique<GStreamerPlayer>(path, atEnd);
    if (player->prepare()) return player;
    code = mci::cannotBeOpened;
    return {};
}

}  // namespace tovera

#else  // built without GStreamer

namespace tovera {

std::unique_ptr<Player> Player::open(const std::string& path, AtEnd, I4& code) {
    code = factsOfTarget(path) ? mci::noDriver : mci::fileMissing;
    return {};
}

}  // namespace tovera

#endif
