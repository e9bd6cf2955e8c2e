#pragma once

#include <initializer_list>
#include <ostream>
#include <string>
#include <windows.h>
#include <wrl/client.h>

// What an Automation client needs: owned references, texts and `VARIANT`s.
namespace tovera::client {

template <class T>
struct Pointer : Microsoft::WRL::ComPtr<T> {
    T* get() const { return this->Get(); }
    /// Where a call stores the reference that it hands over.
    T** out() { return this->ReleaseAndGetAddressOf(); }
    void** outAny() { return reinterpret_cast<void**>(out()); }

    template <class Other>
    Pointer<Other> as(REFIID interfaceId) const {
        Pointer<Other> other;
        get()->QueryInterface(interfaceId, other.outAny());
        return other;
    }
};

std::string utf8(const std::wstring& text);

/// A `VARIANT` that owns what it holds.
class Value {
  public:
    Value() { VariantInit(&variant_); }
    Value(short number) : Value(VT_I2) { variant_.iVal = number; }
    Value(int number) : Value(VT_I4) { variant_.lVal = number; }
    Value(float number) : Value(VT_R4) { variant_.fltVal = number; }
    Value(double number) : Value(VT_R8) { variant_.dblVal = number; }
    Value(const std::wstring& text) : Value(VT_BSTR) {
        variant_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    Value(const wchar_t* text) : Value(std::wstring(text)) {}
    Value(const Value& other) : Value() { *this = other; }
    Value& operator=(const Value& other) {
        VariantCopy(&variant_, const_cast<VARIANT*>(&other.variant_));
        return *this;
    }
    ~Value() { VariantClear(&variant_); }

    /// The default of a type, with every bit 0.
    static Value of(VARTYPE type) { return Value(static_cast<VARENUM>(type)); }
    static Value truth(bool value) { return Value(short(value ? -1 : 0)).tagged(VT_BOOL); }
    static Value date(DATE value) { return Value(value).tagged(VT_DATE); }
    static Value missing() { return Value(static_cast<int>(DISP_E_PARAMNOTFOUND)).tagged(VT_ERROR); }
    static Value object(IDispatch* held) {
        auto made = of(VT_DISPATCH);
        made.variant_.pdispVal = held;
        held->AddRef();
        return made;
    }
    /// An array with bounds 1 to the number of texts.
    static Value texts(std::initializer_list<std::wstring> texts);
    /// A reference to a variable of the caller.
    static Value reference(VARTYPE type, void* variable) {
        auto made = of(static_cast<VARTYPE>(type | VT_BYREF));
        made.variant_.byref = variable;
        return made;
    }
    /// A reference to what it holds, which must be of this type, or to itself as a `VARIANT`.
    Value referred(VARTYPE type) {
        return reference(type, type == VT_VARIANT ? static_cast<void*>(&variant_) : &variant_.byref);
    }
    VARTYPE type() const { return variant_.vt; }
    const VARIANT& get() const { return variant_; }
    VARIANT* address() { return &variant_; }
    VARIANT* out() {
        VariantClear(&variant_);
        return &variant_;
    }
    /// The variable of a value that is a text, and what it holds; also where a call stores one that it makes.
    BSTR* textAddress() { return &variant_.bstrVal; }
    BSTR* textOut() { return &(*out() = Value(VT_BSTR).variant_).bstrVal; }
    std::wstring text() const {
        return {variant_.bstrVal ? variant_.bstrVal : L"", SysStringLen(variant_.bstrVal)};
    }
    /// Any value as a text, as far as it can be one.
    std::wstring shown() const {
        Value changed;
        VariantChangeType(&changed.variant_, const_cast<VARIANT*>(&variant_), 0, VT_BSTR);
        return changed.text();
    }

    friend bool operator==(const Value& left, const Value& right) {
        return left.type() == right.type() && left.shown() == right.shown();
    }
    friend std::ostream& operator<<(std::ostream& out, const Value& value) {
        return out << "type " << value.type() << " " << utf8(value.shown());
    }

  private:
    explicit Value(VARENUM type) : variant_{} { variant_.vt = static_cast<VARTYPE>(type); }
    Value tagged(VARTYPE type) && {
        variant_.vt = type;
        return *this;
    }

    VARIANT variant_;
};

}  // namespace tovera::client
