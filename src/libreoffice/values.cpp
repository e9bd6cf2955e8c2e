#include "libreoffice/values.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <com/sun/star/bridge/oleautomation/Currency.hpp>
#include <com/sun/star/bridge/oleautomation/Date.hpp>
#include <com/sun/star/bridge/oleautomation/Decimal.hpp>
#include <com/sun/star/script/ArrayWrapper.hpp>
#include <com/sun/star/util/DateTime.hpp>
#include <cstddef>

#include "libreoffice/failures.h"

namespace tovera::office {
namespace {

namespace automation = css::bridge::oleautomation;

/// Basic hands a Currency over as the whole number next to it: an amount would lose its hundredths.
constexpr auto withoutDecimals = "Currency arrive sans ses décimales : écrivez CDbl(montant)";

template <class T>
const T& held(const Any& value) {
    return *static_cast<const T*>(value.getValue());
}

tovera_value valueOf(const OUString& text) {
    return tovera_of_text(charactersOf(text), static_cast<std::size_t>(text.getLength()));
}

tovera_value shortOf(sal_Int16 number) {
    auto value = tovera_of_type(TOVERA_I2);
    value.as.i2 = number;
    return value;
}

tovera_value singleOf(float number) {
    auto value = tovera_of_type(TOVERA_R4);
    value.as.r4 = number;
    return value;
}

tovera_value exactOf(sal_uInt64 low, sal_uInt32 high, sal_uInt8 decimals, bool isNegative) {
    auto value = tovera_of_type(TOVERA_EXACT);
    value.as.exact = {low, high, decimals, static_cast<uint8_t>(isNegative ? 1 : 0)};
    return value;
}

tovera_value wholeOf(sal_Int64 number, sal_uInt8 decimals) {
    const auto bits = static_cast<sal_uInt64>(number);
    return exactOf(number < 0 ? 0 - bits : bits, 0, decimals, number < 0);
}

/// Days from 30 December 1899, with the time as their fraction.
double daysOf(const css::util::DateTime& moment) {
    using namespace std::chrono;
    const auto day = sys_days(year(moment.Year) / month(moment.Month) / moment.Day);
    constexpr auto origin = sys_days(year(1899) / December / 30);
    const auto time = hours(moment.Hours) + minutes(moment.Minutes) + seconds(moment.Seconds) +
                      nanoseconds(moment.NanoSeconds);
    const double whole = static_cast<double>((day - origin).count());
    const double part = duration<double, std::chrono::days::period>(time).count();
    return whole < 0 ? whole - part : whole + part;
}

tovera_value structOf(const Any& value) {
    automation::Date date;
    automation::Currency currency;
    automation::Decimal decimal;
    css::util::DateTime moment;
    if (value >>= date) return tovera_of_date(date.Value);
    if (value >>= currency) return wholeOf(currency.Value, 4);
    if (value >>= decimal)
        return exactOf(sal_uInt64{decimal.MiddleValue} << 32 | decimal.LowValue, decimal.HighValue,
                       static_cast<sal_uInt8>(decimal.Scale), decimal.Sign != 0);
    if (value >>= moment) return tovera_of_date(daysOf(moment));
    raise(Number::TypeMismatch);
}

double numberOf(const tovera_value& value) {
    const auto& exact = value.as.exact;
    const double whole = std::ldexp(exact.high, 64) + static_cast<double>(exact.low);
    return (exact.negative ? -whole : whole) / std::pow(10.0, exact.decimals);
}

Sequence<OUString> textsOf(const tovera_array* array, sal_Int32 lower, sal_Int32 upper) {
    Sequence<OUString> texts(upper - lower + 1);
    auto* place = texts.getArray();
    for (auto index = lower; index <= upper; ++index) {
        Value text;
        tovera_array_get(array, index, 0, &text);
        *place++ = textOf(text.as.text.characters, text.as.text.length);
    }
    return texts;
}

/// Basic takes arrays that begin at 0 or at 1; others begin at 0.
Any arrayOf(const tovera_array* array) {
    sal_Int32 lower = 0, upper = -1;
    if (tovera_array_bounds(array, &lower, &upper) != 0) return Any(Sequence<OUString>());
    auto texts = textsOf(array, lower, upper);
    if (lower != 1 || !texts.hasElements()) return Any(texts);
    return Any(css::script::ArrayWrapper(false, Any(texts)));
}

}  // namespace

Given::Given(Objects& objects, const Any& value, uint16_t wanted) : value_(tovera_of_type(TOVERA_EMPTY)) {
    using namespace css::uno;
    switch (value.getValueTypeClass()) {
        case TypeClass_VOID:
            break;
        case TypeClass_BOOLEAN:
            value_ = tovera_of_bool(held<sal_Bool>(value));
            break;
        case TypeClass_BYTE:
            value_ = shortOf(held<sal_Int8>(value));
            break;
        case TypeClass_SHORT:
            value_ = shortOf(held<sal_Int16>(value));
            break;
        case TypeClass_UNSIGNED_SHORT:
            value_ = tovera_of_i4(held<sal_uInt16>(value));
            break;
        case TypeClass_LONG:
        case TypeClass_ENUM:
            value_ = tovera_of_i4(held<sal_Int32>(value));
            break;
        case TypeClass_UNSIGNED_LONG:
            value_ = tovera_of_r8(held<sal_uInt32>(value));
            break;
        case TypeClass_HYPER:
            raise(static_cast<sal_Int32>(Number::TypeMismatch), fromUtf8(withoutDecimals));
        case TypeClass_UNSIGNED_HYPER:
            value_ = exactOf(held<sal_uInt64>(value), 0, 0, false);
            break;
        case TypeClass_FLOAT:
            value_ = singleOf(held<float>(value));
            break;
        case TypeClass_DOUBLE:
            value_ = tovera_of_r8(held<double>(value));
            break;
        case TypeClass_CHAR:
            value_ = tovera_of_text(reinterpret_cast<const char16_t*>(value.getValue()), 1);
            break;
        case TypeClass_STRING:
            value_ = valueOf(held<OUString>(value));
            break;
        case TypeClass_SEQUENCE:
            takeArray(value);
            break;
        case TypeClass_INTERFACE:
            object_ = objects.toComponent(held<Reference<XInterface>>(value));
            value_ = object_ || wanted == TOVERA_OBJECT ? tovera_of_object(object_.get())
                                                        : tovera_of_type(TOVERA_NULL);
            break;
        default:
            value_ = structOf(value);
    }
    before_ = value_;
}

void Given::takeArray(const Any& value) {
    Sequence<OUString> texts;
    Sequence<Any> mixed;
    if (!(value >>= texts) && !(value >>= mixed)) raise(Number::TypeMismatch);
    array_.reset(tovera_array_new());
    const auto count = std::max(texts.getLength(), mixed.getLength());
    if (count > 0 && tovera_array_redim(array_.get(), 0, count - 1) != 0) raise(Number::InvalidArgument);
    for (sal_Int32 i = 0; i < count; ++i) {
        OUString text;
        if (texts.hasElements())
            text = texts[i];
        else if (!mixed[i].hasValue())
            continue;
        else if (!(mixed[i] >>= text))
            raise(Number::TypeMismatch);
        const auto element = valueOf(text);
        tovera_array_set(array_.get(), i, &element);
    }
    value_ = tovera_of_array(array_.get());
}

void Given::handOver(tovera_value& target) {
    target = value_;
    target.owned = object_ || array_;
    static_cast<void>(object_.release());
    static_cast<void>(array_.release());
    value_ = tovera_of_type(TOVERA_EMPTY);
}

bool Given::isChanged() const {
    using Bits = std::array<std::byte, sizeof(tovera_value)>;
    return std::bit_cast<Bits>(value_) != std::bit_cast<Bits>(before_);
}

Any toOffice(Objects& objects, const tovera_value& value) {
    switch (value.type) {
        case TOVERA_NULL:
            return Any(Reference<XInterface>());
        case TOVERA_I2:
            return Any(sal_Int16{value.as.i2});
        case TOVERA_UI1:
            return Any(sal_Int16{value.as.ui1});
        case TOVERA_I4:
        case TOVERA_ERROR:
            return Any(sal_Int32{value.as.i4});
        case TOVERA_R4:
            return Any(value.as.r4);
        case TOVERA_R8:
        case TOVERA_DATE:
            return Any(value.as.r8);
        case TOVERA_BOOL:
            return Any(value.as.i2 != 0);
        case TOVERA_EXACT:
            return Any(numberOf(value));
        case TOVERA_TEXT:
            return Any(textOf(value.as.text.characters, value.as.text.length));
        case TOVERA_UTF8:
            return Any(OUString(value.as.utf8.bytes, static_cast<sal_Int32>(value.as.utf8.length),
                                RTL_TEXTENCODING_UTF8));
        case TOVERA_OBJECT:
            return Any(objects.toOffice(value.as.object));
        case TOVERA_ARRAY:
            return arrayOf(value.as.array);
        case TOVERA_REFERENCE:
        case TOVERA_TYPED_REFERENCE:
            return toOffice(objects, *value.as.reference);
        default:
            return {};
    }
}

void put(Objects& objects, const Any& value, tovera_value& target) {
    tovera_clear(&target);
    if (value.getValueTypeClass() == css::uno::TypeClass_HYPER) {
        target = wholeOf(held<sal_Int64>(value), 0);
        return;
    }
    OUString text;
    const bool isCharacter = value.getValueTypeClass() == css::uno::TypeClass_CHAR;
    if (isCharacter) text = OUString(held<sal_Unicode>(value));
    if (isCharacter || (value >>= text)) {
        tovera_copy_text(&target, charactersOf(text), static_cast<std::size_t>(text.getLength()));
        return;
    }
    Given(objects, value).handOver(target);
}

}  // namespace tovera::office
