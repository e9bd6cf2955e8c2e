#include "frame/conversions.h"

#include "frame/ascii_case.h"
#include "frame/checked.h"
#include "frame/date_time.h"
#include "frame/number_text.h"

namespace tovera {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

[[noreturn]] void mismatch() {
    raise(ErrorNumber::TypeMismatch);
}

/// What an object stands for. One that tells nothing, or another object, stands for no value.
Variant defaultValueOf(const ObjectRef& object) {
    Variant result;
    ErrorRecord failure;
    if (!object) mismatch();
    const auto code = object->invoke(defaultMember, CallKind::Method | CallKind::Read, {}, result, failure);
    if (code != ReturnCode::Success || result.is<ObjectRef>()) mismatch();
    return result;
}

}  // namespace

R8 Conversions::number(const Variant& value) const {
    return std::visit(Overloaded{
                          [](Empty) -> R8 { return 0; },
                          [](Null) -> R8 { raise(ErrorNumber::InvalidNull); },
                          [](VariantBool truth) -> R8 { return truth.raw; },
                          [](Date date) -> R8 { return date.days; },
                          [](const ExactNumber& exact) -> R8 { return nearest(exact); },
                          [this](const Bstr& text) -> R8 {
                              const auto parsed = wholeNumber(text, services_->regionalSettings());
                              if (!parsed) mismatch();
                              return *parsed;
                          },
                          [](const Reference&) -> R8 { mismatch(); },
                          []<class T>(const T& plain) -> R8 {
                              if constexpr (std::is_arithmetic_v<T>) {
                                  return plain;
                              } else {
                                  mismatch();
                              }
                          },
                      },
                      dereferenced(value).value());
}

template <class Integer>
Integer Conversions::integer(const Variant& value) const {
    if (const auto* small = value.as<I2>()) return narrow<Integer>(*small);
    if (const auto* large = value.as<I4>()) return narrow<Integer>(*large);
    return roundToInteger<Integer>(number(value));
}

VariantBool Conversions::truth(const Variant& value) const {
    if (const auto* text = value.as<Bstr>()) {
        if (isWord(text->view(), u"true") || isWord(text->view(), u"vrai")) return True;
        if (isWord(text->view(), u"false") || isWord(text->view(), u"faux")) return False;
    }
    return VariantBool(number(value) != 0);
}

Date Conversions::moment(const Variant& value) const {
    if (const auto* text = value.as<Bstr>()) {
        if (const auto date = parseDate(trimBlanks(*text), services_->regionalSettings())) return *date;
    }
    const Date date{number(value)};
    dayOf(date);
    return date;
}

Bstr Conversions::text(const Variant& value) const {
    const auto separator = [this] { return services_->regionalSettings().decimalSeparator; };
    return std::visit(
        Overloaded{
            [](Empty) -> Bstr { return u""; },
            [](Null) -> Bstr { raise(ErrorNumber::InvalidNull); },
            [](const Bstr& text) { return text; },
            [](VariantBool truth) -> Bstr { return truth ? u"True" : u"False"; },
            [this](Date date) -> Bstr { return dateToText(date, services_->regionalSettings()); },
            [&](R4 number) -> Bstr { return numberToText(number, separator()); },
            [&](R8 number) -> Bstr { return numberToText(number, separator()); },
            [&](const ExactNumber& number) -> Bstr { return numberToText(number, separator()); },
            []<class T>(const T& other) -> Bstr {
                if constexpr (std::is_integral_v<T>) {
                    return numberToText(I4{other});
                } else {
                    mismatch();
                }
            },
        },
        dereferenced(value).value());
}

template <class T>
T Conversions::to(const Variant& value) const {
    if (const auto* exact = value.as<T>()) return *exact;
    if (value.is<Reference>()) return to<T>(dereferenced(value));
    if (const auto* object = value.as<ObjectRef>()) return to<T>(defaultValueOf(*object));
    if constexpr (std::is_integral_v<T>) {
        return integer<T>(value);
    } else if constexpr (std::is_same_v<T, R8>) {
        return number(value);
    } else if constexpr (std::is_same_v<T, R4>) {
        return roundToR4(number(value));
    } else if constexpr (std::is_same_v<T, VariantBool>) {
        return truth(value);
    } else if constexpr (std::is_same_v<T, Date>) {
        return moment(value);
    } else if constexpr (std::is_same_v<T, Bstr>) {
        return text(value);
    } else if constexpr (std::is_same_v<T, StringArray>) {
        // A variable without a value stands for an array that has not been dimensioned yet.
        if (value.is<Empty>()) return {};
        mismatch();
    } else {
        mismatch();
    }
}

template UI1 Conversions::to(const Variant&) const;
template I2 Conversions::to(const Variant&) const;
template I4 Conversions::to(const Variant&) const;
template R4 Conversions::to(const Variant&) const;
template R8 Conversions::to(const Variant&) const;
template VariantBool Conversions::to(const Variant&) const;
template Date Conversions::to(const Variant&) const;
template Bstr Conversions::to(const Variant&) const;
template ObjectRef Conversions::to(const Variant&) const;
template StringArray Conversions::to(const Variant&) const;

void Conversions::store(const Reference& target, const Variant& value) const {
    std::visit(
        [&]<class T>(T* variable) {
            if constexpr (std::is_same_v<T, Variant>) {
                Variant& end = endOfReferences(*variable);
                if (const auto* further = end.as<Reference>()) {
                    store(*further, value);
                } else {
                    end = value;
                }
            } else {
                *variable = to<T>(value);
            }
        },
        target);
}

}  // namespace tovera
