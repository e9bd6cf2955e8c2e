#include <memory>
#include <unicode/rbnf.h>

#include "peers/peers.h"

namespace bench {
namespace {

/// Through ICU's entry for whole numbers, which is its faster one.
Loop spellOut(double number) {
    UErrorCode status = U_ZERO_ERROR;
    auto format =
        std::make_shared<icu::RuleBasedNumberFormat>(icu::URBNF_SPELLOUT, icu::Locale("fr"), status);
    requireSame(U_SUCCESS(status), "ICU has no spell-out for French");
    return loopOf([format, number] {
        icu::UnicodeString words;
        format->format(static_cast<int64_t>(opaque(number)), words);
        return words;
    });
}

const Installed installed(icuSpellOut, spellOut);

}  // namespace
}  // namespace bench
