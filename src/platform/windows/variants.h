#pragma once

#include "frame/variant.h"
#include "platform/windows/system.h"

// Values of the frame and of the system: each conversion keeps the tag, and a null text stays null.
namespace tovera {

/// A text of the system's allocator, with a null address for a null one.
BSTR allocateText(const Bstr& text);
Bstr textOf(BSTR text);

/// How many references may stand behind each other; there are chains that bite their own tail.
inline constexpr int longestChain = 16;

/// The value in a `VARIANT`, or behind it when it refers to a variable. A type that the frame hasn't got
/// comes as the number that holds it. One that is no number and a reference that leads nowhere raise
/// error 13.
Variant valueOf(const VARIANT& variant, int chain = longestChain);

/// A `VARIANT` that frees what it holds. One that holds a plain number costs no call of the system.
class SystemVariant {
  public:
    SystemVariant() = default;
    explicit SystemVariant(const Variant& value);
    SystemVariant(SystemVariant&& other) noexcept : variant_(other.release()) {}
    SystemVariant& operator=(SystemVariant&& other) noexcept;
    ~SystemVariant() { clear(); }

    VARIANT& get() { return variant_; }
    const VARIANT& get() const { return variant_; }
    VARIANT release();

    /// The same value with another tag; error 13 when it has none there, 6 when it is out of range.
    SystemVariant as(VARTYPE tag) const;

  private:
    void clear() {
        const bool isPlain = variant_.vt < VT_BSTR;
        if (!isPlain) VariantClear(&variant_);
    }

    VARIANT variant_{};
};

/// The bytes of a value with this tag, 0 for a tag that isn't a plain value's.
std::size_t sizeOf(VARTYPE tag);

/// Where a `VARIANT` keeps a value with this tag: a decimal from its first byte on.
void* placeOf(VARIANT& variant, VARTYPE tag);

}  // namespace tovera
