#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

// The lines of a profile (INI) text in ANSI bytes. They are walked once, and of a line no more is looked at
// than is asked for: a read passes thousands of lines on its way to one entry.
namespace tovera {

/// Blanks round names and values: white space, and the end-of-file mark of DOS.
constexpr bool isProfileBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r') || c == '\x1A';
}

constexpr std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && isProfileBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isProfileBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// The first carriage return or line feed from `p` on, else `end`.
inline const char* lineEndFrom(const char* p, const char* end) {
    if constexpr (std::endian::native == std::endian::little) {
        constexpr std::uint64_t ones = 0x0101010101010101U;
        // The lowest set bit is the top bit of the first byte that is zero.
        constexpr auto zeroBytes = [](std::uint64_t v) { return (v - ones) & ~v & (ones << 7); };
        for (std::uint64_t bytes = 0; end - p >= 8; p += 8) {
            std::memcpy(&bytes, p, sizeof bytes);
            const auto hits = zeroBytes(bytes ^ (ones * '\n')) | zeroBytes(bytes ^ (ones * '\r'));
            if (hits != 0) return p + std::countr_zero(hits) / 8;
        }
    }
    while (p != end && *p != '\n' && *p != '\r') ++p;
    return p;
}

/// The name of a section or key that is looked for, without regard to case and to blanks at its ends.
class SoughtName {
  public:
    explicit SoughtName(std::string_view name);

    bool empty() const { return capitals_.empty(); }
    bool matches(std::string_view name) const {
        return name.size() == capitals_.size() && begins(name.data(), name.data() + name.size());
    }
    /// Whether the characters from `p` on begin with this name.
    bool begins(const char* p, const char* end) const {
        if (static_cast<std::size_t>(end - p) < capitals_.size()) return false;
        for (const char c : capitals_) {
            if (table_[static_cast<std::uint8_t>(*p++)] != c) return false;
        }
        return true;
    }
    std::size_t size() const { return capitals_.size(); }
    /// A key with an equals sign is nowhere: the first one of a line ends the key.
    bool canBeKey() const { return canBeKey_; }

  private:
    const std::array<char, 256>& table_;
    std::string capitals_;
    bool canBeKey_;
};

/// One line: an entry, a header, a comment, or nothing but blanks.
class ProfileLine {
  public:
    ProfileLine(const char* start, const char* first, const char* end, const char* next)
        : start_(start), first_(first), end_(end), next_(next) {}

    const char* start() const { return start_; }
    const char* next() const { return next_; }
    std::string_view lineEnd() const { return {end_, next_}; }
    std::string_view content() const { return withoutBlanks({first_, end_}); }
    bool isBlank() const { return first_ == end_; }

    /// The section that begins here: what stands between the first bracket and the last closing one.
    std::optional<std::string_view> header() const {
        if (isBlank() || *first_ != '[') return {};
        const std::string_view line(first_, end_);
        const auto close = line.rfind(']');
        if (close == std::string_view::npos) return {};
        return withoutBlanks(line.substr(1, close - 1));
    }

    bool isEntry(const SoughtName& key) const {
        if (isBlank() || !key.begins(first_, end_)) return false;
        const char* p = first_ + key.size();
        while (p != end_ && isProfileBlank(*p)) ++p;
        return p == end_ || *p == '=';
    }
    std::string_view key() const {
        const auto line = content();
        return withoutBlanks(line.substr(0, line.find('=')));
    }
    /// Nothing for a line without an equals sign.
    std::optional<std::string_view> value() const {
        const auto line = content();
        const auto equals = line.find('=');
        if (equals == std::string_view::npos) return {};
        auto found = line.substr(equals + 1);
        while (!found.empty() && isProfileBlank(found.front())) found.remove_prefix(1);
        return found;
    }

  private:
    const char* start_;
    const char* first_;  ///< behind the blanks that the line begins with
    const char* end_;    ///< in front of the line's end
    const char* next_;
};

/// Walks the lines of a text. A line ends with a line feed, a carriage return, or both.
class ProfileLines {
  public:
    explicit ProfileLines(std::string_view text) : p_(text.data()), end_(text.data() + text.size()) {}

    bool atEnd() const { return p_ == end_; }

    ProfileLine next() {
        const char* const start = p_;
        const char* const lineEnd = lineEndFrom(start, end_);
        const char* first = start;
        while (first != lineEnd && isProfileBlank(*first)) ++first;
        p_ = lineEnd;
        if (p_ != end_ && *p_++ == '\r' && p_ != end_ && *p_ == '\n') ++p_;
        return {start, first, lineEnd, p_};
    }

  private:
    const char* p_;
    const char* end_;
};

}  // namespace tovera
