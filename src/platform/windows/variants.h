#pragma once

#include "frame/variant.h"
#include "platform/windows/system.h"

namespace tovera {

/// A `VARIANT` that frees what it holds. One that holds a plain number costs no call of the system.
class SystemVariant {
  public:
    SystemVariant() = default;
    /// Keeps the value's tag; a null text stays null.
    explicit SystemVariant(const Variant& value);
    SystemVariant(SystemVariant&& other) noexcept : variant_(other.release()) {}
    SystemVariant& operator=(SystemVariant&& other) noexcept;
    ~SystemVariant() { clear(); }

    VARIANT& get() { return variant_; }
    const VARIANT& get() const { return variant_; }
    VARIANT release();

    /// The same value with another tag; error 13 when it has none there, 6 when it is out of range.
    SystemVariant as(VARTYPE tag) const { return changed(variant_, tag); }
    static SystemVariant changed(const VARIANT& variant, VARTYPE tag);

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
