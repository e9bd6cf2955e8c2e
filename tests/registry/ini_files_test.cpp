#include <gtest/gtest.h>

#include "registry/cls_initreg.h"
#include "support/file_system_double.h"

namespace tovera::testing {
namespace {

using ::testing::_;
using ::testing::AllOf;
using ::testing::Field;
using ::testing::Return;

auto isText(const std::string& bytes) {
    return AllOf(Field(&AnsiText::bytes, bytes), Field(&AnsiText::isNull, false));
}

struct IniFiles : ::testing::Test {
    TestPlatform test;
    MockKernel32& port = test.kernel32;
    Cls_InitREG ini{test.platform};
    Bstr section = u"sec\u0142ion";
    Bstr key = u"cl\u00E9";
    Bstr byDefault = u"d";
    Bstr file = u"f.ini";
    ::testing::Matcher<const AnsiText&> isSection = isText("sec?ion"), isKey = isText("cl\xE9");
};

TEST_F(IniFiles, WritesHandTheTextsOver) {
    EXPECT_CALL(port, WritePrivateProfileStringA(isSection, isKey, isText("d"), isText("f.ini")))
        .WillOnce(Return(7));
    EXPECT_EQ(ini.IniEcrire(section, key, byDefault, file), 7);
    EXPECT_EQ(section, Bstr(u"sec?ion"));
    EXPECT_CALL(port, WriteProfileStringA(isSection, isKey, isText("d"))).WillOnce(Return(0));
    EXPECT_EQ(ini.WinIniEcrire(section, key, byDefault), 0);
    Bstr null;
    const auto isNull = Field(&AnsiText::isNull, true);
    EXPECT_CALL(port, WritePrivateProfileStringA(_, isNull, isNull, _)).WillOnce(Return(1));
    EXPECT_EQ(ini.IniEcrire(section, null, null, file), 1);
    EXPECT_TRUE(null.isNull());
}

TEST_F(IniFiles, ReadsGiveWhatTheCountSays) {
    const struct {
        std::string filled;
        I4 count;
        std::u16string expected;
    } rows[] = {{{"v\0w\0", 4}, 3, {u"v\0w", 3}},
                {{"\0", 1}, 0, u""},
                {{"\x80\0", 2}, 1, u"\u0080"},
                {"", 2, u"  "},
                {"x", 400, u'x' + std::u16string(254, u' ')}};
    for (const auto& row : rows) {
        const auto fill = [&](AnsiText& buffer) {
            EXPECT_EQ(buffer.bytes, std::string(255, ' '));
            buffer.bytes.replace(0, row.filled.size(), row.filled);
            return row.count;
        };
        const auto isDefault = isText("d");
        EXPECT_CALL(port, GetPrivateProfileStringA(isSection, isKey, isDefault, _, isText("f.ini")))
            .WillOnce([&](auto&, auto&, auto&, AnsiText& buffer, auto&) { return fill(buffer); });
        EXPECT_CALL(port, GetProfileStringA(isSection, isKey, isDefault, _))
            .WillOnce([&](auto&, auto&, auto&, AnsiText& buffer) { return fill(buffer); });
        EXPECT_CALL(port, GetSystemDirectoryA).WillOnce(fill);
        EXPECT_CALL(port, GetWindowsDirectoryA).WillOnce(fill);
        const auto fillName = [&](const AnsiText& name, AnsiText& buffer) {
            EXPECT_EQ(name.bytes, "nom?");
            return fill(buffer);
        };
        EXPECT_CALL(port, GetLongPathNameA).WillOnce(fillName);
        EXPECT_CALL(port, GetShortPathNameA).WillOnce(fillName);
        const Bstr results[] = {ini.IniLire(section, key, byDefault, file),
                                ini.WinIniLire(section, key, byDefault),
                                ini.RetourneCheminSystem(),
                                ini.RetourneCheminWindows(),
                                ini.GET_NomLong(u"nom\u0142"),
                                ini.GET_NomCourt(u"nom\u0142")};
        for (const auto& result : results) EXPECT_EQ(result, Bstr(row.expected));
    }
}

TEST_F(IniFiles, OnlyIniLireHasAFailureOfItsOwn) {
    const auto fail = [](auto&&...) -> I4 { raise(ErrorNumber::EntryPointNotFound); };
    EXPECT_CALL(port, GetPrivateProfileStringA).WillOnce(fail);
    try {
        ini.IniLire(section, key, byDefault, file);
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), -2147156504);
        EXPECT_EQ(error.source(), Bstr(u"HoldDLL.clsInit!IniLire"));
        EXPECT_TRUE(error.description().empty());
    }
    EXPECT_CALL(port, GetProfileStringA).WillOnce(fail);
    EXPECT_EQ(errorOf([&] { ini.WinIniLire(section, key, byDefault); }), 453);
    EXPECT_CALL(port, WritePrivateProfileStringA).WillOnce(fail);
    EXPECT_EQ(errorOf([&] { ini.IniEcrire(section, key, byDefault, file); }), 453);
    EXPECT_CALL(port, GetLongPathNameA).WillOnce(fail);
    EXPECT_EQ(errorOf([&] { ini.GET_NomLong(u"a"); }), 453);
}

TEST_F(IniFiles, RenameTellsFailureByFalse) {
    const auto fail = [](auto&&...) { raise(ErrorNumber::FileExists); };
    EXPECT_CALL(test.files, rename(Bstr(u"a"), Bstr(u"b"))).WillOnce(Return()).WillOnce(fail);
    EXPECT_EQ(ini.RenommerFichier(u"a", u"b"), True);
    EXPECT_EQ(ini.RenommerFichier(u"a", u"b"), False);
}

TEST_F(IniFiles, ExistenceIsAskedOfAFileSystemObject) {
    const std::u16string_view progId = u"Scripting.FileSystemObject";
    EXPECT_CALL(test.services, createObject(progId))
        .WillOnce([](auto) { return makeObject<FileSystemDouble>(u"f.ini"); })
        .WillOnce([](auto) -> ObjectRef { raise(ErrorNumber::CannotCreateObject); });
    EXPECT_EQ(ini.FichierExiste(file), True);
    EXPECT_EQ(file, Bstr(u"asked: f.ini"));
    EXPECT_EQ(errorOf([&] { ini.DossierExiste(file); }), 429);
}

}  // namespace
}  // namespace tovera::testing
