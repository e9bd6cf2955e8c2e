#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "platform/profile_values.h"

// The lines of a profile (INI) text in ANSI bytes. They are walked once, and of a line no more is looked at
// than is asked for: a read passes thousands of lines on its way to one entry.
namespace tovera {

/// The first carriage return or line feed from `p` on, else `end`.
inline const char* lineEndFrom(const char* p, const char* end) {
#ifdef __SSE2__
    const auto lineFeeds = _mm_set1_epi8('\n');
    const auto carriageReturns = _mm_set1_epi8('\r');
    for (; end - p >= 16; p += 16) {
        const auto bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const auto hits =
            _mm_or_si128(_mm_cmpeq_epi8(bytes, lineFeeds), _mm_cmpeq_epi8(bytes, carriageReturns));
        const auto places = static_cast<unsigned>(_mm_movemask_epi8(hits));
        if (places != 0) return p + std::countr_zero(places);
    }
#endif
    while (p != end && *p != '\n' && *p != '\r') ++p;
    return p;
}

/// The name of a section or key that is looked for, without regard to case and to blanks at its ends.
class SoughtName {
  public:
    explicit SoughtName(std::string_view name);

    bool empty() const { return capitals_.empty(); }
    const std::string& capitals() const& { return capitals_; }
    std::string capitals() && { return std::move(capitals_); }
    bool matches(std::string_view name) const {
        return name.size() == capitals_.size() && begins(name.data(), name.data() + name.size());
    }
    /// Whether the characters from `p` on begin with this name. Names that are alike mostly differ at their
    /// ends, so that it is compared from there.
    bool begins(const char* p, const char* end) const {
        auto place = capitals_.size();
        if (static_cast<std::size_t>(end - p) < place) return false;
        while (place-- > 0) {
            if (table_[static_cast<std::uint8_t>(p[place])] != capitals_[place]) return false;
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
