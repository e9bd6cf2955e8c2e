#pragma once

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <gio/gunixfdlist.h>
#include <memory>

#include "platform/linux/libraries/shared_library.h"

namespace tovera {

/// The functions of GLib and GIO that are called here; none of them takes a variable number of arguments.
struct GioLibrary {
    template <class Function>
    using Bound = EntryPoint<Function>;

    SharedLibrary glib{"libglib-2.0.so.0"};
    SharedLibrary gobject{"libgobject-2.0.so.0"};
    SharedLibrary gio{"libgio-2.0.so.0"};

    Bound<decltype(g_free)> free_memory{glib, "g_free"};
    Bound<decltype(g_error_free)> error_free{glib, "g_error_free"};
    Bound<decltype(g_main_context_default)> main_context_default{glib, "g_main_context_default"};
    Bound<decltype(g_main_context_get_thread_default)> main_context_get_thread_default{
        glib, "g_main_context_get_thread_default"};
    Bound<decltype(g_main_context_acquire)> main_context_acquire{glib, "g_main_context_acquire"};
    Bound<decltype(g_main_context_release)> main_context_release{glib, "g_main_context_release"};
    Bound<decltype(g_main_context_pending)> main_context_pending{glib, "g_main_context_pending"};
    Bound<decltype(g_main_context_iteration)> main_context_iteration{glib, "g_main_context_iteration"};
    Bound<decltype(g_main_context_prepare)> main_context_prepare{glib, "g_main_context_prepare"};
    Bound<decltype(g_main_context_query)> main_context_query{glib, "g_main_context_query"};
    Bound<decltype(g_main_context_check)> main_context_check{glib, "g_main_context_check"};
    Bound<decltype(g_main_context_new)> main_context_new{glib, "g_main_context_new"};
    Bound<decltype(g_main_context_unref)> main_context_unref{glib, "g_main_context_unref"};
    Bound<decltype(g_main_context_push_thread_default)> main_context_push_thread_default{
        glib, "g_main_context_push_thread_default"};
    Bound<decltype(g_main_context_pop_thread_default)> main_context_pop_thread_default{
        glib, "g_main_context_pop_thread_default"};
    Bound<decltype(g_variant_new_boolean)> variant_new_boolean{glib, "g_variant_new_boolean"};
    Bound<decltype(g_variant_new_string)> variant_new_string{glib, "g_variant_new_string"};
    Bound<decltype(g_variant_new_uint32)> variant_new_uint32{glib, "g_variant_new_uint32"};
    Bound<decltype(g_variant_new_handle)> variant_new_handle{glib, "g_variant_new_handle"};
    Bound<decltype(g_variant_new_variant)> variant_new_variant{glib, "g_variant_new_variant"};
    Bound<decltype(g_variant_new_dict_entry)> variant_new_dict_entry{glib, "g_variant_new_dict_entry"};
    Bound<decltype(g_variant_new_array)> variant_new_array{glib, "g_variant_new_array"};
    Bound<decltype(g_variant_new_tuple)> variant_new_tuple{glib, "g_variant_new_tuple"};
    Bound<decltype(g_variant_ref_sink)> variant_ref_sink{glib, "g_variant_ref_sink"};
    Bound<decltype(g_variant_unref)> variant_unref{glib, "g_variant_unref"};
    Bound<decltype(g_variant_get_child_value)> variant_get_child_value{glib, "g_variant_get_child_value"};
    Bound<decltype(g_variant_n_children)> variant_n_children{glib, "g_variant_n_children"};
    Bound<decltype(g_variant_get_variant)> variant_get_variant{glib, "g_variant_get_variant"};
    Bound<decltype(g_variant_get_string)> variant_get_string{glib, "g_variant_get_string"};
    Bound<decltype(g_variant_get_boolean)> variant_get_boolean{glib, "g_variant_get_boolean"};
    Bound<decltype(g_variant_get_uint32)> variant_get_uint32{glib, "g_variant_get_uint32"};
    Bound<decltype(g_variant_lookup_value)> variant_lookup_value{glib, "g_variant_lookup_value"};
    Bound<decltype(g_variant_is_of_type)> variant_is_of_type{glib, "g_variant_is_of_type"};

    Bound<decltype(g_object_unref)> object_unref{gobject, "g_object_unref"};

