#include "cli/form_file.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "cli/form_classes.h"
#include "cli/form_object.h"
#include "frame/error.h"
#include "language/cls_traduction.h"
#include "support/test_platform.h"

namespace tovera::cli {
namespace {

using testing::errorOf;

struct Sample {
    std::string name;
    std::string bytes;
};

std::vector<Sample> samples() {
    std::vector<Sample> all;
    const auto folder = std::filesystem::path(__FILE__).parent_path().parent_path() / "language" / "forms";
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        all.push_back({entry.path().filename(), {std::istreambuf_iterator<char>(file), {}}});
    }
    EXPECT_GE(all.size(), 20U);
    return all;
}

std::shared_ptr<FormDocument> documentOf(std::string bytes) {
    return std::make_shared<FormDocument>(std::move(bytes), home().services);
}

std::string head(std::string_view block) {
    return "VERSION 5.00\r\nBegin VB.Form F \r\n" + std::string(block) + "End\r\n";
}

TEST(FormFile, ComesBackUntouchedFromALanguageFileThatNobodyTranslated) {
    Cls_Traduction traduction;
    const auto language = std::filesystem::path(::testing::TempDir()) / "untranslated.lng";
    for (const auto& sample : samples()) {
        std::filesystem::remove(language);
        const auto document = documentOf(sample.bytes);
        const auto form = formObject(document);
        Bstr file(language.u16string());
        EXPECT_EQ(traduction.Sauver_LangueFeuille(form, file), Variant(u""));
        EXPECT_EQ(traduction.Charger_LangueFeuille(form, file), Variant(u"")) << sample.name;
        EXPECT_FALSE(document->isChanged()) << sample.name;
        EXPECT_EQ(document->bytes(), sample.bytes);
    }
}

constexpr std::string_view textNames[] = {"Caption", "Text", "ToolTipText"};

/// Gives every text that has a line the text that `change` makes of it; the number of those texts.
template <class Change>
std::size_t changeTexts(FormDocument& document, Change change) {
    std::size_t count = 0;
    for (std::size_t block = 0; block < document.file().blocks.size(); ++block) {
        for (const auto name : textNames) {
            const bool hasLine = findProperty(document.file().blocks[block], name) != nullptr;
            if (!hasLine ||
                accessTo(document.file(), document.file().blocks[block], name) != TextAccess::ReadWrite)
                continue;
            document.setText(block, name, change(block, name));
            ++count;
        }
    }
    return count;
}

TEST(FormFile, ChangesTheTextsAndNothingElse) {
    for (const auto& sample : samples()) {
        const auto original = documentOf(sample.bytes);
        const auto translated = documentOf(sample.bytes);
        const auto count = changeTexts(*translated, [&](std::size_t block, std::string_view name) {
            return join(u"\"Ã\" ", original->text(block, name), u"\"");
        });
        ASSERT_EQ(translated->isChanged(), count > 0) << sample.name;
        const auto restored = documentOf(translated->bytes());
        EXPECT_EQ(restored->bytes() == sample.bytes, count == 0) << sample.name;
        changeTexts(*restored, [&](std::size_t block, std::string_view name) {
            EXPECT_EQ(restored->text(block, name), translated->text(block, name)) << sample.name;
            return original->text(block, name);
        });
        EXPECT_EQ(restored->bytes().size(), sample.bytes.size()) << sample.name;
    }
}

TEST(FormFile, IsRefusedWhereverItIsCutOff) {
    for (const auto& sample : samples()) {
        const auto accepts = [&](std::size_t length) {
            return errorOf([&] { readFormFile(sample.bytes.substr(0, length)); }) == 0;
        };
        std::size_t length = 0;
        while (length < sample.bytes.size() && !accepts(length)) ++length;
        const auto end = sample.bytes.substr(0, length).substr(length - 4);
        EXPECT_TRUE(end == "\nEnd" || end == "\nEND") << sample.name;
        while (length < sample.bytes.size() && accepts(length)) ++length;
        EXPECT_EQ(length, sample.bytes.size()) << sample.name;
    }
}

TEST(FormFile, IsRefusedWhenItIsBroken) {
    const std::string broken[] = {
        "",
        "Begin VB.Form F\r\nEnd\r\n",
        "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1\r\nEND\r\n",
        "VERSION five\r\nBegin VB.Form F\r\nEnd\r\n",
        "VERSION 1e300\r\nBegin VB.Form F\r\nEnd\r\n",
        "VERSION 5.00\r\nType = Exe\r\nBegin VB.Form F\r\nEnd\r\n",
        "V\0E\0R\0S\0I\0O\0N\0 \0"
        "5\0.\0",
        head("   Caption         =   \"never closed\r\n"),
        head("   Caption\r\n"),
        head("   =   5\r\n"),
        head("   BeginProperty Font\r\n"),
        head("   BeginProperty Font\r\n      Begin VB.Label L\r\n      End\r\n   EndProperty\r\n"),
        head("   EndProperty\r\n"),
        head("   Begin VB.Label L\r\n"),
        head("   Begin VB.Label\r\n   End\r\n"),
        "VERSION 5.00\rBegin VB.Form F\rEnd\r",
    };
    for (const auto& bytes : broken) EXPECT_EQ(errorOf([&] { readFormFile(bytes); }), 321) << bytes;
}

struct Addition {
    std::string_view before;
    std::string_view property;
    std::string_view after;
};

TEST(FormFile, GivesANewTextALineInItsAlphabeticalPlace) {
    const Addition additions[] = {
        {"   Begin VB.Label L \r\n      Height          =   255\r\n      Width           =   9\r\n   End\r\n",
         "ToolTipText",
         "   Begin VB.Label L \r\n      Height          =   255\r\n      ToolTipText     =   \"new\"\r\n"
         "      Width           =   9\r\n   End\r\n"},
        {"   Begin VB.Label L \r\n      BeginProperty Font \r\n         Size            =   8\r\n      "
         "EndProperty\r\n   End\r\n",
         "Caption",
         "   Begin VB.Label L \r\n      Caption         =   \"new\"\r\n      BeginProperty Font \r\n"
         "         Size            =   8\r\n      EndProperty\r\n   End\r\n"},
        {"   Begin VB.Label L \r\n      BeginProperty Font \r\n         Size            =   8\r\n      "
         "EndProperty\r\n   End\r\n",
         "ToolTipText",
         "   Begin VB.Label L \r\n      BeginProperty Font \r\n         Size            =   8\r\n      "
         "EndProperty\r\n"
         "      ToolTipText     =   \"new\"\r\n   End\r\n"},
        {"   Begin VB.Frame L \r\n      Height          =   255\r\n      Begin VB.Timer T \r\n      End\r\n  "
         " End\r\n",
         "ToolTipText",
         "   Begin VB.Frame L \r\n      Height          =   255\r\n      ToolTipText     =   \"new\"\r\n"
         "      Begin VB.Timer T \r\n      End\r\n   End\r\n"},
        {"   Begin VB.Label L\n   End\r\n", "Caption",
         "   Begin VB.Label L\n      Caption         =   \"new\"\n   End\r\n"},
        {"\tBegin VB.Label L\n\tEnd\n", "Caption",
         "\tBegin VB.Label L\n\t\tCaption         =   \"new\"\n\tEnd\n"},
        {" Begin VB.Label L\n  Top=1\n  Width=2\n End\n", "ToolTipText",
         " Begin VB.Label L\n  ToolTipText=\"new\"\n  Top=1\n  Width=2\n End\n"},
        {" Begin VB.Label L\n  Left = 1\n  Visible = 0\n End\n", "Caption",
         " Begin VB.Label L\n  Caption = \"new\"\n  Left = 1\n  Visible = 0\n End\n"},
    };
    for (const auto& addition : additions) {
        const auto document = documentOf(head(addition.before));
        document->setText(1, addition.property, u"new");
        EXPECT_EQ(document->bytes(), head(addition.after));
    }
}

struct Access {
    std::string_view block;
    std::string_view property;
    TextAccess access;
};

TEST(FormFile, KnowsWhichTextsAControlHas) {
    using enum TextAccess;
    const std::string_view label = "Begin VB.Label L\nEnd\n";
    const std::string_view list = "Begin VB.ComboBox L\n Style = 2 'Dropdown List\n Text = \"a\"\nEnd\n";
    const std::string_view other = "Begin Lib.Other L\n Caption = \"a\"\n Text = \"x.frx\":0000\nEnd\n";
    const Access cases[] = {
        {label, "Caption", ReadWrite},
        {label, "ToolTipText", ReadWrite},
        {label, "Text", None},
        {"Begin VB.TextBox L\nEnd\n", "Text", ReadWrite},
        {"Begin VB.TextBox L\n Text = \"x.frx\":0000\nEnd\n", "Text", None},
        {"Begin VB.TextBox L\n ToolTipText = $\"x.frx\":0000\nEnd\n", "ToolTipText", None},
        {"Begin TextBox L\nEnd\n", "Text", ReadWrite},
        {"Begin VB.ComboBox L\nEnd\n", "Text", ReadWrite},
        {list, "Text", Read},
        {list, "ToolTipText", ReadWrite},
        {"Begin VB.ListBox L\nEnd\n", "Text", Read},
        {"Begin VB.Timer L\nEnd\n", "ToolTipText", None},
        {"Begin VB.Menu L\nEnd\n", "Caption", ReadWrite},
        {"Begin VB.Menu L\nEnd\n", "ToolTipText", None},
        {other, "Caption", ReadWrite},
        {other, "Text", None},
        {other, "ToolTipText", None},
    };
    for (const auto& row : cases) {
        const auto file = readFormFile(head(row.block));
        EXPECT_EQ(accessTo(file, file.blocks[1], row.property), row.access) << row.block << row.property;
    }
    const auto old = readFormFile("VERSION 4.00\nBegin VB.Form F\nBegin VB.Label L\nEnd\nEnd\n");
    EXPECT_EQ(accessTo(old, old.blocks[1], "ToolTipText"), None);
    EXPECT_EQ(accessTo(old, old.blocks[1], "Caption"), ReadWrite);
}

struct Assignment {
    std::u16string_view present;
    std::u16string_view text;
    I4 error;
    std::u16string_view after;
};

TEST(FormFile, TakesOnlyTextsThatItCanHoldAndThatSaySomethingNew) {
    const std::u16string phrase(300, u'x');
    const std::u16string cut(254, u'x');
    const Assignment assignments[] = {
        {u"Oui", u"Yes \u20ac", 0, u"Yes \u20ac"},
        {u"Oui", u"", 0, u""},
        {u" Oui ", u"Oui", 0, u" Oui "},
        {u" Oui ", u" Oui", 0, u" Oui "},
        {u"Oui", u" Oui ", 0, u" Oui "},
        {u"'Oui'", u"Oui", 0, u"'Oui'"},
        {u"   ", u"", 0, u"   "},
        {phrase, cut, 0, phrase},
        {phrase, u"court", 0, u"court"},
        {u"Oui", u"Oui\r\nNon", 5, u"Oui"},
        {u"Oui", u"\u0416", 5, u"Oui"},
        {u"Oui", u"a\tb", 0, u"a\tb"},
    };
    for (const auto& row : assignments) {
        const auto text = home().services.toAnsi(row.present);
        const auto document = documentOf("VERSION 5.00\nBegin VB.Form F\nCaption=\"" + text + "\"\nEnd");
        EXPECT_EQ(errorOf([&] { document->setText(0, "Caption", Bstr(row.text)); }), row.error);
        EXPECT_EQ(document->text(0, "Caption"), Bstr(row.after));
        EXPECT_EQ(document->isChanged(), row.after != row.present);
    }
}

TEST(FormFile, IsALateBoundForm) {
    const auto form = formObject(documentOf(
        head("   Begin VB.ComboBox Liste\n Index = 3\n Height = &H8000000F&\n Shortcut = ^P\n Style = 2\n"
             " Tag = \"t\"\"\"\n Width = 1.5\n End\n Begin VB.Line Trait\n End\n")));
    EXPECT_EQ(readMember(form, u"NAME"), Variant(u"F"));
    EXPECT_EQ(readMember(form, u"caption"), Variant(u""));
    EXPECT_EQ(errorOf([&] { readMember(form, u"hwnd"); }), 438);

    const auto elements = form->elements();
    const auto list = *elements->next()->as<ObjectRef>();
    EXPECT_EQ(readMember(list, u"Index"), Variant(I2{3}));
    EXPECT_EQ(readMember(list, u"Height"), Variant(static_cast<I4>(0x8000000F)));
    EXPECT_EQ(readMember(list, u"Width"), Variant(1.5));
    EXPECT_EQ(readMember(list, u"Tag"), Variant(u"t\""));
    EXPECT_EQ(readMember(list, u"Text"), Variant(u""));
    for (const auto* member : {u"Shortcut", u"Caption", u"Nothing"})
        EXPECT_EQ(errorOf([&] { readMember(list, member); }), 438);
    for (const auto* member : {u"Text", u"name", u"Tag"})
        EXPECT_EQ(errorOf([&] { writeMember(list, member, u"x"); }), 438);
    EXPECT_EQ(errorOf([&] { callMember(list, u"ToolTipText", u"x"); }), 450);

    const auto line = *elements->next()->as<ObjectRef>();
    EXPECT_EQ(errorOf([&] { readMember(line, u"Index"); }), 438);
    EXPECT_EQ(errorOf([&] { line->query({}); }), 430);
    EXPECT_FALSE(elements->next());
}

}  // namespace
}  // namespace tovera::cli
