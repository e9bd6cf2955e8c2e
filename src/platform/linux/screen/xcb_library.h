#pragma once

#include <xcb/xcb.h>

#include "platform/linux/libraries/shared_library.h"

namespace tovera {

/// The functions of XCB that windows, mouse and keyboard call. A failed request never ends the process, as it
/// would with Xlib.
struct XcbLibrary {
    template <class Function>
    using Bound = EntryPoint<Function>;

    SharedLibrary library{"libxcb.so.1"};

    // The connection.
    Bound<decltype(xcb_connect)> connect{library, "xcb_connect"};
    Bound<decltype(xcb_disconnect)> disconnect{library, "xcb_disconnect"};
    Bound<decltype(xcb_connection_has_error)> has_error{library, "xcb_connection_has_error"};
    Bound<decltype(xcb_flush)> flush{library, "xcb_flush"};
    Bound<decltype(xcb_poll_for_event)> poll_for_event{library, "xcb_poll_for_event"};
    Bound<decltype(xcb_query_extension)> query_extension{library, "xcb_query_extension"};
    Bound<decltype(xcb_query_extension_reply)> query_extension_reply{library, "xcb_query_extension_reply"};
    Bound<decltype(xcb_get_setup)> get_setup{library, "xcb_get_setup"};
    Bound<decltype(xcb_setup_roots_iterator)> setup_roots_iterator{library, "xcb_setup_roots_iterator"};
    Bound<decltype(xcb_screen_next)> screen_next{library, "xcb_screen_next"};

    // Names and properties.
    Bound<decltype(xcb_intern_atom)> intern_atom{library, "xcb_intern_atom"};
    Bound<decltype(xcb_intern_atom_reply)> intern_atom_reply{library, "xcb_intern_atom_reply"};
    Bound<decltype(xcb_get_property)> get_property{library, "xcb_get_property"};
    Bound<decltype(xcb_get_property_reply)> get_property_reply{library, "xcb_get_property_reply"};
    Bound<decltype(xcb_get_property_value)> get_property_value{library, "xcb_get_property_value"};
    Bound<decltype(xcb_change_property)> change_property{library, "xcb_change_property"};
    Bound<decltype(xcb_delete_property)> delete_property{library, "xcb_delete_property"};
    Bound<decltype(xcb_get_selection_owner)> get_selection_owner{library, "xcb_get_selection_owner"};
    Bound<decltype(xcb_get_selection_owner_reply)> get_selection_owner_reply{library,
                                                                             "xcb_get_selection_owner_reply"};

    // Windows.
    Bound<decltype(xcb_generate_id)> generate_id{library, "xcb_generate_id"};
    Bound<decltype(xcb_create_window)> create_window{library, "xcb_create_window"};
    Bound<decltype(xcb_map_window)> map_window{library, "xcb_map_window"};
    Bound<decltype(xcb_unmap_window)> unmap_window{library, "xcb_unmap_window"};
    Bound<decltype(xcb_query_tree)> query_tree{library, "xcb_query_tree"};
    Bound<decltype(xcb_query_tree_reply)> query_tree_reply{library, "xcb_query_tree_reply"};
    Bound<decltype(xcb_query_tree_children)> query_tree_children{library, "xcb_query_tree_children"};
    Bound<decltype(xcb_query_tree_children_length)> query_tree_children_length{
        library, "xcb_query_tree_children_length"};
    Bound<decltype(xcb_get_window_attributes)> get_window_attributes{library, "xcb_get_window_attributes"};
    Bound<decltype(xcb_get_window_attributes_reply)> get_window_attributes_reply{
        library, "xcb_get_window_attributes_reply"};
    Bound<decltype(xcb_configure_window)> configure_window{library, "xcb_configure_window"};
    Bound<decltype(xcb_send_event)> send_event{library, "xcb_send_event"};
    Bound<decltype(xcb_get_input_focus)> get_input_focus{library, "xcb_get_input_focus"};
    Bound<decltype(xcb_get_input_focus_reply)> get_input_focus_reply{library, "xcb_get_input_focus_reply"};

    // Mouse and keyboard.
    Bound<decltype(xcb_warp_pointer)> warp_pointer{library, "xcb_warp_pointer"};
    Bound<decltype(xcb_query_pointer)> query_pointer{library, "xcb_query_pointer"};
    Bound<decltype(xcb_query_pointer_reply)> query_pointer_reply{library, "xcb_query_pointer_reply"};
    Bound<decltype(xcb_query_keymap)> query_keymap{library, "xcb_query_keymap"};
    Bound<decltype(xcb_query_keymap_reply)> query_keymap_reply{library, "xcb_query_keymap_reply"};
    Bound<decltype(xcb_get_keyboard_mapping)> get_keyboard_mapping{library, "xcb_get_keyboard_mapping"};
    Bound<decltype(xcb_get_keyboard_mapping_reply)> get_keyboard_mapping_reply{
        library, "xcb_get_keyboard_mapping_reply"};
    Bound<decltype(xcb_get_keyboard_mapping_keysyms)> get_keyboard_mapping_keysyms{
        library, "xcb_get_keyboard_mapping_keysyms"};
    Bound<decltype(xcb_get_keyboard_mapping_keysyms_length)> get_keyboard_mapping_keysyms_length{
        library, "xcb_get_keyboard_mapping_keysyms_length"};
    Bound<decltype(xcb_get_pointer_mapping)> get_pointer_mapping{library, "xcb_get_pointer_mapping"};
    Bound<decltype(xcb_get_pointer_mapping_reply)> get_pointer_mapping_reply{library,
                                                                             "xcb_get_pointer_mapping_reply"};
    Bound<decltype(xcb_get_pointer_mapping_map)> get_pointer_mapping_map{library,
                                                                         "xcb_get_pointer_mapping_map"};
    Bound<decltype(xcb_get_pointer_mapping_map_length)> get_pointer_mapping_map_length{
        library, "xcb_get_pointer_mapping_map_length"};
    Bound<decltype(xcb_set_pointer_mapping)> set_pointer_mapping{library, "xcb_set_pointer_mapping"};
    Bound<decltype(xcb_set_pointer_mapping_reply)> set_pointer_mapping_reply{library,
                                                                             "xcb_set_pointer_mapping_reply"};
};

inline XcbLibrary& xcb() {
    static XcbLibrary functions;
    return functions;
}

}  // namespace tovera
