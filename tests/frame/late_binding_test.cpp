#include <cctype>

#include "catalogue/catalogue.h"
#include "frame/probe.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

/// An object that stands for a value, as a cell of a table does.
class Cell : public Counted<> {
  public:
    explicit Cell(Variant value) : value_(std::move(value)) {}
    std::optional<MemberId> memberNamed(std::u16string_view) override { return {}; }
    ReturnCode invoke(MemberId member, CallKind, std::span<Variant>, Variant& result,
                      ErrorRecord&) noexcept override {
        if (member == defaultMember) result = value_;
        return member == defaultMember ? ReturnCode::Success : codeOf(438);
    }

  private:
    Variant value_;
};

class CallByName : public ::testing::Test {
  protected:
    ~CallByName() override {
        object = nullptr;
        EXPECT_EQ(Cls_Probe::alive, 0) << "a reference is still held";
    }
    ObjectRef newProbe() { return makeObject<ComponentObjectOf<Cls_Probe>>(services, services); }
    I4 errorOfCall(std::u16string_view name, Variant argument, CallKind kind = CallKind::Method) {
        return errorOf([&] { invokeMember(object, name, kind, {&argument, 1}); });
    }
    /// Doubles a variable as an `I4`, passed by reference through another variable.
    template <class T>
    void expectTwice(T before, T after, I4 error = 0) {
        T variable = before;
        Variant inner(Reference{&variable});
        EXPECT_EQ(errorOfCall(u"Doubler", Reference{&inner}), error);
        EXPECT_EQ(variable, after);
        EXPECT_EQ(inner, Variant(Reference{&variable}));
    }

    ::testing::NiceMock<TestServices> services;
    ObjectRef object = newProbe();
    ErrorRecord failure;  ///< one record for all calls: a caller need not clear it
};

TEST_F(CallByName, NamesArgumentsAndKinds) {
    const auto three = makeObject<Cell>(I2{3});
    Variant leftOut = Variant::missing();
    const NamedCall calls[] = {
        // clang-format off
        gives(I2{7}, u"sOMME", I2{3}, I2{4}), gives(I2{7}, u"Somme", u" 3", R8{4.5}),
        fails(6, u"Somme", I2{32767}, I2{1}), fails(6, u"Somme", I4{40000}, I2{1}),
        fails(94, u"Somme", Null{}, I2{1}), fails(13, u"Somme", u"trois", I2{1}), fails(449, u"Somme", I2{3}),
        gives(I2{7}, u"Somme", three, I2{4}), fails(13, u"Somme", makeObject<Cell>(three), I2{1}),
        fails(13, u"Somme", newProbe(), I2{1}), fails(449, u"Somme", Reference{&leftOut}, I2{1}),
        gives(u"a", u"Relier", u"a", Reference{&leftOut}, True), gives(u"3.", u"Relier", three),
        fails(449, u"Somme", Variant::missing(), I2{1}), fails(450, u"Somme", I2{1}, I2{2}, I2{3}),
        gives(u"a.", u"Relier", u"a"), gives(u"a", u"Relier", u"a", Variant::missing(), True),
        gives(u"10.5.", u"Relier", I2{1}, R8{0.5}, u"0"), fails(450, u"Titre", u"a"),
        gives(ObjectRef{}, u"Voisin"), fails(438, u"Sommes"), fails(438, u""), fails(438, u"Somm\u00C9"),
        // clang-format on
    };
    for (const auto& call : calls) expectCall(object, call);

    writeMember(object, u"TITRE", u"neu");
    EXPECT_EQ(readMember(object, u"titre"), Variant(u"neu"));
    EXPECT_EQ(errorOfCall(u"Somme", I2{1}, CallKind::Write), 438);
    EXPECT_EQ(errorOfCall(u"Titre", u"x", CallKind::AssignReference), 438);
    EXPECT_EQ(errorOfCall(u"Voisin", newProbe(), CallKind::AssignReference), 0);
    EXPECT_TRUE(*readMember(object, u"Voisin").as<ObjectRef>());
    Variant result;
    for (const MemberId unknown : {0, 0x7FFFFFFF})
        EXPECT_EQ(object->invoke(unknown, CallKind::Method, {}, result, failure), codeOf(438));
}

