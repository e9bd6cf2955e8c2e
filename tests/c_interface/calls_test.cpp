#include <cstdlib>
#include <cstring>
#include <deque>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>
#include <thread>

#include "c_interface/host_table.h"

namespace tovera::testing {
namespace {

using ::testing::HasSubstr;

std::string textOf(const tovera_value& value) {
    return value.type == TOVERA_UTF8 && value.as.utf8.bytes ? value.as.utf8.bytes : "";
}

tovera_value text(const char* utf8) {
    return tovera_of_utf8(utf8, std::strlen(utf8));
}

/// A call with its result as a text, and the number of its failure before it.
std::string outcome(tovera_object* object, const char* name, std::vector<tovera_value> arguments) {
    tovera_value result;
    tovera_failure failure;
    const auto number = tovera_call(object, name, TOVERA_METHOD | TOVERA_READ | TOVERA_AS_UTF8,
                                    arguments.data(), arguments.size(), &result, &failure);
    EXPECT_EQ(number, failure.number);
    auto told = number == 0 ? textOf(result)
                            : std::to_string(number) + ' ' + (failure.description ? failure.description : "");
    tovera_clear(&result);
    tovera_failure_clear(&failure);
    return told;
}

/// An object of a class for the time of a test, and files of the test's own.
class Calls : public ::testing::Test {
  protected:
    Calls() {
        std::string name = "/tmp/tovera_c_XXXXXX";
        folder = mkdtemp(name.data());
        setenv("HOME", folder.c_str(), 1);
        setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
        setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    }
    ~Calls() override {
        for (auto* const object : objects) tovera_release(object);
        std::filesystem::remove_all(folder);
    }
    tovera_object* make(const char* name, tovera_host* host = nullptr) {
        return objects.emplace_back(tovera_create(host, name, nullptr));
    }
    HostTable& newTable() { return tables.emplace_back(); }
    tovera_object* make(HostTable& table) { return objects.emplace_back(table.handle()); }

    std::filesystem::path folder;
    std::vector<tovera_object*> objects;
    std::deque<HostTable> tables;
};

TEST_F(Calls, FindClassesAndMembersInAnyCase) {
    auto* const words = make("kadrelDLL.CLS_conversion");
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(outcome(words, "convertirnombreENLETTRE", {tovera_of_i4(71), tovera_of_bool(0)}),
              "soixante et onze");
    int32_t member = 0;
    EXPECT_EQ(tovera_member_named(words, "ConvertirNombreEnLettre", &member), 0);
    const auto number = tovera_of_i4(1);
    tovera_value result;
    EXPECT_EQ(tovera_invoke(words, member, TOVERA_METHOD, &number, 1, &result, nullptr), 449);
    EXPECT_EQ(tovera_invoke(words, 12345, TOVERA_METHOD, nullptr, 0, &result, nullptr), 438);
    EXPECT_EQ(tovera_member_named(words, "Rien", &member), 438);
    EXPECT_EQ(tovera_member_named(nullptr, "Rien", &member), 91);
}

TEST_F(Calls, TellFailures) {
    tovera_failure failure;
    EXPECT_EQ(tovera_create(nullptr, "Cls_Rien", &failure), nullptr);
    EXPECT_EQ(failure.number, 429);
    EXPECT_EQ(static_cast<uint32_t>(failure.code), 0x800A01ADU);
    EXPECT_STREQ(failure.description, tovera_description_of(429));
    tovera_failure_clear(&failure);

    auto* const words = make("Cls_Conversion");
    const auto one = tovera_of_i4(1);
    EXPECT_THAT(outcome(words, "ConvertirNombreEnLettre", std::vector(3, one)), HasSubstr("450 "));
    EXPECT_THAT(outcome(words, "ConvertirNombreEnLettre", std::vector(9, one)), HasSubstr("450 "));
    EXPECT_THAT(outcome(words, "Rien", {}), HasSubstr("438 "));
    EXPECT_THAT(outcome(nullptr, "Rien", {}), HasSubstr("91 "));
    const tovera_value wrong[] = {text("un"), tovera_of_bool(0)};
    EXPECT_EQ(tovera_call(words, "ConvertirNombreEnLettre", TOVERA_METHOD, wrong, 2, nullptr, &failure), 13);
    EXPECT_EQ(failure.argument, 0);
    tovera_failure_clear(&failure);
    std::string elsewhere;
    std::thread([&] { elsewhere = outcome(words, "ConvertirNombreEnLettre", {one, one}); }).join();
    EXPECT_THAT(elsewhere, HasSubstr("autre fil"));
    tovera_object* ofAnother = nullptr;
    std::thread([&] { ofAnother = tovera_create(nullptr, "Cls_Date", nullptr); }).join();
    std::thread([&] { elsewhere = outcome(ofAnother, "Chrono", {one, one}); }).join();
    EXPECT_THAT(elsewhere, HasSubstr("autre fil")) << "threads one after the other are not the same";
    const auto foreign = tovera_of_object(ofAnother);
    EXPECT_EQ(tovera_call(make("Cls_Internet"), "NSession", TOVERA_ASSIGN, &foreign, 1, nullptr, &failure),
              static_cast<int32_t>(0x8001010EU));
    tovera_failure_clear(&failure);
    tovera_release(ofAnother);
}

TEST_F(Calls, ReachFormsOfTheHost) {
    auto &form = newTable(), &label = newTable();
    std::string caption = "Quitter";
    const auto named = [](const char* name) {
        return [=](auto*, size_t, auto* result, auto*) {
            return tovera_copy_utf8(result, name, std::strlen(name));
        };
    };
    form.members["name"] = named("Feuille");
    form.members["Caption"] = named("Mon titre");
    label.members["name"] = named("Bouton");
    label.members["Caption"] = [&](auto* arguments, size_t count, auto* result, auto*) {
        if (count == 0) return tovera_copy_utf8(result, caption.data(), caption.size());
        caption = arguments[0].as.utf8.bytes;
        return 0;
    };
    label.members["Text"] = [](auto*, size_t, auto*, auto* failure) {
        return tovera_failure_set(failure, 1234, "pas de texte", "hôte");
    };
    form.elements = {make(label)};
    auto* const language = make("Cls_Traduction");
    const auto file = (folder / "langue.ini").string();
    std::vector arguments{tovera_of_object(make(form)), text(file.c_str())};
    outcome(language, "Sauver_LangueFeuille", arguments);
    std::ostringstream saved;
    saved << std::ifstream(file).rdbuf();
    EXPECT_THAT(saved.str(), HasSubstr("Feuille.Caption=Mon titre"));
    EXPECT_THAT(saved.str(), HasSubstr("Bouton.Caption=Quitter"));
    caption = "Ende";
    outcome(language, "Charger_LangueFeuille", arguments);
    EXPECT_EQ(caption, "Quitter");
    EXPECT_EQ(tovera_object_data(arguments[0].as.object, &HostTable::functions()), &form);
    EXPECT_EQ(tovera_object_data(language, &HostTable::functions()), nullptr);
}

TEST_F(Calls, LetFailuresOfTheHostThrough) {
    auto& form = newTable();
    form.members["hwnd"] = [](auto*, size_t, auto*, auto* failure) {
        return tovera_failure_set(failure, 1234, "plus de fenêtre", "hôte");
    };
    auto* const windows = make("Cls_Windows");
    EXPECT_EQ(outcome(windows, "ParcourirDossier", {tovera_of_object(make(form)), text("Titre")}),
              "1234 plus de fenêtre");
    form.members.clear();
    EXPECT_THAT(outcome(windows, "ParcourirDossier", {tovera_of_object(make(form)), text("Titre")}),
                HasSubstr("438 "));
}

/// What a host does for its objects, counted.
struct Served {
    std::vector<std::string> boxes;
    unsigned pumped = 0, mostPumps = 1000;
    HostTable session;
    std::string asked;

