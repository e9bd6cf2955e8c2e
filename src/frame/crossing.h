#pragma once

#include <string>
#include <utility>

#include "frame/services.h"

namespace tovera {

/// A text as a platform "A" entry point sees it: ANSI bytes, or a null address. An entry point may write
/// into it but never beyond its length.
struct AnsiText {
    std::string bytes;
    bool isNull = false;

    /// The text up to its first NUL, as an entry point reads a terminated string.
    std::string_view terminated() const { return std::string_view(bytes).substr(0, bytes.find('\0')); }
    const char* addressOrNull() const { return isNull ? nullptr : bytes.c_str(); }
    char* addressOrNull() { return isNull ? nullptr : bytes.data(); }
};

/// The crossing of texts to "A" entry points: a temporary ANSI copy goes to the entry point, and after the
/// call a text passed by reference takes the copy back, at full length. A text that is `const` goes by value
/// and stays.
class StringCrossing {
  public:
    explicit StringCrossing(Services& services) : services_(services) {}

    /// Calls the entry point with one `AnsiText&` for each text, in their order.
    template <class EntryPoint, class... Texts>
    auto call(EntryPoint&& entryPoint, Texts&... texts) const {
        return [&](Temporary<Texts>... temporaries) {
            const auto status = entryPoint(temporaries.ansi...);
            (temporaries.takeBack(), ...);
            return status;
        }(Temporary<Texts>(services_, texts)...);
    }

  private:
    template <class Text>
    struct Temporary {
        Services& services;
        Text& text;
        AnsiText ansi;

        Temporary(Services& crossing, Text& source) : services(crossing), text(source) {
            ansi.isNull = source.isNull();
            ansi.bytes = services.toAnsi(source.view());
        }
        void takeBack() {
            if constexpr (!std::is_const_v<Text>) {
                if (!ansi.isNull) text = Bstr(services.fromAnsi(ansi.bytes));
            }
        }
    };

    Services& services_;
};

}  // namespace tovera
