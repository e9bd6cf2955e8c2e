#include "conversion/french_words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "frame/checked.h"
#include "frame/number_text.h"
#include "frame/utf8.h"

namespace tovera {
namespace {

using Word = std::u16string_view;

constexpr std::array<Word, 20> TabUnites{
    u"",         u"un",     u"deux",  u"trois",    u"quatre",   u"cinq",     u"six",
    u"sept",     u"huit",   u"neuf",  u"dix",      u"onze",     u"douze",    u"treize",
    u"quatorze", u"quinze", u"seize", u"dix-sept", u"dix-huit", u"dix-neuf",
};

/// Digits 7 and 9 carry the word of 6 and 8: their next ten is counted into the units.
constexpr std::array<Word, 10> TabDizaines{
    u"",          u"",         u"vingt",    u"trente",       u"quarante",
    u"cinquante", u"soixante", u"soixante", u"quatre-vingt", u"quatre-vingt",
};

/// A text in a field of fixed size, which is copied whole: faster than copying just its characters.
template <std::size_t Size>
struct Field {
    std::array<char16_t, Size> text{};
    std::size_t length = 0;

    constexpr Field() = default;
    constexpr Field(std::initializer_list<Word> words) {
        for (const auto word : words) length += word.copy(&text[length], word.size());
    }
    constexpr operator Word() const { return {text.data(), length}; }
};

using ShortField = Field<16>;
using LongField = Field<24>;

constexpr LongField dizainesField(unsigned v) {
    const unsigned n = v / 10;
    unsigned m = v % 10;
    if (n == 1 || n == 7 || n == 9) m += 10;
    Word joint = n > 1 ? u"-" : u"";
    if (m == 0) joint = u"";
    if (m == 1) joint = n == 8 ? u"-" : u" et ";
    if (m == 11 && n == 7) joint = u" et ";

    if (n == 0) return {TabUnites[m]};
    if (n == 8 && m == 0) return {u"quatre-vingts"};
    return {TabDizaines[n], joint, TabUnites[m]};
}

constexpr ShortField centainesField(unsigned h, Word cent, Word cents) {
    return h > 1 ? ShortField{TabUnites[h], cents} : h == 1 ? ShortField{cent} : ShortField{};
}

/// The words of 0 to 99, and of the hundreds alone and before other words.
struct WordTable {
    std::array<LongField, 100> dizaines;
    std::array<ShortField, 10> centaines;
    std::array<ShortField, 10> centainesEt;

    constexpr WordTable() {
        for (unsigned v = 0; v < 100; ++v) dizaines[v] = dizainesField(v);
        for (unsigned h = 0; h < 10; ++h) centaines[h] = centainesField(h, u"cent", u" cents");
        for (unsigned h = 0; h < 10; ++h) centainesEt[h] = centainesField(h, u"cent ", u" cent ");
    }
};
constexpr WordTable table;

/// Writes words one behind the other to where the text stays. It goes from function to function by value, so
/// that the place of the next word never has to wait for memory.
class Words {
  public:
    explicit Words(char16_t* place) : end_(place) {}

    template <std::size_t Size>
    Words& operator<<(const Field<Size>& field) {
        std::char_traits<char16_t>::copy(end_, field.text.data(), field.text.size());
        end_ += field.length;
        return *this;
    }
    Words& operator<<(Word label) {
        end_ += label.copy(end_, label.size());
        return *this;
    }
    char16_t* end() const { return end_; }

    /// Removes the blanks at both ends of the words from a place on.
    void trimFrom(char16_t* place) {
        const Word words(place, static_cast<std::size_t>(end_ - place));
        if (words.ends_with(u' ')) --end_;
        if (words.starts_with(u' ')) end_ = std::copy(place + 1, end_, place);
    }

