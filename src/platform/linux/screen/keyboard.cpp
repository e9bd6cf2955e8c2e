#include "platform/linux/screen/keyboard.h"

#if __has_include(<xcb/xkb.h>)

#include <mutex>
#include <optional>

#include "platform/linux/screen/virtual_keys.h"
#include "platform/linux/screen/x_display.h"
#include "platform/linux/screen/xcb_extensions.h"

namespace tovera {
namespace {

constexpr UI1 down = 0x80;
constexpr UI1 toggled = 1;

struct LockKey {
    std::size_t key;
    std::string_view indicator;
};

constexpr auto lockKeys = std::to_array<LockKey>({
    {20, "Caps Lock"},
    {144, "Num Lock"},
    {145, "Scroll Lock"},
});

struct ButtonKey {
    UI1 key;
    std::uint16_t mask;
};

constexpr auto buttonKeys = std::to_array<ButtonKey>({
    {1, XCB_BUTTON_MASK_1},
    {2, XCB_BUTTON_MASK_3},
    {4, XCB_BUTTON_MASK_2},
});

using Indicator = XReply<xcb_xkb_get_named_indicator_reply_t>;

bool startIndicators(const XDisplay& display) {
    if (!xcbExtensions().keyboard.isPresent() || !display.hasExtension("XKEYBOARD")) return false;
    const auto answer =
        display.reply(xcbExtensions().use_keyboard_reply,
                      xcbExtensions().use_keyboard(display.connection(), std::uint16_t{1}, std::uint16_t{0}));
    return answer && answer->supported != 0;
}

/// Whether the server and the libraries have the keyboard's extension. A connection asks once.
bool canUseIndicators(const std::shared_ptr<XDisplay>& display) {
    static std::mutex mutex;
    static std::weak_ptr<XDisplay> asked;
    static bool usable = false;
    const std::lock_guard guard(mutex);
    if (asked.lock() != display) {
        usable = startIndicators(*display);
        asked = display;
    }
    return usable;
}

auto askIndicator(XDisplay& display, std::string_view name) {
    return xcbExtensions().named_indicator(
        display.connection(), static_cast<xcb_xkb_device_spec_t>(XCB_XKB_ID_USE_CORE_KBD),
        static_cast<xcb_xkb_led_class_spec_t>(XCB_XKB_LED_CLASS_DFLT_XI_CLASS),
        static_cast<xcb_xkb_id_spec_t>(XCB_XKB_ID_DFLT_XI_ID), display.atom(name));
}

void learnIndicators(XDisplay& display) {
    display.learnAtoms({lockKeys[0].indicator, lockKeys[1].indicator, lockKeys[2].indicator});
}

/// The keys that are down, through the symbols that each bears.
void addKeysDown(const XDisplay& display, const std::uint8_t* isDown, xcb_get_keyboard_mapping_cookie_t asked,
                 std::array<UI1, keyCount>& states) {
    const auto mapping = display.reply(xcb().get_keyboard_mapping_reply, asked);
    if (!mapping) return;
    const auto* const symbols = xcb().get_keyboard_mapping_keysyms(mapping.get());
    const auto count = static_cast<std::size_t>(xcb().get_keyboard_mapping_keysyms_length(mapping.get()));
    const std::size_t width = mapping->keysyms_per_keycode;
    const auto first = xcb().get_setup(display.connection())->min_keycode;
    for (std::size_t place = 0; place < count; ++place) {
        const auto code = first + place / width;
        if ((isDown[code / 8] >> (code % 8) & 1U) != 0)
            forKeysOfSymbol(symbols[place], [&](std::uint8_t key) { states[key] |= down; });
    }
}

}  // namespace

bool readDisplayKeys(std::array<UI1, keyCount>& states) {
    states = {};
    const auto display = XDisplay::open();
    if (!display) return false;
    auto* const connection = display->connection();
    const bool hasIndicators = canUseIndicators(display);
    learnIndicators(*display);

    const auto* const setup = xcb().get_setup(connection);
    const auto keymap = xcb().query_keymap(connection);
    const auto pointer = xcb().query_pointer(connection, display->root());
    const auto codes = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto mapping = xcb().get_keyboard_mapping(connection, setup->min_keycode, codes);
    std::array<std::optional<xcb_xkb_get_named_indicator_cookie_t>, lockKeys.size()> indicators;
    if (hasIndicators)
        for (std::size_t i = 0; i < lockKeys.size(); ++i)
            indicators[i] = askIndicator(*display, lockKeys[i].indicator);

    const auto keys = display->reply(xcb().query_keymap_reply, keymap);
    const auto buttons = display->reply(xcb().query_pointer_reply, pointer);
    constexpr std::array<std::uint8_t, 32> noKeys{};
    addKeysDown(*display, keys ? keys->keys : noKeys.data(), mapping, states);
    for (const auto& row : buttonKeys)
        if (buttons && (buttons->mask & row.mask) != 0) states[row.key] |= down;
    for (std::size_t i = 0; hasIndicators && i < lockKeys.size(); ++i) {
        const Indicator indicator = display->reply(xcbExtensions().named_indicator_reply, *indicators[i]);
        if (indicator && indicator->on != 0) states[lockKeys[i].key] |= toggled;
    }
    return true;
}

bool setLockKey(std::size_t key, bool on) {
    const auto display = XDisplay::open();
    if (!display || !canUseIndicators(display)) return false;
    learnIndicators(*display);
    constexpr auto keyboard = static_cast<xcb_xkb_device_spec_t>(XCB_XKB_ID_USE_CORE_KBD);
    constexpr std::uint8_t no = 0;
    for (const auto& row : lockKeys) {
        if (row.key != key) continue;
        const Indicator indicator =
            display->reply(xcbExtensions().named_indicator_reply, askIndicator(*display, row.indicator));
        if (!indicator || indicator->found == 0) return false;
        const std::uint8_t modifiers = indicator->map_mods;
        const std::uint8_t locked = on ? modifiers : no;
        if (modifiers != 0) {
            xcbExtensions().latch_lock_state(display->connection(), keyboard, modifiers, locked, no, no, no,
                                             no, std::uint16_t{0});
        } else {
            // No key of this keyboard locks anything by this name: the light alone is left.
            xcbExtensions().set_named_indicator(
                display->connection(), keyboard,
                static_cast<xcb_xkb_led_class_spec_t>(XCB_XKB_LED_CLASS_DFLT_XI_CLASS),
                static_cast<xcb_xkb_id_spec_t>(XCB_XKB_ID_DFLT_XI_ID), display->atom(row.indicator),
                std::uint8_t{1}, static_cast<std::uint8_t>(on), no, no, no, no, no, no, no, std::uint16_t{0},
                std::uint32_t{0});
        }
        display->sync();
        return true;
    }
    return false;
}

}  // namespace tovera

#else

namespace tovera {

bool readDisplayKeys(std::array<UI1, keyCount>& states) {
    states = {};
    return false;
}
bool setLockKey(std::size_t, bool) {
    return false;
}

}  // namespace tovera

#endif
