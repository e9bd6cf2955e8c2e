#pragma once

#include "bench.h"

// What users would take instead of ours. Each is defined in a file of its own, which is compiled when its
// library is found and puts its loop here; without it the address stays null.
namespace bench {

/// ICU's spell-out rules for French: the words of a number as a text.
inline Loop (*icuSpellOut)(double number) = nullptr;

/// QuantLib's calendar of weekends only: business days from one `DATE` to another, both included.
inline Loop (*quantLibBusinessDays)(double start, double end) = nullptr;

/// QuantLib's table of Easter Mondays, and the day before as a date: one year after another.
inline Loop (*quantLibEaster)(int firstYear, int lastYear) = nullptr;

/// A method with two integers, called by its name through Qt's meta-objects.
inline Loop (*qtCallByName)(int departure, int arrival) = nullptr;

/// A C function with two integers, called from C by its name in Lua.
inline Loop (*luaCallByName)(int departure, int arrival) = nullptr;

/// Easter's rule as a function in Lua, called from C by its name: one year after another.
inline Loop (*luaEaster)(int firstYear, int lastYear) = nullptr;

/// A table of paths and values in SQLite: one of so many rows read, or written for good.
inline Loop (*sqliteRead)(int rows) = nullptr;
inline Loop (*sqliteWrite)(int rows) = nullptr;

/// GSettings on its file backend: one text of so many paths, the object made anew for each operation.
inline Loop (*gsettingsRead)(int paths) = nullptr;
inline Loop (*gsettingsWrite)(int paths) = nullptr;

/// An entry of a profile file, all in UTF-8.
struct ProfileEntry {
    std::string path;
    std::string section;
    std::string key;
};

/// GLib's key file: loaded anew, and one entry read, or set and the file replaced and synced.
inline Loop (*glibRead)(ProfileEntry entry) = nullptr;
inline Loop (*glibWrite)(ProfileEntry entry) = nullptr;

/// SimpleIni: loaded anew, and one entry read.
inline Loop (*simpleIniRead)(ProfileEntry entry) = nullptr;

/// GLib: a program started without a wait for it; the user's folder for the desktop, read anew.
inline Loop (*glibSpawn)(std::string program) = nullptr;
inline Loop (*glibSpecialFolder)() = nullptr;

/// Qt's parts of a path, put together again with the extension in capitals.
inline Loop (*qtPathParts)(std::string path) = nullptr;

/// XCB without anything in between: the title of the active window, asked for as we do.
inline Loop (*xcbTitle)() = nullptr;

/// OpenSSL's RC4 over so many bytes; a key file read and a short text signed; both key files of a folder
/// read.
inline Loop (*openSslRc4)(std::size_t size) = nullptr;
inline Loop (*openSslSign)(std::string keyFile) = nullptr;
inline Loop (*openSslRead)(std::string folder) = nullptr;

/// The C library's look-up of a host's name.
inline Loop (*resolverByName)(std::string name) = nullptr;

/// The C library's list of interfaces with their addresses.
inline Loop (*listOfInterfaces)() = nullptr;

/// libcurl: a URL fetched into a file.
inline Loop (*curlDownload)(std::string url, std::string path) = nullptr;

/// The kernel's list of mounts, read as a text.
inline Loop (*mountListRead)() = nullptr;

/// On a connection to the display: the pointer's position; the requests that the states of all keys take.
inline Loop (*xcbPointer)() = nullptr;
inline Loop (*xcbKeys)() = nullptr;

/// GStreamer's `playbin`: a sound file made ready, played, and given up.
inline Loop (*gStreamerPlay)(std::string path) = nullptr;

/// The loop of a peer, or an empty one when it isn't installed.
template <class... Inputs>
Loop loopIfInstalled(Loop (*peer)(Inputs...), Inputs... inputs) {
    return peer ? peer(inputs...) : Loop();
}

/// Puts a peer's loop in its place.
template <class... Inputs>
struct Installed {
    Installed(Loop (*&place)(Inputs...), Loop (*peer)(Inputs...)) { place = peer; }
};

}  // namespace bench
