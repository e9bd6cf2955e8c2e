#include <functional>

#include "catalogue/catalogue.h"
#include "frame/component.h"
#include "frame/utf8.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

/// A host's object with one member.
class Foreign : public Counted<> {
  public:
    using Member = std::function<ReturnCode(CallKind, std::span<Variant>, Variant&, ErrorRecord&)>;
    explicit Foreign(Member member) : member_(std::move(member)) {}
    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        ++lookUps;
        if (name != u"Caption") return {};
        return 42;
    }
    ReturnCode invoke(MemberId member, CallKind kind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord& failure) noexcept override {
        EXPECT_EQ(member, 42);
        return member_(kind, arguments, result, failure);
    }
    inline static int lookUps = 0;

  private:
    Member member_;
};

TEST(LateBinding, CallsReadsAndWrites) {
    const auto object = makeObject<Foreign>([](CallKind kind, auto arguments, Variant& result, auto&) {
        if (kind == CallKind::Write) {
            EXPECT_EQ(arguments[0], Variant(u"new"));
        } else if (!arguments.empty()) {
            **std::get_if<Bstr*>(arguments[0].template as<Reference>()) = u"changed";
        }
        result = I4{static_cast<I4>(arguments.size())};
        return ReturnCode::Success;
    });
    Bstr text = u"old";
    Foreign::lookUps = 0;
    EXPECT_EQ(callMember(object, u"Caption", Reference{&text}), Variant(I4{1}));
    EXPECT_EQ(text, u"changed");
    EXPECT_EQ(readMember(object, u"Caption"), Variant(I4{0}));
    writeMember(object, u"Caption", u"new");
    EXPECT_EQ(Foreign::lookUps, 3);  // each call looks the name up anew

    EXPECT_EQ(errorOf([&] { readMember(ObjectRef{}, u"Caption"); }), 91);
    EXPECT_EQ(errorOf([&] { readMember(object, u"Text"); }), 438);
    EXPECT_EQ(errorOf([&] { object->elements(); }), 451);
    EXPECT_EQ(errorOf([&] { object->query({}); }), 430);
}

TEST(LateBinding, FailuresPassUnchanged) {
    constexpr auto own = static_cast<ReturnCode>(static_cast<I4>(0x80042345U));
    const auto failing = [](ErrorRecord record) {
        return makeObject<Foreign>([record](auto, auto, Variant&, ErrorRecord& failure) {
            failure = record;
            return own;
        });
    };
    for (const auto& record : {ErrorRecord{own, u"plein", u"Disque"}, ErrorRecord{}}) {
        const auto object = failing(record);
        try {
            readMember(object, u"Caption");
            ADD_FAILURE() << "no failure";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.code(), own);
            EXPECT_EQ(error.number(), static_cast<I4>(own));
            EXPECT_EQ(error.description(), record.description);
            EXPECT_EQ(error.source(), record.source);
        }
    }
}

TEST(FailureMarks, IgnoredStepsLeaveTheirValueAndTheLastError) {
    FailuresIgnored step;
    I4 value = 1;
    const auto failing = [](ErrorNumber number) -> I4 { raise(number); };
    EXPECT_FALSE(step([&] { value = failing(ErrorNumber::PathNotFound); }));
    EXPECT_EQ(value, 1);
    EXPECT_EQ(step.error.number, 76);
    EXPECT_EQ(step.error.description.view(), descriptionOf(76));
    EXPECT_TRUE(step([&] { value = 2; }));
    EXPECT_EQ(value, 2);
    EXPECT_EQ(step.error.number, 76);  // until the next failure
    EXPECT_FALSE(step([] { throw std::bad_alloc(); }));
    EXPECT_EQ(step.error.number, 7);
    EXPECT_FALSE(step([] { throw 1; }));
    EXPECT_EQ(step.error.number, 51);
    step.error.clear();
    EXPECT_EQ(step.error.number, 0);
}