  private:
    char16_t* end_;
};

/// The words of 0 to 99.
const LongField& DizainesEnLettres(unsigned v) {
    if (v >= table.dizaines.size()) raise(ErrorNumber::SubscriptOutOfRange);
    return table.dizaines[v];
}

/// The words of one group of three digits.
Words CentainesEnLettres(Words words, unsigned v) {
    const unsigned h = v / 100;
    const unsigned r = v % 100;
    if (h > 0) words << (r == 0 ? table.centaines : table.centainesEt)[h];
    if (r > 0) words << DizainesEnLettres(r);
    return words;
}

struct Group {
    ShortField one;
    ShortField many;
    bool countsOne;  ///< whether the value 1 is said: "un million", but "mille" alone
};

constexpr ShortField zero{u"zéro"}, minus{u"moins "}, joint{u" et "};
constexpr Word blank = u" ", plural = u"s";

constexpr Group milliard{{u" milliard "}, {u" milliards "}, true};
constexpr Group million{{u" million "}, {u" millions "}, true};
constexpr Group mille{{u" mille "}, {u" mille "}, false};

/// A whole number from 1E+12 on as plain decimal digits, 15 significant ones and zeros behind them.
std::string plainDigits(R8 v) {
    constexpr R8 exactDigits = 1e15;
    if (v < exactDigits) return std::to_string(static_cast<std::int64_t>(v));
    auto digits = toUtf8(numberToText(v));
    const auto exponent = std::stoul(digits.substr(digits.find('+')));
    digits.resize(digits.find('E'));
    std::erase(digits, '.');
    digits.resize(exponent + 1, '0');
    return digits;
}

/// The digits of a number's whole part by their position among twelve. In a longer number these positions are
/// its first nine digits and its last three.
struct Digits {
    unsigned firstNine;
    unsigned lastThree;
};

Digits cutDigits(R8 v) {
    constexpr R8 moreThanTwelve = 1e12;
    if (v < moreThanTwelve) {
        const auto number = static_cast<std::int64_t>(v);
        return {static_cast<unsigned>(number / 1000), static_cast<unsigned>(number % 1000)};
    }
    const auto digits = plainDigits(std::floor(v));
    const auto value = [](const std::string& part) { return static_cast<unsigned>(std::stoul(part)); };
    return {value(digits.substr(0, 9)), value(digits.substr(digits.size() - 3))};
}

Words groupEnLettres(Words words, unsigned value, const Group& group) {
    if (value == 0) return words;
    if (value > 1 || group.countsOne) words = CentainesEnLettres(words, value);
    return words << (value == 1 ? group.one : group.many);
}

/// The words of a number's whole part.
Words GroupesEnLettres(Words words, R8 v) {
    if (v < 1) return words << zero;
    auto* const first = words.end();
    const auto [firstNine, u] = cutDigits(v);
    if (firstNine != 0) {
        words = groupEnLettres(words, firstNine / 1'000'000, milliard);
        words = groupEnLettres(words, firstNine / 1000 % 1000, million);
        words = groupEnLettres(words, firstNine % 1000, mille);
    }
    words = CentainesEnLettres(words, u);
    words.trimFrom(first);
    return words;
}

/// The hundredths of a number with whole part t, 0 to 100.
UI1 PartieDecimale(R8 x, R8 t) {
    return roundToInteger<UI1>((x - t) * 100);
}

/// The hundredths with their label or a closing blank.
Words DecimalesEnLettres(Words words, UI1 d, const CurrencyLabels* labels) {
    words << DizainesEnLettres(d) << blank;
    if (labels) words << labels->small;
    if (labels && d > 1) words << plural;
    return words;
}

/// Room for the words, and for the fields that are copied whole: an exact one where it can be a short text.
std::size_t roomFor(R8 number, R8 t, UI1 d, const CurrencyLabels* labels) {
    constexpr std::size_t anyWords = 320;
    constexpr std::size_t blankAndPlural = 2;
    const std::size_t mainLabel = labels ? labels->main.size() + blankAndPlural : 0;
    const bool oneField = number == t && d == 0 && t > 0 && t < 100;
    if (oneField) return DizainesEnLettres(static_cast<unsigned>(t)).length + mainLabel;
    return anyWords + mainLabel + (labels ? labels->small.size() : 0);
}

}  // namespace

Bstr frenchWords(R8 number, const CurrencyLabels* labels) {
    const R8 x = std::fabs(checkedFloat(number));
    const R8 t = std::floor(x);
    const auto d = PartieDecimale(x, t);

    return Bstr::written(roomFor(number, t, d, labels), [&](char16_t* place) {
        Words words(place);
        if (number < 0) words << minus;
        words = GroupesEnLettres(words, x);
        if (labels) words << blank << labels->main;
        if (labels && t != 0 && t != 1) words << plural;
        if (d != 0) words = DecimalesEnLettres(words << joint, d, labels);
        return words.end();
    });
}

}  // namespace tovera
