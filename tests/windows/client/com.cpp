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

bool operator==(const Value& left, const Value& right) {
    if (left.type() != right.type()) return false;
    const auto& l = left.variant_;
    const auto& r = right.variant_;
    switch (left.type()) {
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
    out << "type " << value.type() << " ";
    switch (value.type()) {
        case VT_I2:
        case VT_BOOL:
            return out << value.variant_.iVal;
        case VT_R4:
            return out << value.variant_.fltVal;
        case VT_R8:
        case VT_DATE:
            return out << value.variant_.dblVal;
        case VT_BSTR:
            return out << utf8(value.text());
        default:
            return out << value.variant_.lVal;
    }
}

}  // namespace tovera::client
