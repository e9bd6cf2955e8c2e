#pragma once

#include <gst/gst.h>

#include "platform/linux/libraries/shared_library.h"

namespace tovera {

/// The functions of GStreamer that a player calls; none of them takes a variable number of arguments.
struct GStreamerLibrary {
    template <class Function>
    using Bound = EntryPoint<Function>;

    SharedLibrary library{"libgstreamer-1.0.so.0"};
    SharedLibrary glib{"libglib-2.0.so.0"};
    Bound<decltype(gst_init_check)> init{library, "gst_init_check"};
    Bound<decltype(gst_filename_to_uri)> filename_to_uri{library, "gst_filename_to_uri"};
    Bound<decltype(gst_element_factory_make)> make{library, "gst_element_factory_make"};
    Bound<decltype(gst_util_set_object_arg)> set_argument{library, "gst_util_set_object_arg"};
    Bound<decltype(gst_element_set_state)> set_state{library, "gst_element_set_state"};
    Bound<decltype(gst_element_get_state)> get_state{library, "gst_element_get_state"};
    Bound<decltype(gst_element_get_bus)> get_bus{library, "gst_element_get_bus"};
    Bound<decltype(gst_bus_set_sync_handler)> set_sync_handler{library, "gst_bus_set_sync_handler"};
    Bound<decltype(gst_element_seek_simple)> seek{library, "gst_element_seek_simple"};
    Bound<decltype(gst_element_call_async)> call_async{library, "gst_element_call_async"};
    Bound<decltype(gst_object_unref)> unref{library, "gst_object_unref"};
    Bound<decltype(gst_mini_object_unref)> unref_message{library, "gst_mini_object_unref"};
    Bound<decltype(g_free)> free{glib, "g_free"};
};

inline GStreamerLibrary& gStreamer() {
    static GStreamerLibrary functions;
    return functions;
}

}  // namespace tovera