    Bound<decltype(g_io_error_quark)> io_error_quark{gio, "g_io_error_quark"};
    Bound<decltype(g_file_new_for_path)> file_new_for_path{gio, "g_file_new_for_path"};
    Bound<decltype(g_file_new_for_uri)> file_new_for_uri{gio, "g_file_new_for_uri"};
    Bound<decltype(g_file_query_info)> file_query_info{gio, "g_file_query_info"};
    Bound<decltype(g_file_trash)> file_trash{gio, "g_file_trash"};
    Bound<decltype(g_file_get_path)> file_get_path{gio, "g_file_get_path"};
    Bound<decltype(g_file_info_get_content_type)> file_info_get_content_type{gio,
                                                                             "g_file_info_get_content_type"};
    Bound<decltype(g_app_info_get_default_for_type)> app_info_get_default_for_type{
        gio, "g_app_info_get_default_for_type"};
    Bound<decltype(g_app_info_get_default_for_uri_scheme)> app_info_get_default_for_uri_scheme{
        gio, "g_app_info_get_default_for_uri_scheme"};
    Bound<decltype(g_app_info_get_executable)> app_info_get_executable{gio, "g_app_info_get_executable"};
    Bound<decltype(g_app_launch_context_new)> app_launch_context_new{gio, "g_app_launch_context_new"};
    Bound<decltype(g_app_launch_context_unsetenv)> app_launch_context_unsetenv{
        gio, "g_app_launch_context_unsetenv"};
    Bound<decltype(g_app_info_launch)> app_info_launch{gio, "g_app_info_launch"};
    Bound<decltype(g_app_info_launch_uris)> app_info_launch_uris{gio, "g_app_info_launch_uris"};
    Bound<decltype(g_bus_get_sync)> bus_get_sync{gio, "g_bus_get_sync"};
    Bound<decltype(g_dbus_connection_flush_sync)> dbus_connection_flush_sync{gio,
                                                                             "g_dbus_connection_flush_sync"};
    Bound<decltype(g_dbus_address_get_for_bus_sync)> dbus_address_get_for_bus_sync{
        gio, "g_dbus_address_get_for_bus_sync"};
    Bound<decltype(g_dbus_connection_new_for_address_sync)> dbus_connection_new_for_address_sync{
        gio, "g_dbus_connection_new_for_address_sync"};
    Bound<decltype(g_dbus_connection_call_sync)> dbus_connection_call_sync{gio,
                                                                           "g_dbus_connection_call_sync"};
    Bound<decltype(g_dbus_connection_call_with_unix_fd_list_sync)>
        dbus_connection_call_with_unix_fd_list_sync{gio, "g_dbus_connection_call_with_unix_fd_list_sync"};
    Bound<decltype(g_dbus_connection_get_unique_name)> dbus_connection_get_unique_name{
        gio, "g_dbus_connection_get_unique_name"};
    Bound<decltype(g_dbus_connection_signal_subscribe)> dbus_connection_signal_subscribe{
        gio, "g_dbus_connection_signal_subscribe"};
    Bound<decltype(g_dbus_connection_is_closed)> dbus_connection_is_closed{gio,
                                                                           "g_dbus_connection_is_closed"};
    Bound<decltype(g_dbus_connection_close_sync)> dbus_connection_close_sync{gio,
                                                                             "g_dbus_connection_close_sync"};
    Bound<decltype(g_unix_fd_list_new)> unix_fd_list_new{gio, "g_unix_fd_list_new"};
    Bound<decltype(g_unix_fd_list_append)> unix_fd_list_append{gio, "g_unix_fd_list_append"};
};

inline GioLibrary& gio() {
    static GioLibrary functions;
    return functions;
}

/// Gives back what GLib has handed over, by its kind.
struct GioDeleter {
    void operator()(char* text) const { gio().free_memory(text); }
    void operator()(GError* error) const { gio().error_free(error); }
    void operator()(GVariant* value) const { gio().variant_unref(value); }
    template <class Object>
    void operator()(Object* object) const {
        gio().object_unref(object);
    }
};
template <class T>
using GioOwned = std::unique_ptr<T, GioDeleter>;

/// Where a call stores the error that it hands over.
class GioError {
  public:
    GioError() = default;
    GioError(const GioError&) = delete;
    GioError& operator=(const GioError&) = delete;
    ~GioError() {
        if (error_) gio().error_free(error_);
    }
    GError** out() { return &error_; }
    /// Whether it is this error of input and output.
    bool is(GIOErrorEnum code) const {
        return error_ && error_->domain == gio().io_error_quark() && error_->code == static_cast<int>(code);
    }

  private:
    GError* error_ = nullptr;
};

}  // namespace tovera
