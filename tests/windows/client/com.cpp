#include "client/com.h"

namespace tovera::client {

std::string utf8(const std::wstring& text) {
    const auto length = static_cast<int>(text.size());
    if (length == 0) return {};
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

Value Value::texts(std::initializer_list<std::wstring> texts) {
    auto made = of(VT_ARRAY | VT_BSTR);
    made.variant_.parray = SafeArrayCreateVector(VT_BSTR, 1, static_cast<ULONG>(texts.size()));
    for (long index = 1; const auto& text : texts)
        SafeArrayPutElement(made.variant_.parray, &index, *Value(text).textAddress()), ++index;
    return made;
}

bool operator==(const Value& left, const Value& right) {
    const auto& l = left.variant_;
    const auto& r = right.variant_;
    if (l.vt != r.vt) return false;
    switch (l.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return true;
        case VT_I2:
        case VT_BOOL:
            return l.iVal == r.iVal;
        case VT_R4:
            return l.fltVal == r.fltVal;
        case VT_R8:
        case VT_DATE:
            return l.dblVal == r.dblVal;
        case VT_BSTR:
            return left.text() == right.text();
        default:
            return l.lVal == r.lVal;
    }
}

std::ostream& operator<<(std::ostream& out, const Value& value) {
    Value shown = value;
    shown.become(VT_BSTR);
    return out << "type " << value.type() << " " << (shown.type() == VT_BSTR ? utf8(shown.text()) : "");
}

}  // namespace tovera::client
