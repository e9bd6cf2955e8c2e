#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/object.h"
#include "frame/regional.h"
#include "frame/values.h"

namespace tovera {

/// The component's own title, on message boxes that are given none.
inline constexpr std::u16string_view componentTitle = u"HoldDLL";

/// Flags of a message box: the buttons and icon of the platform's `uType`.
namespace messageFlags {
inline constexpr I4 plain = 0;         ///< an OK button
inline constexpr I4 stop = 16;         ///< an OK button and the stop icon
inline constexpr I4 information = 64;  ///< an OK button and the information icon
}  // namespace messageFlags

/// Initial state of a launched program's window.
enum class WindowStyle : I2 { NormalFocus = 1, MinimizedFocus = 2 };

/// What the component knows of itself.
struct ComponentFacts {
    Bstr fileName;  ///< the component's own file name, without extension
    Bstr folder;    ///< its folder, without a final backslash
    I4 moduleHandle = 0;
};

/// What the component knows of the screen.
struct ScreenFacts {
    I4 screenWidthTwips = 0;
    I4 screenHeightTwips = 0;
    I4 twipsPerPixelX = 15;
    I4 twipsPerPixelY = 15;
};

/// The services that every class can use. Each home has its own.
struct Services {
    virtual ~Services() = default;

    /// Shows a modal box with an OK button and returns the number of the pressed button when the user has
    /// answered. Calls of the same thread can come in meanwhile.
    virtual I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) = 0;
    I4 messageBox(const Bstr& text, I4 flags = messageFlags::plain) {
        return messageBox(text, flags, componentTitle);
    }

    /// Starts a program without waiting for it and returns its process number. The first word of the command
    /// line names the program. One that can't be started raises error 53 or 5.
    virtual R8 launch(const Bstr& commandLine, WindowStyle style) = 0;

    /// Creates an external object; failure raises error 429.
    virtual ObjectRef createObject(std::u16string_view progId) = 0;

    virtual ComponentFacts facts() = 0;
    virtual ScreenFacts screen() = 0;
    virtual RegionalSettings regionalSettings() = 0;

    /// Text to the machine's ANSI code page and back, code unit for code unit; what has no ANSI form becomes
    /// the code page's default character.
    virtual std::string toAnsi(std::u16string_view text) = 0;
    virtual std::u16string fromAnsi(std::string_view bytes) = 0;

    /// One pass over the events that wait for the calling thread.
    virtual void pumpMessages() = 0;
};

}  // namespace tovera
