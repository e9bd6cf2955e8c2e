#pragma once

#include <array>
#include <com/sun/star/uno/Any.hxx>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/Sequence.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <rtl/ustring.hxx>

#include "c_interface/tovera.h"

// The office's own types under short names, and what joins them with those of the C interface.
namespace css = com::sun::star;

namespace tovera::office {

using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY;
using css::uno::XInterface;
using rtl::OUString;
using Context = Reference<css::uno::XComponentContext>;

/// The error numbers that this side raises or tells by itself.
enum class Number : sal_Int32 {
    InvalidArgument = 5,
    TypeMismatch = 13,
    NoSuchMember = 438,
    OfAnObject = 440,
    WrongArgumentCount = 450,
    NotACollection = 451,
};

/// Characters of 16 bits, which the office has as numbers.
inline const char16_t* charactersOf(const OUString& text) {
    return reinterpret_cast<const char16_t*>(text.getStr());
}
inline OUString textOf(const char16_t* characters, std::size_t length) {
    if (!characters) return {};
    return {reinterpret_cast<const sal_Unicode*>(characters), static_cast<sal_Int32>(length)};
}

template <class T, class... More>
Sequence<T> listOf(const T& first, const More&... more) {
    const std::array<T, sizeof...(more) + 1> elements{first, more...};
    return Sequence<T>(elements.data(), static_cast<sal_Int32>(elements.size()));
}

inline OUString fromUtf8(const char* text) {
    return text ? OUString(text, static_cast<sal_Int32>(std::char_traits<char>::length(text)),
                           RTL_TEXTENCODING_UTF8)
                : OUString();
}

}  // namespace tovera::office
