#include "platform/linux/registered_objects.h"

#include <map>
#include <mutex>
#include <string>

#include "platform/linux/text/letter_case.h"

namespace tovera {
namespace {

/// What hosts have registered, by the ProgID in capitals.
struct Registered {
    std::mutex mutex;
    std::map<std::u16string, ObjectFactory> factories;
};

Registered& registered() {
    static Registered all;
    return all;
}

}  // namespace

void registerObject(std::u16string_view progId, ObjectFactory factory) {
    const std::lock_guard guard(registered().mutex);
    registered().factories[capitals(progId)] = std::move(factory);
}

ObjectFactory registeredFactory(std::u16string_view progId) {
    const std::lock_guard guard(registered().mutex);
    const auto found = registered().factories.find(capitals(progId));
    return found == registered().factories.end() ? ObjectFactory() : found->second;
}

}  // namespace tovera
