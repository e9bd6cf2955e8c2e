#pragma once

#include <concepts>
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

/// The temporary ANSI copy of a text, for the time of one call of an entry point.
class AnsiCopy {
  public:
    AnsiCopy(Services& services, const Bstr& text)
        : services_(services), ansi_{services.toAnsi(text.view()), text.isNull()} {}
    template <std::size_t N>
    AnsiCopy(Services& services, const FixedText<N>& buffer)
        : services_(services), ansi_{services.toAnsi(buffer.view()), false} {}

    AnsiText& text() { return ansi_; }
    /// What has become of the copy goes into the caller's variable, at full length.
    void takeBack(Bstr& text) const {
        if (!ansi_.isNull) text = Bstr(services_.fromAnsi(ansi_.bytes));
    }

  private:
    Services& services_;
    AnsiText ansi_;
};

/// One argument on its way to an entry point. Texts cross as ANSI copies; all else goes as it is.
template <class Parameter, class Argument>
class Crossing {
  public:
    Crossing(Services&, Argument argument) : argument_(std::forward<Argument>(argument)) {}
    Argument pass() { return std::forward<Argument>(argument_); }
    void takeBack() {}

  private:
    Argument argument_;
};

template <class T, class... Kinds>
concept OneOf = (std::same_as<std::remove_cvref_t<T>, Kinds> || ...);

/// A text that is a variable takes the copy back after the call; a `const` or temporary one stays.
template <OneOf<AnsiText> Parameter, class Argument>
requires(!OneOf<Argument, AnsiText, std::nullptr_t>) class Crossing<Parameter, Argument> {
  public:
    Crossing(Services& services, Argument text) : text_(text), copy_(services, text) {}
    AnsiText& pass() { return copy_.text(); }
    void takeBack() {
        if constexpr (std::is_same_v<Argument, Bstr&>) {
            copy_.takeBack(text_);
        } else if constexpr (std::is_lvalue_reference_v<Argument> &&
                             !std::is_const_v<std::remove_reference_t<Argument>>) {
            copy_.takeBack(text_.buffer());
        }
    }

  private:
    std::remove_reference_t<Argument>& text_;
    AnsiCopy copy_;
};

/// No text at all: a null address.
template <OneOf<AnsiText> Parameter, OneOf<std::nullptr_t> Argument>
class Crossing<Parameter, Argument> {
  public:
    Crossing(Services&, Argument) {}
    AnsiText& pass() { return none_; }
    void takeBack() {}

  private:
    AnsiText none_{{}, true};
};

}  // namespace tovera
