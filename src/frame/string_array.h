#pragma once

#include <vector>

#include "frame/bstr.h"
#include "frame/values.h"

namespace tovera {

/// One-dimensional Automation array of texts, `SAFEARRAY(BSTR)`: may never have been dimensioned, and may be
/// of a size that the code that made it has fixed. Operations on it raise error 9 for an index outside its
/// bounds or an array without bounds, and error 10 for a change of bounds that a fixed array refuses.
class StringArray {
  public:
    /// A dynamic array that has not been dimensioned yet.
    StringArray() = default;
    /// A dynamic array with these bounds, both included, and null elements.
    static StringArray withBounds(I4 lower, I4 upper);
    /// A dynamic array that begins at index lower.
    static StringArray of(std::vector<Bstr> elements, I4 lower = 0);
    /// The same array with its bounds fixed for good.
    StringArray fixed() &&;

    bool isDimensioned() const { return dimensioned_; }
    bool isFixed() const { return fixed_; }
    I4 lowerBound() const;
    I4 upperBound() const;

    Bstr& at(I4 index);
    const Bstr& at(I4 index) const;

    /// New bounds with all elements null.
    void redim(I4 lower, I4 upper);
    /// New bounds: the elements within them are kept at their indices, new ones are null.
    void redimPreserve(I4 lower, I4 upper);

    const std::vector<Bstr>& elements() const { return elements_; }
    friend bool operator==(const StringArray&, const StringArray&) = default;

  private:
    void refuseWhenFixed() const;

    std::vector<Bstr> elements_;
    I4 lower_ = 0;
    bool dimensioned_ = false;
    bool fixed_ = false;
};

}  // namespace tovera
