#pragma once

#include <concepts>
#include <ostream>
#include <string>
#include <utility>
#include <windows.h>

// What an Automation client needs: owned references, texts and `VARIANT`s.
namespace tovera::client {

template <class T>
class Pointer {
  public:
    Pointer() = default;
    explicit Pointer(T* owned) : pointer_(owned) {}
    Pointer(Pointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    Pointer& operator=(Pointer&& other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~Pointer() { reset(); }

    void reset() {
        if (auto* const last = std::exchange(pointer_, nullptr)) last->Release();
    }
    T** out() {
        reset();
        return &pointer_;
    }
    T* get() const { return pointer_; }
    T* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

    template <class Other>
    Pointer<Other> as(REFIID interfaceId) const {
        void* found = nullptr;
        pointer_->QueryInterface(interfaceId, &found);
        return Pointer<Other>(static_cast<Other*>(found));
    }

  private:
    T* pointer_ = nullptr;
};

class Text {
  public:
    Text() = default;
    explicit Text(const std::wstring& text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    BSTR* address() { return &text_; }
    BSTR* out() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    std::wstring str() const { return {text_ ? text_ : L"", SysStringLen(text_)}; }

  private:
    BSTR text_ = nullptr;
};

std::string utf8(const std::wstring& text);

/// A `VARIANT` that owns what it holds.
class Value {
  public:
    Value() { VariantInit(&variant_); }
    Value(short number) : Value() { set(VT_I2).iVal = number; }
    Value(long number) : Value() { set(VT_I4).lVal = number; }
    Value(int number) : Value(static_cast<long>(number)) {}
    Value(float number) : Value() { set(VT_R4).fltVal = number; }
    Value(double number) : Value() { set(VT_R8).dblVal = number; }
    Value(const std::wstring& text) : Value() {
        set(VT_BSTR).bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    Value(const wchar_t* text) : Value(std::wstring(text)) {}
    Value(const Value& other) : Value() { VariantCopy(&variant_, const_cast<VARIANT*>(&other.variant_)); }
    Value& operator=(const Value& other) {
        VariantCopy(&variant_, const_cast<VARIANT*>(&other.variant_));
        return *this;
    }
    ~Value() { VariantClear(&variant_); }

    static Value truth(bool value) {
        Value made;
        made.set(VT_BOOL).boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
        return made;
    }
    static Value date(DATE value) {
        Value made;
        made.set(VT_DATE).date = value;
        return made;
    }
    static Value missing() {
        Value made;
        made.set(VT_ERROR).scode = DISP_E_PARAMNOTFOUND;
        return made;
    }
    static Value null() {
        Value made;
        made.set(VT_NULL);
        return made;
    }
    /// A reference to a variable of the caller.
    static Value reference(VARTYPE type, void* variable) {
        Value made;
        made.set(static_cast<VARTYPE>(type | VT_BYREF)).byref = variable;
        return made;
    }

    VARTYPE type() const { return variant_.vt; }
    const VARIANT& get() const { return variant_; }
    VARIANT* address() { return &variant_; }
    VARIANT* out() {
        VariantClear(&variant_);
        return &variant_;
    }
    std::wstring text() const { return {variant_.bstrVal, SysStringLen(variant_.bstrVal)}; }

    friend bool operator==(const Value& left, const Value& right);
    friend std::ostream& operator<<(std::ostream& out, const Value& value);

  private:
    VARIANT& set(VARTYPE type) {
        variant_.vt = type;
        return variant_;
    }

    VARIANT variant_;
};

}  // namespace tovera::client
