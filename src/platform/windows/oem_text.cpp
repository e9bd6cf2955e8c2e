#include "platform/oem_text.h"

#include <algorithm>

#include "platform/windows/entry_point.h"

namespace tovera {
namespace {

class WindowsOemText : public OemText {
    I4 OemToCharA(const AnsiText& source, AnsiText& target) override {
        if (source.isNull || target.isNull) return callEntryPoint<&::OemToCharA>(user32, source, target);
        // The system writes as much as there is in source, whatever the target holds.
        std::string converted(source.bytes.size() + 1, '\0');
        const I4 status = callEntryPoint<&::OemToCharA>(user32, source, converted.data());
        const auto length = std::min(source.terminated().size() + 1, target.bytes.size());
        std::copy_n(converted.begin(), length, target.bytes.begin());
        return status;
    }
};

}  // namespace

OemText& homeOemText() {
    static WindowsOemText port;
    return port;
}

}  // namespace tovera
