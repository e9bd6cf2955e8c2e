#pragma once

#include <functional>
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

/// An object with the members of its script, matched without regard to case.
class Scripted : public Counted<> {
  public:
    using Members = std::vector<std::pair<std::u16string, ScriptedMember>>;
    explicit Scripted(Members members) : members(std::move(members)) {}

    ScriptedMember& operator[](std::u16string_view name) { return members.at(indexOf(name)).second; }
    Bstr text(std::u16string_view name) { return *(*this)[name].value.as<Bstr>(); }

    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        const auto index = indexOf(name);
        if (index == members.size()) return {};
        return static_cast<MemberId>(index);
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

    Members members;

  private:
    std::size_t indexOf(std::u16string_view name) const {
        const auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? c | 0x20 : c; };
        const auto found = std::ranges::find_if(members, [&](const auto& member) {
            return std::ranges::equal(member.first, name, {}, lower, lower);
        });
        return static_cast<std::size_t>(found - members.begin());
    }
};

class ControlDouble final : public Scripted {
  public:
    using Scripted::Scripted;
    ObjectRef query(const InterfaceId& interface) override {
        constexpr InterfaceId control{
            0xFCFB3D25, 0xA0FA, 0x1068, {0xA7, 0x38, 0x08, 0x00, 0x2B, 0x33, 0x71, 0xB5}};
        if (interface != control || !hasControlInterface) raise(ErrorNumber::NoSuchInterface);
        return ObjectRef(this);
    }
    bool hasControlInterface = true;
};

/// A form that enumerates its elements; an Empty one stands for a failure of the enumeration.
class FormDouble final : public Scripted {
  public:
    using Scripted::Scripted;
    std::unique_ptr<Enumerator> elements() override {
        if (!enumerates) raise(ErrorNumber::NotEnumerable);
        return std::make_unique<Walk>(*this);
    }
    ControlDouble& add(Members members) {
        auto control = makeObject<ControlDouble>(std::move(members));
        controls.push_back(control);
        return static_cast<ControlDouble&>(*control);
    }

    std::vector<Variant> controls;
    bool enumerates = true;

  private:
    struct Walk final : Enumerator {
        explicit Walk(const FormDouble& walked) : form(walked) {}
        std::optional<Variant> next() override {
            if (at == form.controls.size()) return {};
            if (form.controls[at].is<Empty>()) raise(ErrorNumber::InvalidCall);
            return form.controls[at++];
        }
        const FormDouble& form;
        std::size_t at = 0;
    };
};

/// The folder of a file as `Scripting.FileSystemObject` tells it.
inline ObjectRef fileSystem(const Scripted::Members& answers) {
    Scripted::Members members{{u"GetParentFolderName", Variant(u"C:\\langues")},
                              {u"FolderExists", Variant(True)},
                              {u"CreateFolder", Variant()},
                              {u"FileExists", Variant(True)}};
    for (const auto& [name, answer] : answers) {
        std::ranges::find(members, name, &Scripted::Members::value_type::first)->second = answer;
    }
    return makeObject<Scripted>(std::move(members));
}

/// A profile file that keeps what is written, and the calls that were made on it.
class ProfileDouble {
  public:
    explicit ProfileDouble(MockKernel32& kernel32) {
        using ::testing::_;
        const auto write = [this](const AnsiText& section, const AnsiText& key, const AnsiText& value,
                                  const AnsiText& file) {
            const auto entry = section.bytes + '/' + key.bytes;
            written.push_back(entry + (value.isNull ? " null" : '=' + value.bytes));
            lastFile = file.bytes;
            value.isNull ? void(entries.erase(entry)) : void(entries[entry] = value.bytes);
            return I4{1};
        };
        const auto read = [this](const AnsiText& section, const AnsiText& key, const AnsiText& otherwise,
                                 AnsiText& buffer, const AnsiText&) {
            const auto entry = section.bytes + '/' + key.bytes;
            asked.push_back(entry);
            const auto found = entries.find(entry);
            const auto value =
                (found == entries.end() ? otherwise.bytes : found->second).substr(0, buffer.bytes.size() - 1);
            buffer.bytes.replace(0, value.size() + 1, value + '\0');
            return static_cast<I4>(value.size());
        };
        ON_CALL(kernel32, WritePrivateProfileStringA(_, _, _, _)).WillByDefault(write);
        ON_CALL(kernel32, GetPrivateProfileStringA(_, _, _, _, _)).WillByDefault(read);
        EXPECT_CALL(kernel32, WritePrivateProfileStringA(_, _, _, _)).Times(::testing::AnyNumber());
        EXPECT_CALL(kernel32, GetPrivateProfileStringA(_, _, _, _, _)).Times(::testing::AnyNumber());
    }

    std::map<std::string, std::string> entries;
    std::vector<std::string> written;
    std::vector<std::string> asked;
    std::string lastFile;
};

}  // namespace tovera::testing
