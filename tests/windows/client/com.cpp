#include "client/com.h"

namespace tovera::client {

std::string utf8(const std::wstring& text) {
    const auto length = static_cast<int>(text.size());
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

}  // namespace tovera::client
