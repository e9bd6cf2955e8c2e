#include "c_interface/failures.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>

#include "frame/utf8.h"

namespace tovera::c {
namespace {

/// A copy that `free` frees; null for no text, and without memory.
char* copyOf(std::string_view text) {
    auto* const copy = static_cast<char*>(std::malloc(text.size() + 1));
    if (copy) copy[text.copy(copy, text.size())] = '\0';
    return copy;
}

char* copyOf(const Bstr& text) noexcept {
    try {
        return text.isNull() ? nullptr : copyOf(std::string_view(toUtf8(text)));
    } catch (...) {
        return nullptr;
    }
}

/// Numbers of Automation are of 16 bits; any other is the whole code.
ReturnCode codeOfNumber(std::int32_t number) {
    return number > 0 && number <= 0xFFFF ? codeOf(number) : static_cast<ReturnCode>(number);
}

Bstr textOr(const char* text, std::u16string_view otherwise) {
    return text ? Bstr(fromUtf8(text)) : Bstr(otherwise);
}

}  // namespace

std::int32_t tell(tovera_failure* failure, const ErrorRecord& record) noexcept {
    const auto number = record.code == ReturnCode::Success ? 0 : numberOf(record.code);
    if (failure) {
        *failure = {number, static_cast<I4>(record.code), record.argument, copyOf(record.description),
                    copyOf(record.source)};
    }
    return number;
}

ErrorRecord recordOf(std::int32_t returned, const tovera_failure& failure) {
    ErrorRecord record;
    const auto number = failure.number != 0 ? failure.number : returned;
    record.code = codeOfNumber(number);
    record.description = textOr(failure.description, descriptionOf(number));
    record.source = textOr(failure.source, {});
    return record;
}

}  // namespace tovera::c

using namespace tovera;

void tovera_failure_clear(tovera_failure* failure) {
    if (!failure) return;
    std::free(failure->description);
    std::free(failure->source);
    *failure = {0, 0, ErrorRecord::noArgument, nullptr, nullptr};
}

int32_t tovera_failure_set(tovera_failure* failure, int32_t number, const char* description,
                           const char* source) {
    if (!failure) return number;
    // Made before the old texts go, since they may be the new ones.
    tovera_failure told{number, static_cast<I4>(c::codeOfNumber(number)), ErrorRecord::noArgument,
                        description ? c::copyOf(std::string_view(description)) : nullptr,
                        source ? c::copyOf(std::string_view(source)) : nullptr};
    tovera_failure_clear(failure);
    *failure = told;
    return number;
}

const char* tovera_description_of(int32_t number) {
    static std::mutex mutex;
    // Stays for threads that still call while the process ends.
    static auto& made = *std::make_unique<std::map<int32_t, std::string>>().release();
    try {
        const auto description = descriptionOf(number);
        if (description.empty()) return nullptr;
        const std::lock_guard guard(mutex);
        return made.try_emplace(number, toUtf8(description)).first->second.c_str();
    } catch (...) {
        return nullptr;
    }
}
