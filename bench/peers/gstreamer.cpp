#include <gst/gst.h>
#include <memory>
#include <string>

#include "peers/peers.h"

namespace bench {
namespace {

Loop play(std::string path) {
    gst_init(nullptr, nullptr);
    const std::unique_ptr<char, decltype([](char* text) { g_free(text); })> address(
        gst_filename_to_uri(path.c_str(), nullptr));
    return loopOf([address = std::string(address.get())] {
        auto* const player = gst_element_factory_make("playbin", nullptr);
        gst_util_set_object_arg(G_OBJECT(player), "flags", "audio+soft-volume");
        g_object_set(player, "uri", address.c_str(), nullptr);
        gst_element_set_state(player, GST_STATE_PAUSED);
        gst_element_get_state(player, nullptr, nullptr, GST_CLOCK_TIME_NONE);
        gst_element_set_state(player, GST_STATE_PLAYING);
        gst_element_set_state(player, GST_STATE_NULL);
        gst_object_unref(player);
        return true;
    });
}

const Installed installed(gStreamerPlay, play);

}  // namespace
}  // namespace bench
