#include "platform/windows/texts.h"

#include <new>

#include "frame/checked.h"

namespace tovera {

BSTR allocateText(const Bstr& text) {
    if (text.isNull()) return nullptr;
    const auto view = text.view();
    const auto length = narrow<UINT>(view.size());
    BSTR const allocated = SysAllocStringLen(reinterpret_cast<const wchar_t*>(view.data()), length);
    if (!allocated) throw std::bad_alloc();
    return allocated;
}

Bstr textOf(BSTR text) {
    if (!text) return {};
    return std::u16string(reinterpret_cast<const char16_t*>(text), SysStringLen(text));
}

}  // namespace tovera
