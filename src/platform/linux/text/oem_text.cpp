#include "platform/oem_text.h"

#include <algorithm>

#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

class LinuxOemText : public OemText {
    I4 OemToCharA(const AnsiText& source, AnsiText& target) override {
        if (source.isNull || target.isNull) return 0;
        const auto text = source.terminated();
        const auto count = std::min(text.size(), target.bytes.size());
        std::ranges::transform(text.substr(0, count), target.bytes.begin(), oemToAnsi);
        if (count < target.bytes.size()) target.bytes[count] = '\0';
        return 1;
    }
};

}  // namespace

OemText& homeOemText() {
    static LinuxOemText port;
    return port;
}

}  // namespace tovera
