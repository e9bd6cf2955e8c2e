#include "platform/windows/user32.h"

#include <algorithm>

#include "platform/windows/entry_point.h"

namespace tovera {

I4 WindowsUser32::OemToCharA(const AnsiText& source, AnsiText& target) {
    static constinit EntryPoint<decltype(::OemToCharA)> convert{L"user32", "OemToCharA"};
    if (source.isNull || target.isNull) return convert(source.addressOrNull(), target.addressOrNull());
    // The system writes as much as there is in source, whatever the target holds.
    std::string converted(source.bytes.size() + 1, '\0');
    const I4 status = convert(source.addressOrNull(), converted.data());
    const auto length = std::min(source.terminated().size() + 1, target.bytes.size());
    std::copy_n(converted.begin(), length, target.bytes.begin());
    return status;
}

}  // namespace tovera