TEST_F(CallByName, AVariableKeepsItsTypeOrBecomesWhatIsStored) {
    expectTwice<I4>(21, 42);
    expectTwice<I2>(20000, 20000, 6);  // the doubled value doesn't fit the caller's variable
    expectTwice<R8>(3.5, 8);
    expectTwice<Bstr>(u"21", u"42");
    expectTwice<Date>(Date{2.2}, Date{4});
    expectTwice<Variant>(u"21", I4{42});
    expectTwice<Variant>(u"0", u"0");  // what stays as it was keeps its type
    const Variant cell(makeObject<Cell>(I2{3}));
    expectTwice<Variant>(cell, cell);
    expectTwice<Variant>(I4{0x40000000}, I4{0x40000000}, 6);
    expectTwice<Variant>(u"x", u"x", 13);
    Variant cycle;
    cycle = Reference{&cycle};
    EXPECT_EQ(errorOfCall(u"Doubler", cycle), 13);
}

TEST_F(CallByName, ByReferenceVariantsArraysAndObjects) {
    Bstr text = u"a";
    I2 number = 1;
    EXPECT_EQ(errorOf([&] { callMember(object, u"Remplacer", Reference{&number}, u"x"); }), 13);
    EXPECT_EQ(number, 1);
    callMember(object, u"Remplacer", Reference{&number}, u"2");
    EXPECT_EQ(number, 2);
    callMember(object, u"Relier", u"a", Reference{&text});
    EXPECT_EQ(text, u"seen");
    Variant other = I2{5};
    callMember(object, u"Relier", u"a", Reference{&other});
    EXPECT_EQ(other, Variant(u"seen"));
    ObjectRef neighbour = newProbe();
    callMember(object, u"Libre", Reference{&neighbour});
    EXPECT_EQ(Cls_Probe::alive, 1);

    auto array = StringArray::of({u"a", u"b"});
    Variant held(array);
    Variant never;
    for (const Reference& longer : {Reference{&array}, Reference{&held}, Reference{&never}})
        callMember(object, u"Allonger", longer);
    EXPECT_EQ(array, StringArray::of({u"a", u"b", Bstr(), Bstr()}));
    EXPECT_EQ(held, Variant(array));
    EXPECT_EQ(never, Variant(StringArray::withBounds(0, 0)));
    EXPECT_EQ(errorOfCall(u"Allonger", I2{1}), 13);
}

TEST_F(CallByName, WhatIsAssignedBeforeAFailure) {
    const std::tuple<std::u16string_view, Variant, Variant> rows[] = {
        {u"PerdreDate", Date{7}, Date{7}}, {u"PerdreVerite", True, True}, {u"PerdreTexte", u"perdu", Bstr()}};
    for (auto [name, argument, expected] : rows) {
        Variant result(u"before");
        const auto member = object->memberNamed(name).value();
        EXPECT_EQ(object->invoke(member, CallKind::Method, {&argument, 1}, result, failure), codeOf(76));
        EXPECT_EQ(result, expected) << toUtf8(name);
        EXPECT_EQ(failure.description.view(), descriptionOf(76));
    }
}

TEST_F(CallByName, WhatAMemberStoresBeforeItFailsIsWrittenBack) {
    I4 number = 1;
    Bstr text = u"1";
    Variant any = u"1";
    for (const Reference& variable : {Reference{&number}, Reference{&text}, Reference{&any}})
        EXPECT_EQ(errorOf([&] { callMember(object, u"Gater", variable); }), 76);
    EXPECT_EQ(number, 99);
    EXPECT_EQ(text, u"99");
    EXPECT_EQ(any, Variant(I4{99}));
}

TEST(Failures, HaveTheirTexts) {
    const std::pair<I4, std::u16string_view> rows[] = {
        {5, u"Appel de procédure ou argument incorrect"},
        {6, u"Dépassement de capacité"},
        {7, u"Mémoire insuffisante"},
        {9, u"Indice hors des limites"},
        {10, u"Tableau fixe ou momentanément verrouillé"},
        {11, u"Division par zéro"},
        {13, u"Type incompatible"},
        {51, u"Erreur interne"},
        {53, u"Fichier introuvable"},
        {57, u"Erreur d'entrée/sortie"},
        {58, u"Le fichier existe déjà"},
        {61, u"Disque plein"},
        {70, u"Permission refusée"},
        {75, u"Accès au chemin ou au fichier impossible"},
        {76, u"Chemin introuvable"},
        {91, u"Référence d'objet vide"},
        {94, u"Utilisation incorrecte de Null"},
        {321, u"Format de fichier incorrect"},
        {429, u"Création de l'objet impossible"},
        {430, u"L'objet n'a pas cette interface"},
        {438, u"L'objet n'a pas cette propriété ou méthode"},
        {449, u"Argument obligatoire manquant"},
        {450, u"Nombre d'arguments incorrect"},
        {451, u"L'objet n'est pas une collection"},
        {453, u"Point d'entrée introuvable dans la bibliothèque"},
        {1, u""}};
    for (const auto& [number, text] : rows) EXPECT_EQ(Bstr(descriptionOf(number)), Bstr(text)) << number;
}

