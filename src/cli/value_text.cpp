#include "cli/value_text.h"

#include <array>
#include <cstdio>

#include "frame/date_time.h"
#include "frame/error.h"
#include "frame/number_text.h"
#include "frame/utf8.h"

namespace tovera::cli {
namespace {

std::string text(Empty) {
    return "Empty";
}

std::string text(Null) {
    return "Null";
}

std::string text(R4 number) {
    return toUtf8(numberToText(number));
}

std::string text(R8 number) {
    return toUtf8(numberToText(number));
}

std::string text(const ExactNumber& number) {
    return toUtf8(numberToText(number));
}

std::string text(VariantBool truth) {
    return truth ? "True" : "False";
}

std::string text(ErrorCode error) {
    return "Error " + std::to_string(error.code);
}

std::string text(const Bstr& value) {
    return toUtf8(value);
}

std::string text(const ObjectRef& object) {
    return object ? "Object" : "Nothing";
}

std::string text(Date date) {
    DateParts p{};
    try {
        p = partsOf(date);
    } catch (const AutomationError&) {
        return "date " + text(date.days);
    }
    std::array<char, 64> buffer{};
    const bool midnight = p.hour == 0 && p.minute == 0 && p.second == 0;
    std::snprintf(buffer.data(), buffer.size(), midnight ? "%04d-%02d-%02d" : "%04d-%02d-%02d %02d:%02d:%02d",
                  p.year, p.month, p.day, p.hour, p.minute, p.second);
    return buffer.data();
}

std::string text(const StringArray& array) {
    if (!array.isDimensioned()) return "[]";
    auto result = "[" + std::to_string(array.lowerBound()) + ".." + std::to_string(array.upperBound()) + "]";
    for (const auto& element : array.elements())
        result += (&element == array.elements().data() ? " " : ", ") +
                  (element.isNull() ? "Null" : inQuotes(toUtf8(element)));
    return result;
}

std::string text(const Reference&) {
    return "Nothing";
}

template <std::integral Integer>
std::string text(Integer number) {
    return std::to_string(number);
}

}  // namespace

std::string inQuotes(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) result.append(c == '"' ? 2 : 1, c);
    return result + '"';
}

std::string printed(const Variant& value) {
    return std::visit([](const auto& v) { return text(v); }, dereferenced(value).value());
}

}  // namespace tovera::cli