TEST(FailureMarks, AHandlerEndsTheRoutine) {
    std::vector<I4> handled;
    const auto handler = [&](const CurrentError& error) { handled.push_back(error.number); };
    bool reached = false;
    onFailure(handler, [&] {
        raise(ErrorNumber::TypeMismatch);
        reached = true;
    });
    onFailure(handler, [] {});
    EXPECT_EQ(handled, std::vector<I4>{13});
    EXPECT_FALSE(reached);
    const auto raising = [](const CurrentError&) { raise(ErrorNumber::InvalidNull); };
    EXPECT_EQ(errorOf([&] { onFailure(raising, [] { raise(ErrorNumber::Overflow); }); }), 94);
}

std::u16string swappedCase(std::string_view name) {
    std::u16string text(name.begin(), name.end());
    for (auto& c : text) c = c == u'_' || (c >= u'0' && c <= u'9') ? c : static_cast<char16_t>(c ^ 0x20);
    return text;
}

TEST(Catalogue, EveryMemberIsFoundByItsNameInAnyCase) {
    for (const auto& entry : catalogue()) {
        const auto& description = entry.description();
        EXPECT_EQ(findClass(description.progId), &entry);
        EXPECT_EQ(findClass(toUtf8(swappedCase(description.name))), &entry);
        EXPECT_EQ(description.progId, "KADRELDLL." + std::string(description.name));
        for (std::size_t slot = 0; slot < description.members.size(); ++slot) {
            const auto& member = description.members[slot];
            const std::u16string name(member.name.begin(), member.name.end());
            const auto first = description.names.find(name);
            ASSERT_TRUE(first) << member.name;
            EXPECT_EQ(description.names.find(swappedCase(member.name)), first);
            EXPECT_EQ(description.members[*first].name, member.name);
            EXPECT_EQ(description.members[*first].id, member.id);
            EXPECT_FALSE(description.names.find(name + u"_"));
            EXPECT_FALSE(description.names.find(name.substr(1)));
            std::u16string wide = name;  // the same letters, seen through their low bytes only
            wide[0] = static_cast<char16_t>(wide[0] + 0x100);
            EXPECT_FALSE(description.names.find(wide));
            if (member.kind != CallKind::Method || !member.published) continue;
            EXPECT_EQ(memberAt(description, member.id, CallKind::Method), &member);
            EXPECT_EQ(memberAt(description, member.id, CallKind::Write), nullptr);
        }
    }
    EXPECT_EQ(findClass("KADRELDLL."), nullptr);
    EXPECT_EQ(errorOf([] { createComponent("KADRELDLL.Cls_Rien"); }), 429);
}

TEST(Catalogue, RowsTellTypesModesAndOrder) {
    std::string told;
    for (const auto& member : findClass("Cls_Conversion")->description().members) {
        told += std::string(member.name) + ' ' + std::to_string(static_cast<int>(member.kind)) + '(';
        for (const auto& parameter : member.parameters) {
            told += std::string(parameter.name) + (parameter.mode == Mode::ByReference ? "&" : "") + ',';
        }
        told += ") ";
    }
    EXPECT_EQ(told,
              "IntituleMonnaie 2() IntituleMonnaie 4(strIntituleMonnaie&,) IntitulePetiteMonnaie 2() "
              "IntitulePetiteMonnaie 4(strIntitulePetiteMonnaie&,) Ctrl_SaiseNombre 1(strSaisie&,) "
              "ConvertirNombreEnLettre 1(strNbSaisi&,Montant&,) ConvertirOemAnsi 1(string1&,string2&,) ");
    const auto& chrono = findClass("Cls_Date")->description().members[5];
    EXPECT_EQ(chrono.parameters[1].mode, Mode::ByValue);
    EXPECT_EQ(chrono.parameters[1].type, Type::I4);
    EXPECT_EQ(findClass("Cls_Math")->description().members[4].result, Type::Variant);
}

}  // namespace
}  // namespace tovera::testing
