#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace tovera {

/// Automation text: UTF-16 code units, NUL included, with a null state that reads as the empty text
/// everywhere but at a platform entry point, which gets a null address for it. Short texts, as most names and
/// values are, lie in the object itself.
class Bstr {
  public:
    // Not defaulted: `Bstr{}` would clear the place of short texts before each use.
    Bstr() noexcept {}  // NOLINT(modernize-use-equals-default)
    Bstr(std::u16string_view text) { text.copy(makePlace(text.size()), text.size()); }
    Bstr(const std::u16string& text) : Bstr(std::u16string_view(text)) {}
    Bstr(const char16_t* text) : Bstr(std::u16string_view(text)) {}

    Bstr(const Bstr& other) : Bstr(other.view()) { null_ = other.null_; }
    Bstr(Bstr&& other) noexcept { takeFrom(other); }
    Bstr& operator=(const Bstr& other) { return *this = Bstr(other); }
    Bstr& operator=(Bstr&& other) noexcept {
        if (this != &other) takeFrom(other);
        return *this;
    }
    ~Bstr() = default;

    /// Length up to which a text needs no memory of its own.
    static constexpr std::size_t shortLength = 24;

    /// A text that `write` puts down at the address that it gets, where there is room for this many
    /// characters. It returns the end of the text.
    template <class Write>
    static Bstr written(std::size_t room, Write write) {
        Bstr text;
        auto* const place = text.makePlace(room);
        text.length_ = static_cast<std::uint32_t>(write(place) - place);
        return text;
    }

    bool isNull() const { return null_; }
    bool empty() const { return length_ == 0; }
    std::size_t length() const { return length_; }
    char16_t operator[](std::size_t index) const { return view()[index]; }
    std::u16string_view view() const { return {long_ ? long_.get() : short_.data(), length_}; }
    operator std::u16string_view() const { return view(); }

    friend bool operator==(const Bstr& a, const Bstr& b) { return a.view() == b.view(); }

  private:
    void takeFrom(Bstr& other) {
        long_ = std::move(other.long_);
        length_ = std::exchange(other.length_, 0);
        null_ = std::exchange(other.null_, true);
        if (length_ > 0 && length_ <= shortLength) short_ = other.short_;
    }

    char16_t* makePlace(std::size_t length) {
        if (!std::in_range<std::uint32_t>(length)) throw std::length_error("Bstr");
        length_ = static_cast<std::uint32_t>(length);
        null_ = false;
        if (length <= shortLength) return short_.data();
        long_.reset(static_cast<char16_t*>(std::malloc(length * sizeof(char16_t))));
        if (!long_) throw std::bad_alloc();
        return long_.get();
    }

    /// From `malloc` itself: the calls that `new` puts in front of it are a tenth of what a number in words
    /// takes.
    struct Free {
        void operator()(char16_t* text) const { std::free(text); }
    };
    std::unique_ptr<char16_t, Free> long_;
    std::uint32_t length_ = 0;
    bool null_ = true;
    /// Not set beyond the length: an empty text costs nothing to make.
    std::array<char16_t, shortLength> short_;
};

/// The first characters of a text, or all of it when it is shorter.
constexpr std::u16string_view left(std::u16string_view text, std::size_t count) {
    return text.substr(0, count);
}

/// The last characters of a text, or all of it when it is shorter.
constexpr std::u16string_view right(std::u16string_view text, std::size_t count) {
    return count >= text.size() ? text : text.substr(text.size() - count);
}

/// The text without the blanks (U+0020 only) at both ends.
constexpr std::u16string_view trimBlanks(std::u16string_view text) {
    const auto first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

/// The text up to its first NUL, or all of it.
constexpr std::u16string_view beforeNul(std::u16string_view text) {
    return text.substr(0, text.find(u'\0'));
}

/// Joins texts into one, with one allocation.
template <class... Pieces>
Bstr join(const Pieces&... pieces) {
    return Bstr::written((std::u16string_view(pieces).size() + ...), [&](char16_t* end) {
        ((end += std::u16string_view(pieces).copy(end, std::u16string_view::npos)), ...);
        return end;
    });
}

/// Local text of exactly N characters: a shorter text is padded on the right with blanks, a longer one cut.
template <std::size_t N>
class FixedText {
  public:
    explicit FixedText(char16_t fill = u' ') : text_(std::u16string(N, fill)) {}

    FixedText& operator=(std::u16string_view text) {
        text_ = Bstr::written(N, [&](char16_t* place) {
            return std::fill_n(place + text.copy(place, N), N - std::min(N, text.size()), u' ');
        });
        return *this;
    }

    /// For a platform entry point that fills the buffer.
    Bstr& buffer() { return text_; }
    std::u16string_view view() const { return text_; }
    static constexpr std::size_t size() { return N; }

  private:
    Bstr text_;
};

}  // namespace tovera
