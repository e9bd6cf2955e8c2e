#include <functional>

#include "frame/probe.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

class BoxServices : public TestServices {
  public:
    using Services::messageBox;
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override {
        if (onBox) onBox();
        return TestServices::messageBox(text, flags, title);
    }
    std::function<void()> onBox;
};

class CallByName : public ::testing::Test {
  protected:
    ~CallByName() override {
        object = nullptr;
        EXPECT_EQ(Cls_Probe::alive, 0) << "a reference is still held";
    }
    ObjectRef newProbe() { return makeObject<ComponentObjectOf<Cls_Probe>>(services, services); }

    ::testing::NiceMock<BoxServices> services;
    ObjectRef object = newProbe();
};

constexpr I4 typeMismatch = 13;
constexpr I4 noSuchMember = 438;
constexpr I4 argumentMissing = 449;
constexpr I4 wrongCount = 450;

TEST_F(CallByName, NamesArgumentsAndKinds) {
    const std::vector<NamedCall> calls{
        // clang-format off
        gives(I2{7}, u"sOMME", I2{3}, I2{4}), gives(I2{7}, u"Somme", u" 3", R8{4.5}),
        gives(I2{32766}, u"Somme", I4{32767}, VariantBool(true)), fails(6, u"Somme", I2{32767}, I2{1}),
        fails(6, u"Somme", I4{40000}, I2{1}), fails(94, u"Somme", Null{}, I2{1}),
        fails(typeMismatch, u"Somme", u"trois", I2{1}), fails(typeMismatch, u"Somme", ObjectRef{}, I2{1}),
        fails(argumentMissing, u"Somme", I2{3}), fails(argumentMissing, u"Somme", Variant::missing(), I2{1}),
        fails(wrongCount, u"Somme", I2{1}, I2{2}, I2{3}), gives(Null{}, u"Copie", Null{}),
        gives(Variant{}, u"Copie", Variant{}), gives(u"a.", u"Relier", u"a"),
        gives(u"ab.", u"Relier", u"a", u"b"),
        gives(u"a", u"Relier", u"a", Variant::missing(), VariantBool(true)),
        gives(u"10.5.", u"Relier", I2{1}, R8{0.5}, u"0"), gives(u"titre", u"Titre"),
        fails(wrongCount, u"Titre", u"a"), gives(ObjectRef{}, u"Voisin"), fails(noSuchMember, u"Sommes"),
        fails(noSuchMember, u""), fails(noSuchMember, u"Somm\u00C9"),
        // clang-format on
    };
    for (const auto& call : calls) expectCall(object, call);

    writeMember(object, u"TITRE", u"neu");
    EXPECT_EQ(readMember(object, u"titre"), Variant(u"neu"));
    const auto invoke = [&](std::u16string_view name, CallKind kind, Variant argument) {
        return errorOf([&] { invokeMember(object, name, kind, {&argument, 1}); });
    };
    EXPECT_EQ(invoke(u"Somme", CallKind::Write, I2{1}), noSuchMember);
    EXPECT_EQ(invoke(u"Titre", CallKind::AssignReference, u"x"), noSuchMember);
    EXPECT_EQ(invoke(u"Voisin", CallKind::AssignReference, newProbe()), 0);
    EXPECT_TRUE(*readMember(object, u"Voisin").as<ObjectRef>());
    Variant result;
    ErrorRecord failure;
    EXPECT_EQ(object->invoke(0x7FFFFFFF, CallKind::Method, {}, result, failure), codeOf(noSuchMember));
    EXPECT_EQ(object->invoke(0, CallKind::Method, {}, result, failure), codeOf(noSuchMember));
}

/// Passes an argument to `Doubler(I4&)`; gives the error.
I4 twice(const ObjectRef& object, Variant& argument) {
    return errorOf([&] { invokeMember(object, u"Doubler", CallKind::Method, {&argument, 1}); });
}

