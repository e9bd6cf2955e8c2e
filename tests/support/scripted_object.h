#pragma once

#include <limits>

#include "support/test_platform.h"

namespace tovera::testing {

/// A member of an object of the host's: it gives its value and takes another one. One with an error can't be
/// written, and be read only so often.
struct ScriptedMember {
    ScriptedMember(Variant initial = {}) : value(std::move(initial)) {}
    ScriptedMember(I4 failsWith, int readsBefore = 0, Variant initial = {})
        : value(std::move(initial)), error(failsWith), reads(readsBefore) {}
    Variant value;
    I4 error = 0;
    int reads = std::numeric_limits<int>::max();
};

/// A form, a control or another object with the members of its script.
class Scripted final : public Counted<> {
  public:
    using Members = std::vector<std::pair<std::u16string, ScriptedMember>>;
    explicit Scripted(Members script) : members(std::move(script)) {}

    Scripted& add(Members script) {
        controls.emplace_back(makeObject<Scripted>(std::move(script)));
        return static_cast<Scripted&>(**controls.back().as<ObjectRef>());
    }

    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        const auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? c | 0x20 : c; };
        const auto found = std::ranges::find_if(members, [&](const auto& member) {
            return std::ranges::equal(member.first, name, {}, lower, lower);
        });
        if (found == members.end()) return {};
        return static_cast<MemberId>(found - members.begin());
    }

    /// Marks a text that is handed over as a variable.
    ReturnCode invoke(MemberId member, CallKind kind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord& failure) noexcept override {
        auto& [name, script] = members.at(static_cast<std::size_t>(member));
        const bool writes = allows(kind, CallKind::Write);
        if (writes ? script.error != 0 : --script.reads < 0) return failure.code = codeOf(script.error);
        if (!arguments.empty() && arguments[0].is<Reference>()) {
            auto& text = **std::get_if<Bstr*>(arguments[0].as<Reference>());
            text = join(u"asked: ", text);
        }
        if (writes) assigned.push_back(join(name, u"=", *arguments[0].as<Bstr>()));
        if (!writes) result = script.value;
        return ReturnCode::Success;
    }

    std::unique_ptr<Enumerator> elements() override { return std::make_unique<Walk>(controls); }

    ObjectRef query(const InterfaceId& interface) override {
        constexpr InterfaceId control{
            0xFCFB3D25, 0xA0FA, 0x1068, {0xA7, 0x38, 0x08, 0x00, 0x2B, 0x33, 0x71, 0xB5}};
        if (interface != control || !isControl) raise(ErrorNumber::NoSuchInterface);
        return ObjectRef(this);
    }

    std::vector<Variant> controls;  ///< an Empty one stands for a failure of the enumeration
    std::vector<Bstr> assigned;     ///< "name=text", in the order of the writes
    bool isControl = true;

  private:
    struct Walk final : Enumerator {
        explicit Walk(const std::vector<Variant>& walked) : elements(walked) {}
        std::optional<Variant> next() override {
            if (at == elements.size()) return {};
            if (elements[at].is<Empty>()) raise(ErrorNumber::InvalidCall);
            return elements[at++];
        }
        const std::vector<Variant>& elements;
        std::size_t at = 0;
    };

    Members members;
};

}  // namespace tovera::testing
