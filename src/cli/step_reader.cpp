#include "cli/step_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "frame/ascii_case.h"
#include "frame/date_time.h"
#include "frame/error.h"
#include "frame/number_text.h"
#include "frame/upper_case.h"
#include "frame/utf8.h"

namespace tovera::cli {
namespace {

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool beginsName(char16_t c) {
    return isAsciiLetter(c) || c == u'_' || c >= 0xC0;
}

bool beginsNumber(char16_t c) {
    return isDigit(c) || c == u'.' || c == u'-' || c == u'+';
}

/// The words that are values, in any case of their letters.
struct Word {
    std::u16string_view capitals;
    Variant (*value)();
};

const std::array words{
    Word{u"TRUE", [] { return Variant(True); }},           Word{u"FALSE", [] { return Variant(False); }},
    Word{u"EMPTY", [] { return Variant(Empty{}); }},       Word{u"NULL", [] { return Variant(Null{}); }},
    Word{u"NOTHING", [] { return Variant(ObjectRef{}); }},
};

bool isWord(std::u16string_view name, std::u16string_view capitals) {
    return std::ranges::equal(name, capitals, {}, [](char16_t c) { return upperCase(c); });
}

/// A number with a point, the same in every locale; infinite when it is out of range.
std::optional<R8> plainNumber(std::u16string_view text) {
    try {
        return wholeNumber(text, RegionalSettings{});
    } catch (const AutomationError&) {
        return std::numeric_limits<R8>::infinity();
    }
}

/// A whole number in the smallest integer type that holds it, any other number as `R8`.
Variant smallestNumber(R8 number, bool whole) {
    if (whole && std::in_range<I2>(static_cast<std::int64_t>(number))) return static_cast<I2>(number);
    if (whole && std::in_range<I4>(static_cast<std::int64_t>(number))) return static_cast<I4>(number);
    return number;
}

}  // namespace

void StepReader::skipBlanks() {
    while (!atEnd() && text_[at_] == u' ') ++at_;
}

bool StepReader::take(char16_t c) {
    if (atEnd() || text_[at_] != c) return false;
    ++at_;
    return true;
}

void StepReader::fail(const std::string& what) const {
    throw CommandLineError("character " + std::to_string(at_ + 1) + ": " + what);
}

std::u16string StepReader::takeName() {
    const auto start = at_;
    if (!atEnd() && beginsName(text_[at_])) {
        while (!atEnd() && (beginsName(text_[at_]) || isDigit(text_[at_]))) ++at_;
    }
    return std::u16string(text_.substr(start, at_ - start));
}

std::optional<Variant> StepReader::takeLiteral() {
    if (atEnd()) return {};
    const auto c = text_[at_];
    if (c == u'"') return takeText();
    if (c == u'#') return takeDate();
    if (c == u'[') return takeArray();
    if (beginsNumber(c)) return takeNumber();
    return takeWord();
}

std::optional<Variant> StepReader::takeWord() {
    const auto start = at_;
    const auto name = takeName();
    for (const auto& word : words) {
        if (isWord(name, word.capitals)) return word.value();
    }
    at_ = start;
    return {};
}

Variant StepReader::takeText() {
    const auto start = at_++;
    std::u16string content;
    while (!atEnd()) {
        const auto c = text_[at_++];
        if (c != u'"') {
            content += c;
        } else if (take(u'"')) {
            content += u'"';
        } else {
            return Bstr(content);
        }
    }
    at_ = start;
    fail("a text without its closing quote");
}

Variant StepReader::takeDate() {
    const auto end = text_.find(u'#', at_ + 1);
    if (end == std::u16string_view::npos) fail("a date without its closing #");
    RegionalSettings fixedOrder;
    fixedOrder.dateOrder = DateOrder::YearMonthDay;
    const auto date = parseDate(text_.substr(at_ + 1, end - at_ - 1), fixedOrder);
    if (!date) fail("not a date; write #2002-05-06# or #2002-05-06 12:00:00#");
    at_ = end + 1;
    return *date;
}

Variant StepReader::takeNumber() {
    const auto start = at_;
    const auto skip = [&](auto... characters) {
        while (!atEnd() && (isDigit(text_[at_]) || ((text_[at_] == characters) || ...))) ++at_;
    };
    ++at_;
    skip(u'.');
    if (!atEnd() && (text_[at_] == u'E' || text_[at_] == u'e')) {
        ++at_;
        if (!take(u'-')) take(u'+');
        skip(u'.');
    }
    const auto written = text_.substr(start, at_ - start);
    const auto number = plainNumber(written);
    if (!number || (!atEnd() && beginsName(text_[at_])) || std::isinf(*number)) {
        at_ = start;
        fail(number && std::isinf(*number) ? "a number out of range" : "not a number");
    }
    constexpr R8 exactIntegers = 1e15;
    const bool whole = written.find_first_of(u".eE") == std::u16string_view::npos;
    return smallestNumber(*number, whole && std::fabs(*number) < exactIntegers);
}

I4 StepReader::takeBound() {
    constexpr R8 farthest = 1e9;
    const auto end = std::min(text_.find_first_of(u".]", at_), text_.size());
    const auto bound = plainNumber(text_.substr(at_, end - at_));
    if (!bound || std::fabs(*bound) > farthest) fail("an array begins with its bounds: [1..3]");
    at_ = end;
    return static_cast<I4>(*bound);
}

Variant StepReader::takeArray() {
    take(u'[');
    if (take(u']')) return StringArray();
    const auto lower = takeBound();
    if (!take(u'.') || !take(u'.')) fail("two points stand between the bounds of an array");
    const auto upper = takeBound();
    if (!take(u']')) fail("the bounds of an array end with ]");
    constexpr std::int64_t mostElements = 100'000;
    const auto count = std::int64_t{upper} - lower + 1;
    if (count < 0 || count > mostElements) fail("bounds that no array has");
    std::vector<Bstr> elements;
    for (std::int64_t i = 0; i < count; ++i) {
        skipBlanks();
        if (i > 0 && !take(u',')) fail("an array has as many texts as its bounds say");
        skipBlanks();
        const bool nested = !atEnd() && text_[at_] == u'[';  // not read: it could go on to any depth
        const auto element = nested ? std::nullopt : takeLiteral();
        const bool isNull = element && element->is<Null>();
        if (!isNull && !(element && element->is<Bstr>())) fail("the elements of an array are texts, or Null");
        elements.push_back(isNull ? Bstr() : *element->as<Bstr>());
    }
    return StringArray::of(std::move(elements), lower);
}

ArgumentExpression StepReader::takeArgument() {
    if (auto literal = takeLiteral()) return std::move(*literal);
    const auto place = at_ + 1;
    auto name = takeName();
    if (name.empty()) return std::monostate{};
    skipBlanks();
    if (name == u"form" && take(u'(')) return takeForm();
    if (!take(u'=')) return NameUse{std::move(name), place};
    skipBlanks();
    auto value = takeLiteral();
    if (!value) fail("a value for the variable \"" + toUtf8(name) + "\"");
    return VariableValue{std::move(name), std::move(*value)};
}

FormUse StepReader::takeForm() {
    skipBlanks();
    const auto path = takeLiteral();
    if (!path || !path->is<Bstr>()) fail("the path of a form file, as a text");
    skipBlanks();
    if (!take(u')')) fail("the closing parenthesis of form is missing");
    return {std::u16string(path->as<Bstr>()->view())};
}

}  // namespace tovera::cli
