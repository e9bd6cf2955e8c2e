#include "frame/string_array.h"

#include <algorithm>
#include <iterator>

#include "frame/error.h"

namespace tovera {
namespace {

std::size_t countBetween(I4 lower, I4 upper) {
    const auto count = std::int64_t{upper} - lower + 1;
    if (count < 0) raise(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(count);
}

}  // namespace

StringArray StringArray::withBounds(I4 lower, I4 upper) {
    StringArray array;
    array.redim(lower, upper);
    return array;
}

StringArray StringArray::of(std::vector<Bstr> elements, I4 lower) {
    StringArray array;
    array.elements_ = std::move(elements);
    array.lower_ = lower;
    array.dimensioned_ = true;
    return array;
}

StringArray StringArray::fixed() && {
    fixed_ = true;
    return std::move(*this);
}

I4 StringArray::lowerBound() const {
    if (!dimensioned_) raise(ErrorNumber::SubscriptOutOfRange);
    return lower_;
}

I4 StringArray::upperBound() const {
    return lowerBound() + (static_cast<I4>(elements_.size()) - 1);
}

Bstr& StringArray::at(I4 index) {
    return const_cast<Bstr&>(std::as_const(*this).at(index));
}

const Bstr& StringArray::at(I4 index) const {
    if (!dimensioned_ || index < lowerBound() || index > upperBound())
        raise(ErrorNumber::SubscriptOutOfRange);
    return elements_[static_cast<std::size_t>(index - lower_)];
}

void StringArray::redim(I4 lower, I4 upper) {
    refuseWhenFixed();
    elements_.assign(countBetween(lower, upper), Bstr{});
    lower_ = lower;
    dimensioned_ = true;
}

void StringArray::redimPreserve(I4 lower, I4 upper) {
    refuseWhenFixed();
    const auto count = countBetween(lower, upper);
    if (dimensioned_ && lower > lower_) {
        const auto dropped = std::min<std::int64_t>(std::int64_t{lower} - lower_, std::ssize(elements_));
        elements_.erase(elements_.begin(), elements_.begin() + static_cast<std::ptrdiff_t>(dropped));
    } else if (dimensioned_ && lower < lower_) {
        const auto added = std::min<std::int64_t>(std::int64_t{lower_} - lower, std::int64_t(count));
        elements_.insert(elements_.begin(), static_cast<std::size_t>(added), Bstr{});
    }
    elements_.resize(count);
    lower_ = lower;
    dimensioned_ = true;
}

void StringArray::refuseWhenFixed() const {
    if (fixed_) raise(ErrorNumber::ArrayFixed);
}

}  // namespace tovera