    static Served& of(void* data) { return *static_cast<Served*>(data); }
    static constexpr tovera_services services{
        sizeof(tovera_services),
        [](void* data, const char* shown, int32_t flags, const char* title) {
            of(data).boxes.push_back(std::string(title) + '|' + shown + '|' + std::to_string(flags));
            return 1;
        },
        [](void* data) { return ++of(data).pumped >= of(data).mostPumps ? 18 : 0; },
        [](void* data, const char* progId) {
            of(data).asked = progId;
            return of(data).session.handle();
        }};
};

TEST_F(Calls, UseTheServicesOfTheHost) {
    static Served served;  // the mail object keeps its session to the end
    auto* const host = tovera_host_new(&Served::services, &served);
    auto* const registry = make("Cls_InitREG", host);
    auto* const waiting = make("Cls_Windows", host);
    auto* const mail = make("Cls_Internet", host);
    tovera_host_free(host);
    outcome(registry, "LireREG_STRING", {text("NULLE_PART\\a"), text("b")});
    EXPECT_EQ(served.boxes.size(), 1U);
    outcome(waiting, "Wait", {tovera_of_i4(1)});
    EXPECT_GE(served.pumped, 10U);
    served.mostPumps = served.pumped + 2;
    EXPECT_THAT(outcome(waiting, "Wait", {tovera_of_i4(3600)}), HasSubstr("18 "));
    const auto none = text("");
    outcome(mail, "EcrireEmail_LotusNotes", {none, none, none, none, tovera_of_bool(0)});
    EXPECT_EQ(served.asked, "Notes.Notessession");
}

TEST_F(Calls, DropTheHostsObjectsWithTheLastReference) {
    unsigned dropped = 0;
    HostTable table;
    table.dropped = &dropped;
    auto* const object = table.handle();
    tovera_retain(object);
    tovera_release(object);
    EXPECT_EQ(dropped, 0U);
    tovera_release(object);
    EXPECT_EQ(dropped, 1U);
    for (int i = 0; i < 1000; ++i) tovera_release(tovera_create(nullptr, "Cls_Date", nullptr));
}

TEST(Descriptions, TellTheClassTable) {
    size_t count = 0;
    const auto* const* const classes = tovera_classes(&count);
    ASSERT_EQ(count, 11U);
    size_t members = 0;
    for (size_t i = 0; i < count; ++i) {
        EXPECT_EQ(tovera_find_class(classes[i]->prog_id), classes[i]);
        members += classes[i]->member_count;
    }
    EXPECT_GE(members, 154U);
    const auto* const words = tovera_find_class("cls_conversion");
    ASSERT_NE(words, nullptr);
    EXPECT_STREQ(words->prog_id, "KADRELDLL.Cls_Conversion");
    EXPECT_EQ(tovera_find_class("Cls_Rien"), nullptr);
    EXPECT_STREQ(tovera_version(), "1.0.0");
}

}  // namespace
}  // namespace tovera::testing
