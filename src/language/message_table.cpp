#include "language/message_table.h"

#include "frame/checked.h"
#include "language/language_entry.h"

namespace tovera {
namespace {

constexpr std::u16string_view section = u"MSG";

Bstr keyOf(Platform& platform, I2 number) {
    return join(section, Conversions(platform.services).to<Bstr>(Variant(number)));
}

}  // namespace

void saveMessages(Platform& platform, StringArray& messages, Bstr& file) {
    FailuresIgnored step;
    createMissingFolder(step, platform.services, file);
    I4 upperBound = 0;
    step([&] { upperBound = messages.upperBound(); });
    I2 counter = 0;
    for (I4 pass = 0; pass < upperBound; ++pass) {
        step([&] { counter = checkedAdd<I2>(counter, 1); });
        step([&] {
            writeLanguageEntry(platform, section, keyOf(platform, counter), messages.at(counter), file);
        });
    }
}

Bstr loadMessage(Platform& platform, const Bstr& file, I2 number) {
    return LireEntreeLangue(platform, file, section, keyOf(platform, number), u"");
}

void loadMessages(Platform& platform, const Bstr& file, StringArray& messages) {
    I2 counter = 0;
    while (true) {
        counter = checkedAdd<I2>(counter, 1);
        messages.redimPreserve(1, counter);
        auto text = loadMessage(platform, file, counter);
        if (text.empty()) return;
        messages.at(counter) = std::move(text);
    }
}

}  // namespace tovera
