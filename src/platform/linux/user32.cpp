#include "platform/linux/user32.h"

#include <algorithm>

#include "platform/linux/code_pages.h"

namespace tovera {

I4 LinuxUser32::OemToCharA(const AnsiText& source, AnsiText& target) {
    if (source.isNull || target.isNull) return 0;
    const auto text = source.terminated();
    const auto count = std::min(text.size(), target.bytes.size());
    std::ranges::transform(text.substr(0, count), target.bytes.begin(), oemToAnsi);
    if (count < target.bytes.size()) target.bytes[count] = '\0';
    return 1;
}

}  // namespace tovera