TEST_F(CallByName, ByReferenceInAVariant) {
    const struct {
        Variant before;
        Variant after;
        I4 error = 0;
    } rows[] = {
        {I4{21}, I4{42}},
        {I2{21}, I4{42}},
        {R8{2.5}, I4{4}},
        {u"21", I4{42}},
        {u"0", u"0"},  // what the member leaves as it was stays in its own type
        // clang-format off
        {Variant{}, Variant{}}, {VariantBool(true), I4{-2}}, {UI1{200}, I4{400}},
        {I4{0x40000000}, I4{0x40000000}, 6}, {u"x", u"x", 13}, {Null{}, Null{}, 94}, {R8{1e10}, R8{1e10}, 6},
        // clang-format on
    };
    for (const auto& row : rows) {
        auto direct = row.before;
        EXPECT_EQ(twice(object, direct), row.error);
        EXPECT_EQ(direct, row.after);

        auto end = row.before;
        Variant middle(Reference{&end});
        Variant start(Reference{&middle});
        EXPECT_EQ(twice(object, start), row.error);
        EXPECT_EQ(end, row.after);
        EXPECT_EQ(start, Variant(Reference{&middle}));
    }
    Variant cycle;
    cycle = Reference{&cycle};
    EXPECT_EQ(twice(object, cycle), typeMismatch);
}

/// A typed variable of the caller, passed by reference directly and through a variable.
template <class T>
void expectTwice(const ObjectRef& object, T before, T after, I4 error = 0) {
    T direct = before;
    Variant argument(Reference{&direct});
    EXPECT_EQ(twice(object, argument), error);
    EXPECT_EQ(direct, after);
    T far = before;
    Variant inner(Reference{&far});
    Variant outer(Reference{&inner});
    EXPECT_EQ(twice(object, outer), error);
    EXPECT_EQ(far, after);
}

TEST_F(CallByName, ByReferenceToTypedVariables) {
    expectTwice<I4>(object, 21, 42);
    expectTwice<I2>(object, 21, 42);
    expectTwice<I2>(object, 20000, 20000, 6);  // the doubled value doesn't fit the caller's variable
    expectTwice<UI1>(object, 100, 200);
    expectTwice<R4>(object, 2.5F, 4);
    expectTwice<R8>(object, 3.5, 8);
    expectTwice<Bstr>(object, u"21", u"42");
    expectTwice<Bstr>(object, u"x", u"x", typeMismatch);
    expectTwice<Date>(object, Date{2.2}, Date{4});
    expectTwice<VariantBool>(object, True, True);
    expectTwice<ObjectRef>(object, nullptr, nullptr, typeMismatch);
}

TEST_F(CallByName, ByReferenceVariantsArraysAndObjects) {
    Bstr text = u"a";
    I2 number = 1;
    ObjectRef neighbour = newProbe();
    callMember(object, u"Remplacer", Reference{&text}, u"b");
    EXPECT_EQ(text, u"b");
    EXPECT_EQ(errorOf([&] { callMember(object, u"Remplacer", Reference{&number}, u"x"); }), typeMismatch);
    EXPECT_EQ(number, 1);
    text = u"2";
    callMember(object, u"Remplacer", Reference{&number}, Reference{&text});
    EXPECT_EQ(number, 2);
    callMember(object, u"Libre", Reference{&neighbour});
    EXPECT_FALSE(neighbour);
    EXPECT_EQ(Cls_Probe::alive, 1);

    auto array = StringArray::of({u"a", u"b"});
    Variant held(array);
    Variant never;
    auto fixed = StringArray::withBounds(0, 1).fixed();
    callMember(object, u"Allonger", Reference{&array});
    callMember(object, u"Allonger", Reference{&held});
    callMember(object, u"Allonger", Reference{&never});
    EXPECT_EQ(array.upperBound(), 3);
    EXPECT_EQ(array.at(1), u"b");
    EXPECT_EQ(held, Variant(array));
    ASSERT_TRUE(never.is<StringArray>());
    EXPECT_EQ(never.as<StringArray>()->upperBound(), 0);
    EXPECT_EQ(errorOf([&] { callMember(object, u"Allonger", Reference{&fixed}); }), 10);
    EXPECT_EQ(errorOf([&] { callMember(object, u"Allonger", I2{1}); }), typeMismatch);

    Bstr given = u"b";
    callMember(object, u"Relier", u"a", Reference{&given});
    EXPECT_EQ(given, u"seen");
}

