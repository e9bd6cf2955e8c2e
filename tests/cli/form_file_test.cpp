#include "cli/form_file.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "cli/form_classes.h"
#include "cli/form_object.h"
#include "language/cls_traduction.h"
#include "platform/linux/temporary_folder.h"
#include "support/test_platform.h"

namespace tovera::cli {
namespace {

using testing::errorOf;

constexpr const char* textNames[] = {"Caption", "Text", "ToolTipText"};

/// The bytes of the sample forms, by their file names.
std::vector<std::pair<std::string, std::string>> samples() {
    std::vector<std::pair<std::string, std::string>> all;
    const auto root = std::filesystem::path(TOVERA_ROOT);
    for (const auto& entry : std::filesystem::directory_iterator(root / "examples/forms/samples"))
        all.emplace_back(entry.path().filename(), testing::contentOf(entry.path()));
    EXPECT_GE(all.size(), 20U);
    return all;
}

std::shared_ptr<FormDocument> documentOf(std::string bytes) {
    return std::make_shared<FormDocument>(std::move(bytes), home().services);
}

std::string formWith(std::string_view block) {
    return "VERSION 5.00\r\nBegin VB.Form F \r\n" + std::string(block) + "End\r\n";
}

TEST(FormFile, ComesBackUntouchedFromALanguageFileThatNobodyTranslated) {
    Cls_Traduction traduction;
    const testing::TemporaryFolder folder;
    for (const auto& [name, bytes] : samples()) {
        const auto document = documentOf(bytes);
        const auto form = formObject(document);
        Bstr file(std::filesystem::path(folder / (name + ".lng")).u16string());
        EXPECT_EQ(traduction.Sauver_LangueFeuille(form, file), Variant(u""));
        EXPECT_EQ(traduction.Charger_LangueFeuille(form, file), Variant(u"")) << name;
        EXPECT_FALSE(document->isChanged()) << name;
        EXPECT_EQ(document->bytes(), bytes);
    }
}

/// Calls a function with the place of every text that has a line and can be changed.
template <class Change>
void forTexts(FormDocument& document, Change change) {
    const FormFile& file = document.file();
    for (std::size_t block = 0; block < file.blocks.size(); ++block) {
        for (const auto* name : textNames) {
            const bool hasLine = findProperty(file.blocks[block], name) != nullptr;
            if (hasLine && accessTo(file, file.blocks[block], name) == TextAccess::ReadWrite)
                change(block, name);
        }
    }
}

TEST(FormFile, ChangesTheTextsAndNothingElse) {
    for (const auto& [name, bytes] : samples()) {
        SCOPED_TRACE(name);
        const auto original = documentOf(bytes);
        const auto translated = documentOf(bytes);
        forTexts(*original, [&](std::size_t block, const char* property) {
            translated->setText(block, property, join(u"\"Ã\" ", original->text(block, property), u"\""));
        });
        const auto restored = documentOf(translated->bytes());
        EXPECT_EQ(restored->bytes() != bytes, translated->isChanged());
        forTexts(*original, [&](std::size_t block, const char* property) {
            EXPECT_EQ(restored->text(block, property), translated->text(block, property));
            restored->setText(block, property, original->text(block, property));
        });
        EXPECT_EQ(restored->bytes(), bytes);
    }
}

TEST(FormFile, IsRefusedWhereverItIsCutOffOrBroken) {
    const auto accepts = [](const std::string& bytes) {
        const auto error = errorOf([&] { readFormFile(bytes); });
        EXPECT_TRUE(error == 0 || error == 321) << bytes;
        return error == 0;
    };
    for (const auto& [name, bytes] : samples()) {
        std::size_t length = 0;
        while (length < bytes.size() && !accepts(bytes.substr(0, length))) ++length;
        const auto end = bytes.substr(0, length).substr(length - 4);
        EXPECT_TRUE(end == "\nEnd" || end == "\nEND") << name;
        while (length < bytes.size() && accepts(bytes.substr(0, length))) ++length;
        EXPECT_EQ(length, bytes.size()) << name;
    }
    const std::string whole = "Begin VB.Form F\r\nEnd\r\n";
    const std::string font = "   BeginProperty Font\r\n";
    const std::string broken[] = {
        // clang-format off
        whole, "VERSION five\r\n" + whole, "VERSION 1e300\r\n" + whole,
        "VERSION 5.00\r\nType = Exe\r\n" + whole, "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1\r\nEND\r\n",
        formWith("   Caption = \"never closed\r\n"), formWith("   Caption\r\n"), formWith("   =   5\r\n"),
        formWith("   EndProperty\r\n"), formWith("   Begin VB.Label\r\n   End\r\n"), formWith(font),
        formWith(font + "      Begin VB.Label L\r\n      End\r\n   EndProperty\r\n"),
        // clang-format on
    };
    for (const auto& bytes : broken) EXPECT_FALSE(accepts(bytes)) << bytes;
}

TEST(FormFile, GivesANewTextALineInItsAlphabeticalPlace) {
    const std::string font =
        "      BeginProperty Font \r\n         Size            =   8\r\n      EndProperty\r\n";
    const std::string label = "   Begin VB.Label L \r\n", height = "      Height          =   255\r\n";
    const std::array<std::string, 3> rows[] = {
        // clang-format off
        {label + height, "      ToolTipText     =   \"new\"\r\n", "      Width           =   9\r\n   End\r\n"},
        {label, "      Caption         =   \"new\"\r\n", font + "   End\r\n"},
        {label + font, "      ToolTipText     =   \"new\"\r\n", "   End\r\n"},
        {label + height, "      ToolTipText     =   \"new\"\r\n", "      Begin VB.Timer T \r\n      End\r\n   End\r\n"},
        {"\tBegin VB.Label L\n", "\t\tCaption         =   \"new\"\n", "\tEnd\n"},
        {" Begin VB.Label L\n", "  ToolTipText=\"new\"\n", "  Top=1\n  Width=2\n End\n"},
        {" Begin VB.Label L\n", "  Caption = \"new\"\n", "  Left = 1\n  Visible = 0\n End\n"},
        // clang-format on
    };
    for (const auto& [head, added, tail] : rows) {
        const auto document = documentOf(formWith(head + tail));
        const bool isCaption = added.find("Caption") != added.npos;
        document->setText(1, isCaption ? "Caption" : "ToolTipText", u"new");
        EXPECT_EQ(document->bytes(), formWith(head + added + tail));
    }
}

TEST(FormFile, KnowsWhichTextsAControlHas) {
    using enum TextAccess;
    const struct {
        std::string_view control;  ///< its class and its properties
        TextAccess access[3];
        std::string_view version = "5.00";
    } rows[] = {
        // clang-format off
        {"VB.Label L\n", {ReadWrite, None, ReadWrite}}, {"TextBox L\n", {None, ReadWrite, ReadWrite}},
        {"VB.Label L\n", {ReadWrite, None, None}, "4.00"}, {"VB.Timer L\n", {None, None, None}},
        {"VB.TextBox L\n Text = \"x.frx\":0000\n ToolTipText = $\"x.frx\":0000\n", {None, None, None}},
        {"VB.ComboBox L\n Style = 2 'Dropdown List\n Text = \"a\"\n", {None, Read, ReadWrite}},
        {"VB.ListBox L\n Text = \"a\"\n", {None, Read, ReadWrite}},
        {"Lib.Other L\n Caption = \"a\"\n Text = \"x.frx\":0000\n", {ReadWrite, None, None}},
        // clang-format on
    };
    for (const auto& row : rows) {
        const auto file = readFormFile("VERSION " + std::string(row.version) + "\nBegin VB.Form F\nBegin " +
                                       std::string(row.control) + "End\nEnd\n");
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(accessTo(file, file.blocks[1], textNames[i]), row.access[i]) << row.control << i;
    }
}

TEST(FormFile, TakesOnlyTextsThatItCanHoldAndThatSaySomethingNew) {
    const std::u16string phrase(300, u'x'), cut(254, u'x');
    const struct {
        std::u16string_view present, text, after;
        I4 error = 0;
    } rows[] = {
        // clang-format off
        {u"Oui", u"Yes \u20ac", u"Yes \u20ac"}, {u"Oui", u"", u""}, {u" Oui ", u"Oui", u" Oui "},
        {u" Oui ", u" Oui", u" Oui "}, {u"Oui", u" Oui ", u" Oui "}, {u"'Oui'", u"Oui", u"'Oui'"},
        {u"   ", u"", u"   "}, {phrase, cut, phrase}, {phrase, u"court", u"court"},
        {u"Oui", u"Oui\r\nNon", u"Oui", 5}, {u"Oui", u"Oui\r", u"Oui", 5}, {u"Oui", u"\u0416", u"Oui", 5},
        {u"Oui", u"a\tb", u"a\tb"}, {u"\vOui\x1a", u"Oui", u"\vOui\x1a"}, {u"Oui\t ", u"Oui\t", u"Oui\t "},
        {u"Oui\rNon", u"Oui", u"Oui\rNon"}, {{u"Oui\0Non", 7}, u"Oui", {u"Oui\0Non", 7}},
        {u" 'Oui' ", u"'Oui'", u"'Oui'"},
        // clang-format on
    };
    for (const auto& row : rows) {
        const auto text = home().services.toAnsi(row.present);
        const auto document = documentOf("VERSION 5.00\nBegin VB.Form F\nCaption=\"" + text + "\"\nEnd");
        EXPECT_EQ(errorOf([&] { document->setText(0, "Caption", Bstr(row.text)); }), row.error);
        EXPECT_EQ(document->text(0, "Caption"), Bstr(row.after));
        EXPECT_EQ(document->isChanged(), row.after != row.present);
    }
}

TEST(FormFile, IsALateBoundForm) {
    const auto form = formObject(documentOf(
        formWith("   Begin VB.ComboBox Liste\n Index = 3\n Height = &H8000000F&\n Shortcut = ^P\n Style = 2\n"
                 " Tag = \"t\"\"\"\n Width = 1.5\n End\n Begin VB.Line Trait\n End\n")));
    const auto elements = form->elements();
    const auto list = *elements->next()->as<ObjectRef>();
    const std::tuple<ObjectRef, std::u16string_view, Variant> properties[] = {
        // clang-format off
        {form, u"NAME", u"F"}, {form, u"caption", u""}, {list, u"Index", I2{3}}, {list, u"Width", 1.5},
        {list, u"Height", static_cast<I4>(0x8000000F)}, {list, u"Tag", u"t\""}, {list, u"Text", u""},
        // clang-format on
    };
    for (const auto& [object, name, value] : properties) EXPECT_EQ(readMember(object, name), value);
    for (const auto* member : {u"Shortcut", u"Caption", u"Nothing"})
        EXPECT_EQ(errorOf([&] { readMember(list, member); }), 438);
    for (const auto* member : {u"Text", u"name", u"Tag"})
        EXPECT_EQ(errorOf([&] { writeMember(list, member, u"x"); }), 438);
    EXPECT_EQ(errorOf([&] { callMember(list, u"ToolTipText", u"x"); }), 450);
    EXPECT_EQ(errorOf([&] { list->query({}); }), 430);
    elements->next();
    EXPECT_FALSE(elements->next());
}

}  // namespace
}  // namespace tovera::cli
