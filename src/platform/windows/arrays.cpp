#include "platform/windows/arrays.h"

#include <algorithm>
#include <new>
#include <span>

#include "frame/checked.h"
#include "platform/windows/texts.h"

namespace tovera {
namespace {

template <class Element>
std::span<Element> elementsOf(SAFEARRAY& array) {
    return {static_cast<Element*>(array.pvData), array.rgsabound[0].cElements};
}

Bstr elementText(BSTR element) {
    return textOf(element);
}

Bstr elementText(const VARIANT& element) {
    if (element.vt == VT_EMPTY) return {};
    if (element.vt != VT_BSTR) raise(ErrorNumber::TypeMismatch);
    return textOf(element.bstrVal);
}

template <class Element>
std::vector<Bstr> textsOf(SAFEARRAY& array) {
    std::vector<Bstr> texts;
    texts.reserve(array.rgsabound[0].cElements);
    for (const auto& element : elementsOf<Element>(array)) texts.push_back(elementText(element));
    return texts;
}

void fill(SAFEARRAY& array, const StringArray& source, VARTYPE elements) {
    for (std::size_t i = 0; const auto& text : source.elements()) {
        if (elements == VT_BSTR) {
            elementsOf<BSTR>(array)[i++] = allocateText(text);
        } else {
            auto& element = elementsOf<VARIANT>(array)[i++];
            element.bstrVal = allocateText(text);
            element.vt = VT_BSTR;
        }
    }
}

/// What callers say of an array may not be what it is, so it is asked itself. One that doesn't know its type
/// has nothing yet that could be of another.
bool holds(SAFEARRAY& array, VARTYPE elements) {
    VARTYPE own = VT_EMPTY;
    return SUCCEEDED(SafeArrayGetVartype(&array, &own)) ? own == elements : !array.pvData;
}

}  // namespace

StringArray arrayOf(SAFEARRAY* array, VARTYPE elements) {
    if (elements != VT_BSTR && elements != VT_VARIANT) raise(ErrorNumber::TypeMismatch);
    if (array && !holds(*array, elements)) raise(ErrorNumber::TypeMismatch);
    if (!array || !array->pvData) return {};
    if (array->cDims != 1) raise(ErrorNumber::TypeMismatch);
    auto texts = elements == VT_BSTR ? textsOf<BSTR>(*array) : textsOf<VARIANT>(*array);
    auto converted = StringArray::of(std::move(texts), array->rgsabound[0].lLbound);
    const bool isFixed = (array->fFeatures & (FADF_FIXEDSIZE | FADF_STATIC | FADF_AUTO | FADF_EMBEDDED)) != 0;
    return isFixed ? std::move(converted).fixed() : converted;
}

SAFEARRAY* makeArray(const StringArray& array, VARTYPE elements) {
    if (!array.isDimensioned()) return nullptr;
    SAFEARRAYBOUND bound{narrow<ULONG>(array.elements().size()), array.lowerBound()};
    SAFEARRAY* const made = SafeArrayCreate(elements, 1, &bound);
    if (!made) throw std::bad_alloc();
    try {
        fill(*made, array, elements);
    } catch (...) {
        SafeArrayDestroy(made);
        throw;
    }
    return made;
}

bool sameBounds(const SAFEARRAY& a, const SAFEARRAY& b) {
    return a.pvData && b.pvData && a.cDims == b.cDims && a.cbElements == b.cbElements &&
           a.rgsabound[0].cElements == b.rgsabound[0].cElements &&
           a.rgsabound[0].lLbound == b.rgsabound[0].lLbound;
}

void swapElements(SAFEARRAY& a, SAFEARRAY& b) noexcept {
    auto* const first = static_cast<std::byte*>(a.pvData);
    const auto bytes = std::size_t{a.rgsabound[0].cElements} * a.cbElements;
    std::swap_ranges(first, first + bytes, static_cast<std::byte*>(b.pvData));
}

}  // namespace tovera