TEST_F(CallByName, WhatIsAssignedBeforeAFailure) {
    const ObjectRef neighbour = newProbe();
    const std::vector<std::pair<NamedCall, Variant>> rows{
        // clang-format off
        {{u"PerdreI4", {I4{7}}, {}}, I4{7}}, {{u"PerdreR8", {R8{7.5}}, {}}, R8{7.5}},
        {{u"PerdreDate", {Date{7}}, {}}, Date{7}},
        {{u"PerdreVerite", {VariantBool(true)}, {}}, VariantBool(true)},
        {{u"PerdreTexte", {u"perdu"}, {}}, Bstr()}, {{u"PerdreVariant", {I4{7}}, {}}, Variant{}},
        {{u"PerdreObjet", {neighbour}, {}}, ObjectRef{}}, {{u"Somme", {I2{32767}, I2{1}}, {}}, I2{0}},
        // clang-format on
    };
    ErrorRecord failure;  // one record for all calls: a caller need not clear it
    for (const auto& [call, expected] : rows) {
        SCOPED_TRACE(toUtf8(call.member));
        auto arguments = call.arguments;
        Variant result(u"before");
        const auto id = object->memberNamed(call.member).value();
        EXPECT_NE(object->invoke(id, CallKind::Method, arguments, result, failure), ReturnCode::Success);
        EXPECT_EQ(result, expected);
        EXPECT_FALSE(failure.description.empty());

        std::vector<Variant> two{I2{1}, I2{2}};
        const auto sum = object->memberNamed(u"Somme").value();
        EXPECT_EQ(object->invoke(sum, CallKind::Method, two, result, failure), ReturnCode::Success);
        EXPECT_EQ(result, Variant(I2{3}));
    }
}

/// Notes whether a probe is still alive when it goes.
class Witness : public Counted<> {
  public:
    explicit Witness(int& probesAlive) : probesAlive_(probesAlive) {}
    ~Witness() override { probesAlive_ = Cls_Probe::alive; }
    std::optional<MemberId> memberNamed(std::u16string_view) override { return {}; }
    ReturnCode invoke(MemberId, CallKind, std::span<Variant>, Variant&, ErrorRecord&) noexcept override {
        return codeOf(noSuchMember);
    }

  private:
    int& probesAlive_;
};

TEST_F(CallByName, TheObjectOutlivesItsLastOutsideReferenceAndGoesBeforeTheResultArrives) {
    services.onBox = [&] {
        EXPECT_EQ(callMember(object, u"Somme", I2{1}, I2{2}), Variant(I2{3}));
        object = nullptr;
        EXPECT_EQ(Cls_Probe::alive, 1);
    };
    int aliveWhenHandedOver = -1;
    Variant result(makeObject<Witness>(aliveWhenHandedOver));
    ErrorRecord failure;
    const auto show = object->memberNamed(u"Montrer").value();
    EXPECT_EQ(object->invoke(show, CallKind::Method, {}, result, failure), ReturnCode::Success);
    EXPECT_EQ(aliveWhenHandedOver, 0);
    EXPECT_EQ(result, Variant(u"titre"));
    EXPECT_EQ(services.boxes, (std::vector<ShownBox>{{u"?", 0, u"HoldDLL"}}));
}

}  // namespace
}  // namespace tovera::testing
