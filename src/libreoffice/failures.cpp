#include "libreoffice/failures.h"

#include <algorithm>
#include <array>
#include <com/sun/star/beans/UnknownPropertyException.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/lang/WrappedTargetException.hpp>
#include <com/sun/star/script/BasicErrorException.hpp>
#include <com/sun/star/script/CannotConvertException.hpp>
#include <cppuhelper/exc_hlp.hxx>
#include <rtl/string.hxx>

namespace tovera::office {
namespace {

constexpr auto unknown = static_cast<sal_Int32>(Number::OfAnObject);

/// The error numbers that Basic has in all of its modes. It drops an exception with any other number.
constexpr std::array<sal_Int16, 79> numbersOfBasic{
    3,   5,   6,   7,   9,   10,  11,  13,  14,  18,  20,  28,  35,  48,  49,  51,  52,  53,  54,  55,
    57,  58,  59,  61,  62,  63,  67,  68,  70,  71,  74,  75,  76,  91,  93,  94,  250, 280, 281, 282,
    283, 284, 285, 286, 287, 288, 289, 290, 291, 292, 293, 294, 295, 296, 297, 298, 323, 341, 366, 380,
    382, 394, 420, 423, 424, 425, 430, 438, 440, 445, 446, 447, 448, 449, 450, 451, 452, 453, 460};

bool isOfBasic(sal_Int32 number) {
    return std::ranges::binary_search(numbersOfBasic, number);
}

/// What lies at the bottom of wrapped exceptions.
Any innermost(Any exception) {
    css::lang::WrappedTargetException wrapped;
    while ((exception >>= wrapped) && wrapped.TargetException.hasValue()) {
        const Any inner = wrapped.TargetException;
        exception = inner;
    }
    return exception;
}

sal_Int32 numberOf(const Any& exception) {
    if (exception.isExtractableTo(cppu::UnoType<css::beans::UnknownPropertyException>::get()))
        return static_cast<sal_Int32>(Number::NoSuchMember);
    if (exception.isExtractableTo(cppu::UnoType<css::script::CannotConvertException>::get()))
        return static_cast<sal_Int32>(Number::TypeMismatch);
    if (exception.isExtractableTo(cppu::UnoType<css::lang::IllegalArgumentException>::get()))
        return static_cast<sal_Int32>(Number::InvalidArgument);
    return unknown;
}

sal_Int32 tell(tovera_failure* failure, sal_Int32 number, const OUString& text) {
    const auto description = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
    return tovera_failure_set(failure, number, text.isEmpty() ? nullptr : description.getStr(), nullptr);
}

}  // namespace

void raise(sal_Int32 number, const OUString& text) {
    if (isOfBasic(number)) throw css::script::BasicErrorException(text, {}, number, text);
    const auto named = text + " (" + OUString::number(number) + ")";
    throw css::script::BasicErrorException(named, {}, unknown, named);
}

void raise(Number number) {
    raise(static_cast<sal_Int32>(number), fromUtf8(tovera_description_of(static_cast<int32_t>(number))));
}

void raise(const tovera_failure& failure) {
    raise(failure.number, fromUtf8(failure.description));
}

sal_Int32 tellCurrentException(tovera_failure* failure) noexcept {
    try {
        const auto exception = innermost(cppu::getCaughtException());
        css::script::BasicErrorException ofBasic;
        if (exception >>= ofBasic) return tell(failure, ofBasic.ErrorCode, ofBasic.ErrorMessageArgument);
        css::uno::Exception other;
        exception >>= other;
        return tell(failure, numberOf(exception), other.Message);
    } catch (...) {
        return tovera_failure_set(failure, unknown, nullptr, nullptr);
    }
}

}  // namespace tovera::office
