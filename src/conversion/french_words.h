#pragma once

#include "frame/bstr.h"
#include "frame/values.h"

namespace tovera {

/// The currency labels of an amount, in the singular.
struct CurrencyLabels {
    std::u16string_view main;
    std::u16string_view small;
};

/// A number in French words: a plain number without labels, an amount of money with them.
Bstr frenchWords(R8 number, const CurrencyLabels* labels);

}  // namespace tovera
