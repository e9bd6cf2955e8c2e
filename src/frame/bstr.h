#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace tovera {

/// Automation text: UTF-16 code units, NUL included, with a null state that reads as the empty text
/// everywhere but at a platform entry point, which gets a null address for it.
class Bstr {
  public:
    Bstr() = default;
    Bstr(std::u16string text) : text_(std::move(text)), null_(false) {}
    Bstr(std::u16string_view text) : text_(text), null_(false) {}
    Bstr(const char16_t* text) : text_(text), null_(false) {}

    bool isNull() const { return null_; }
    bool empty() const { return text_.empty(); }
    std::size_t length() const { return text_.size(); }
    char16_t operator[](std::size_t index) const { return text_[index]; }
    std::u16string_view view() const { return text_; }
    operator std::u16string_view() const { return text_; }

    /// The text itself, for changing it in place; the result isn't null any more.
    std::u16string& edit() {
        null_ = false;
        return text_;
    }

    friend bool operator==(const Bstr& a, const Bstr& b) { return a.text_ == b.text_; }

  private:
    std::u16string text_;
    bool null_ = true;
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
    std::u16string text;
    text.reserve((std::u16string_view(pieces).size() + ...));
    (text.append(std::u16string_view(pieces)), ...);
    return text;
}

/// Local text of exactly N characters: a shorter text is padded on the right with blanks, a longer one cut.
template <std::size_t N>
class FixedText {
  public:
    explicit FixedText(char16_t fill = u' ') : text_(std::u16string(N, fill)) {}

    FixedText& operator=(std::u16string_view text) {
        text_.edit().assign(left(text, N)).resize(N, u' ');
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
