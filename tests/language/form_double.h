#pragma once

#include <map>

#include "support/test_platform.h"

// Forms, files and folders as a language file meets them, all scripted.
namespace tovera::testing {

/// What a member of a double does: it gives its value and takes another one, unless it is told to fail.
struct ScriptedMember {
    ScriptedMember(Variant initial = {}, I4 failsRead = 0, I4 failsWrite = 0)
        : value(std::move(initial)), readError(failsRead), writeError(failsWrite) {}
    Variant value;
    I4 readError;
    I4 writeError;
    int readsBeforeError = 0;  ///< how often it can be read until its error comes
};

/// A form, a control or another object with the members of its script.
class Scripted final : public Counted<> {
  public:
    using Members = std::vector<std::pair<std::u16string, ScriptedMember>>;
    explicit Scripted(Members script) : members(std::move(script)) {}

    ScriptedMember& operator[](std::u16string_view name) {
        return members[static_cast<std::size_t>(*memberNamed(name))].second;
    }
    Bstr text(std::u16string_view name) { return *(*this)[name].value.as<Bstr>(); }
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

    ReturnCode invoke(MemberId member, CallKind kind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord& failure) noexcept override {
        auto& script = members.at(static_cast<std::size_t>(member)).second;
        const bool writes = allows(kind, CallKind::Write);
        const I4 error = writes ? script.writeError : script.readsBeforeError-- > 0 ? 0 : script.readError;
        if (error != 0) failure.code = codeOf(error);
        if (error == 0 && writes) script.value = arguments[0];
        if (error == 0 && !writes) result = script.value;
        return failure.code;
    }

    std::unique_ptr<Enumerator> elements() override {
        if (!enumerates) raise(ErrorNumber::NotEnumerable);
        return std::make_unique<Walk>(controls);
    }

    ObjectRef query(const InterfaceId& interface) override {
        constexpr InterfaceId control{
            0xFCFB3D25, 0xA0FA, 0x1068, {0xA7, 0x38, 0x08, 0x00, 0x2B, 0x33, 0x71, 0xB5}};
        if (interface != control || !isControl) raise(ErrorNumber::NoSuchInterface);
        return ObjectRef(this);
    }

    Members members;
    std::vector<Variant> controls;  ///< an Empty one stands for a failure of the enumeration
    bool enumerates = true;
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
};

/// The folder of a file as `Scripting.FileSystemObject` tells it.
inline ObjectRef fileSystem(const Scripted::Members& answers) {
    auto object = makeObject<Scripted>(Scripted::Members{{u"GetParentFolderName", Variant(u"C:\\langues")},
                                                         {u"FolderExists", Variant(True)},
                                                         {u"CreateFolder", Variant()},
                                                         {u"FileExists", Variant(True)}});
    for (const auto& [name, answer] : answers) static_cast<Scripted&>(*object)[name] = answer;
    return object;
}

/// A profile file that keeps what is written, and the calls that were made on it.
struct ProfileDouble {
    explicit ProfileDouble(MockKernel32& kernel32) {
        using ::testing::_;
        EXPECT_CALL(kernel32, WritePrivateProfileStringA(_, _, _, _))
            .Times(::testing::AnyNumber())
            .WillRepeatedly([this](auto& section, auto& key, auto& value, auto&) {
                const auto entry = section.bytes + '/' + key.bytes;
                written.push_back(entry + (value.isNull ? " null" : '=' + value.bytes));
                return I4{1};
            });
        EXPECT_CALL(kernel32, GetPrivateProfileStringA(_, _, _, _, _))
            .Times(::testing::AnyNumber())
            .WillRepeatedly([this](auto& section, auto& key, auto& otherwise, AnsiText& buffer, auto&) {
                asked.push_back(section.bytes + '/' + key.bytes);
                const auto found = entries.find(asked.back());
                const auto& whole = found == entries.end() ? otherwise.bytes : found->second;
                const auto value = whole.substr(0, buffer.bytes.size() - 1);
                buffer.bytes.replace(0, value.size() + 1, value + '\0');
                return static_cast<I4>(value.size());
            });
    }

    std::map<std::string, std::string> entries;
    std::vector<std::string> written;
    std::vector<std::string> asked;
};

}  // namespace tovera::testing
