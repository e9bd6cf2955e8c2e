#pragma once

#include <vector>

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// What a home offers to the classes: the services and the ports, found by their type. Private objects of
/// another class get the same platform as their maker.
class Platform {
  public:
    explicit Platform(Services& homeServices) : services(homeServices) {}

    /// The same platform with these services, or with this twin of a port.
    template <class Replacement>
    [[nodiscard]] Platform with(Replacement& replacement) const {
        if constexpr (std::is_base_of_v<Services, Replacement>) {
            return {replacement, ports_};
        } else {
            using P = typename Replacement::Type;
            Platform changed = *this;
            std::erase_if(changed.ports_, [](const Entry& entry) { return entry.key == keyOf<P>(); });
            changed.ports_.push_back({keyOf<P>(), static_cast<P*>(&replacement)});
            return changed;
        }
    }

    /// The twin of a port, or the port itself where there is none: all that it has is missing.
    template <class P>
    P& port() const {
        for (const auto& entry : ports_)
            if (entry.key == keyOf<P>()) return *static_cast<P*>(entry.port);
        static P missing;
        return missing;
    }

    /// Calls an entry point. Texts cross to ANSI by themselves: one that is a variable takes back what the
    /// entry point has made of it, one that is `const` doesn't, `nullptr` is no text. All else goes as it is.
    template <class P, class R, class... Parameters, class... Arguments>
    R call(R (P::*entryPoint)(Parameters...), Arguments&&... arguments) const {
        static_assert(sizeof...(Parameters) == sizeof...(Arguments));
        return [&](Crossing<Parameters, Arguments&&>... crossing) {
            if constexpr (std::is_void_v<R>) {
                (port<P>().*entryPoint)(crossing.pass()...);
                (crossing.takeBack(), ...);
            } else {
                R result = (port<P>().*entryPoint)(crossing.pass()...);
                (crossing.takeBack(), ...);
                return result;
            }
        }(Crossing<Parameters, Arguments&&>(services, std::forward<Arguments>(arguments))...);
    }

    Services& services;

  private:
    using Key = const char*;
    struct Entry {
        Key key;
        void* port;  ///< a `P*` of the port whose key this is
    };

    Platform(Services& replacement, std::vector<Entry> ports)
        : services(replacement), ports_(std::move(ports)) {}

    /// One address for each type of port.
    template <class P>
    static Key keyOf() {
        static constexpr char key{};
        return &key;
    }

    std::vector<Entry> ports_;
};

/// The platform of the home that this build runs in.
Platform& home();

}  // namespace tovera
