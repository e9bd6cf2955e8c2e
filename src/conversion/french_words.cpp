#include "conversion/french_words.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

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

template <std::size_t N>
Word wordAt(const std::array<Word, N>& table, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= N) raise(ErrorNumber::SubscriptOutOfRange);
    return table[static_cast<std::size_t>(index)];
}

/// The words as they grow, in place: even the longest number stays below 300 characters.
class Words {
  public:
    Words& operator<<(Word word) {
        std::memcpy(&text_[length_], word.data(), word.size() * sizeof(char16_t));
        length_ += word.size();
        return *this;
    }
    Word view() const { return {text_.data(), length_}; }

  private:
    std::array<char16_t, 512> text_;
    std::size_t length_ = 0;
};

/// The words of 0 to 99.
void DizainesEnLettres(Words& words, int v) {
    const int n = v / 10;
    int m = v % 10;
    if (n == 1 || n == 7 || n == 9) m += 10;
    Word joint = n > 1 ? u"-" : u"";
    if (m == 0) joint = u"";
    if (m == 1) joint = n == 8 ? u"-" : u" et ";
    if (m == 11 && n == 7) joint = u" et ";

    if (n == 0) {
        words << wordAt(TabUnites, m);
    } else if (n == 8 && m == 0) {
        words << u"quatre-vingts";
    } else {
        words << wordAt(TabDizaines, n) << joint << wordAt(TabUnites, m);
    }
}

/// The words of one group of three digits.
void CentainesEnLettres(Words& words, int v) {
    const int h = v / 100;
    const int r = v % 100;
    if (h > 1) words << wordAt(TabUnites, h) << (r == 0 ? u" cents" : u" cent ");
    if (h == 1) words << (r == 0 ? u"cent" : u"cent ");
    DizainesEnLettres(words, r);
}

struct Group {
    Word one;
    Word many;
    bool countsOne;  ///< whether the value 1 is said: "un million", but "mille" alone
};

constexpr std::array groups{
    Group{u" milliard ", u" milliards ", true},
    Group{u" million ", u" millions ", true},
    Group{u" mille ", u" mille ", false},
};

/// A whole number as plain decimal digits, 15 significant ones and zeros behind them.
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

int numberOf(std::string_view threeDigits) {
    return (threeDigits[0] - '0') * 100 + (threeDigits[1] - '0') * 10 + (threeDigits[2] - '0');
}

/// The four groups of a whole number, cut from its digits by fixed position.
std::array<int, 4> cutGroups(R8 v) {
    auto digits = plainDigits(v);
    if (digits.size() < 12) digits.insert(0, 12 - digits.size(), '0');
    const std::string_view text = digits;
    return {numberOf(text.substr(0, 3)), numberOf(text.substr(3, 3)), numberOf(text.substr(6, 3)),
            numberOf(text.substr(text.size() - 3))};
}

/// The words of a whole number.
void GroupesEnLettres(Words& words, R8 v) {
    if (v == 0) {
        words << u"zéro";
        return;
    }
    const auto values = cutGroups(v);
    Words joined;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (values[i] == 0) continue;
        if (values[i] != 1 || groups[i].countsOne) CentainesEnLettres(joined, values[i]);
        joined << (values[i] == 1 ? groups[i].one : groups[i].many);
    }
    CentainesEnLettres(joined, values.back());
    words << trimBlanks(joined.view());
}

void EntierEnLettres(Words& words, R8 x) {
    GroupesEnLettres(words, std::floor(x));
}

/// The hundredths of a number, 0 to 100.
UI1 PartieDecimale(R8 x) {
    return roundToInteger<UI1>((x - std::floor(x)) * 100);
}

/// The words of the hundredths, with their label or a closing blank.
struct Decimals {
    Words words;
    Word blank;
    Word label;
    Word plural;
};

Decimals DecimalesEnLettres(R8 x, const CurrencyLabels* labels) {
    Decimals decimals;
    const auto d = PartieDecimale(x);
    if (d == 0) return decimals;
    DizainesEnLettres(decimals.words, d);
    decimals.blank = u" ";
    if (labels) decimals.label = labels->small;
    if (labels && d > 1) decimals.plural = u"s";
    return decimals;
}

}  // namespace

Bstr frenchWords(R8 number, const CurrencyLabels* labels) {
    const Word sign = number < 0 ? u"moins " : u"";
    const R8 x = std::fabs(checkedFloat(number));

    Words whole;
    EntierEnLettres(whole, x);
    const auto decimals = DecimalesEnLettres(x, labels);
    const auto t = std::floor(x);

    const Word label = labels ? labels->main : u"";
    const Word plural = labels && t != 0 && t != 1 ? u"s" : u"";
    const Word joint = decimals.blank.empty() ? u"" : u" et ";
    return join(sign, whole.view(), Word(labels ? u" " : u""), label, plural, joint, decimals.words.view(),
                decimals.blank, decimals.label, decimals.plural);
}

}  // namespace tovera