TEST_F(CallByName, TheObjectOutlivesItsLastOutsideReferenceAndGoesBeforeTheResultArrives) {
    EXPECT_CALL(services, pumpMessages()).WillOnce([&] {
        object = nullptr;
        EXPECT_EQ(Cls_Probe::alive, 2);
    });
    const auto show = object->memberNamed(u"Montrer").value();
    Variant result(newProbe());
    writeMember(*result.as<ObjectRef>(), u"Titre", u"result before");
    EXPECT_EQ(object->invoke(show, CallKind::Method, {}, result, failure), ReturnCode::Success);
    EXPECT_EQ(Cls_Probe::titleOfLastGone, u"result before");
    EXPECT_EQ(result, Variant(u"titre"));
    EXPECT_EQ(services.boxes, (std::vector<ShownBox>{{u"?", 0, u"HoldDLL"}}));
}

TEST_F(CallByName, FailuresPassUnchanged) {
    constexpr auto own = static_cast<I4>(0x80042345U);
    try {
        callMember(object, u"Echouer", own);
        ADD_FAILURE() << "no failure";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), own);
        EXPECT_EQ(error.description(), u"plein");
        EXPECT_EQ(error.source(), u"Disque");
    }
    EXPECT_EQ(errorOf([&] { readMember(ObjectRef{}, u"Titre"); }), 91);
    EXPECT_EQ(errorOf([&] { object->elements(); }), 451);
    EXPECT_EQ(errorOf([&] { object->query({}); }), 430);
}

TEST(FailureMarks, AStepIsIgnoredOrAHandlerEndsTheRoutine) {
    FailuresIgnored step;
    EXPECT_FALSE(step([] { raise(ErrorNumber::PathNotFound); }));
    EXPECT_EQ(step.error.description.view(), descriptionOf(76));
    EXPECT_TRUE(step([] {}));
    EXPECT_EQ(step.error.number, 76);  // until the next failure
    EXPECT_FALSE(step([] { throw std::bad_alloc(); }));
    EXPECT_EQ(step.error.number, 7);

    std::vector<I4> handled;
    const auto handler = [&](const CurrentError& error) { handled.push_back(error.number); };
    onFailure(handler, [] { raise(ErrorNumber::TypeMismatch); });
    onFailure(handler, [] {});
    EXPECT_EQ(handled, std::vector<I4>{13});
}

TEST(Catalogue, EveryMemberIsFoundByItsNameInAnyCase) {
    for (const auto& entry : catalogue()) {
        const auto& description = entry.description();
        EXPECT_EQ(findClass("KADRELDLL." + std::string(description.name)), &entry);
        for (const auto& member : description.members) {
            SCOPED_TRACE(member.name);
            const std::u16string name(member.name.begin(), member.name.end());
            auto otherCase = name;
            for (auto& c : otherCase)
                if (std::isalpha(c)) c = static_cast<char16_t>(c ^ 0x20);
            const auto first = description.names.find(name);
            ASSERT_EQ(description.names.find(otherCase), first);
            EXPECT_EQ(description.members.at(first.value()).name, member.name);
            EXPECT_EQ(description.members[*first].id, member.id);
            std::u16string wide = name;  // the same letters, seen through their low bytes only
            wide[0] = static_cast<char16_t>(wide[0] + 0x100);
            for (const auto& other : {name + u"_", name.substr(1), wide})
                EXPECT_FALSE(description.names.find(other));
        }
    }
    EXPECT_EQ(findClass("cls_DATE"), findClass("KADRELDLL.Cls_Date"));
    EXPECT_EQ(findClass("KADRELDLL."), nullptr);
    EXPECT_EQ(errorOf([] { createComponent("KADRELDLL.Cls_Rien"); }), 429);
}

}  // namespace
}  // namespace tovera::testing
