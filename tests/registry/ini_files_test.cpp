#include <gtest/gtest.h>

#include "registry/cls_initreg.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

using ::testing::_;
using ::testing::AllOf;
using ::testing::Field;
using ::testing::Return;

auto isText(const std::string& bytes) {
    return AllOf(Field(&AnsiText::bytes, bytes), Field(&AnsiText::isNull, false));
}
auto isNullText() {
    return Field(&AnsiText::isNull, true);
}

/// Writes bytes at the beginning of a buffer that is to be 255 blanks, and gives a count.
auto filling(const std::string& bytes, I4 count) {
    return [=](AnsiText& buffer) {
        EXPECT_EQ(buffer.bytes, std::string(255, ' '));
        buffer.bytes.replace(0, bytes.size(), bytes);
        return count;
    };
}

struct IniFiles : ::testing::Test {
    TestPlatform test;
    Cls_InitREG ini{test.platform};
    Bstr section = u"sec\u0142ion";
    Bstr key = u"cl\u00E9";
    Bstr byDefault = u"d";
    Bstr file = u"f.ini";
};

TEST_F(IniFiles, WritesHandTheTextsOver) {
    EXPECT_CALL(test.kernel32,
                WritePrivateProfileStringA(isText("sec?ion"), isText("cl\xE9"), isText("d"), isText("f.ini")))
        .WillOnce(Return(7));
    EXPECT_EQ(ini.IniEcrire(section, key, byDefault, file), 7);
    EXPECT_EQ(section, Bstr(u"sec?ion"));
    EXPECT_CALL(test.kernel32, WriteProfileStringA(isText("sec?ion"), isText("cl\xE9"), isText("d")))
        .WillOnce(Return(0));
    EXPECT_EQ(ini.WinIniEcrire(section, key, byDefault), 0);
    Bstr null;
    EXPECT_CALL(test.kernel32, WritePrivateProfileStringA(_, isNullText(), isNullText(), _))
        .WillOnce(Return(1));
    EXPECT_EQ(ini.IniEcrire(section, null, null, file), 1);
    EXPECT_TRUE(null.isNull());
}

TEST_F(IniFiles, ReadsGiveWhatTheCountSays) {
    const struct {
        std::string filled;
        I4 count;
        std::u16string expected;
    } rows[] = {
        {{"v\0w\0", 4}, 3, {u"v\0w", 3}},
        {{"\0", 1}, 0, u""},
        {{"\x80\0", 2}, 1, u"\u0080"},
        {"", 2, u"  "},
        {"x", 400, u'x' + std::u16string(254, u' ')},
    };
    for (const auto& row : rows) {
        const auto fill = filling(row.filled, row.count);
        EXPECT_CALL(test.kernel32, GetPrivateProfileStringA(isText("sec?ion"), isText("cl\xE9"), isText("d"),
                                                            _, isText("f.ini")))
            .WillOnce([&](auto&, auto&, auto&, AnsiText& buffer, auto&) { return fill(buffer); });
        EXPECT_EQ(ini.IniLire(section, key, byDefault, file), Bstr(row.expected));
        EXPECT_CALL(test.kernel32, GetProfileStringA(isText("sec?ion"), isText("cl\xE9"), isText("d"), _))
            .WillOnce([&](auto&, auto&, auto&, AnsiText& buffer) { return fill(buffer); });
        EXPECT_EQ(ini.WinIniLire(section, key, byDefault), Bstr(row.expected));
        EXPECT_CALL(test.kernel32, GetSystemDirectoryA(_)).WillOnce(fill);
        EXPECT_EQ(ini.RetourneCheminSystem(), Bstr(row.expected));
        EXPECT_CALL(test.kernel32, GetWindowsDirectoryA(_)).WillOnce(fill);
        EXPECT_EQ(ini.RetourneCheminWindows(), Bstr(row.expected));
    }
}

TEST_F(IniFiles, OnlyIniLireHasAFailureOfItsOwn) {
    const auto fail = [](auto&&...) -> I4 { raise(ErrorNumber::FileNotFound); };
    EXPECT_CALL(test.kernel32, GetPrivateProfileStringA).WillOnce(fail);
    EXPECT_CALL(test.kernel32, GetProfileStringA).WillOnce(fail);
    EXPECT_CALL(test.kernel32, WritePrivateProfileStringA).WillOnce(fail);
    EXPECT_CALL(test.kernel32, GetWindowsDirectoryA).WillOnce(fail);
    try {
        ini.IniLire(section, key, byDefault, file);
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), -2147156504);
        EXPECT_EQ(error.source(), Bstr(u"HoldDLL.clsInit!IniLire"));
        EXPECT_TRUE(error.description().empty());
    }
    EXPECT_EQ(errorOf([&] { ini.WinIniLire(section, key, byDefault); }), 53);
    EXPECT_EQ(errorOf([&] { ini.IniEcrire(section, key, byDefault, file); }), 53);
    EXPECT_EQ(errorOf([&] { ini.RetourneCheminWindows(); }), 53);
}

TEST_F(IniFiles, LongAndShortNamesLeaveTheCallersText) {
    const Bstr name = u"nom\u0142";
    EXPECT_CALL(test.kernel32, GetLongPathNameA(isText("nom?"), _)).WillOnce([](auto&, AnsiText& buffer) {
        return filling("Long\0", 4)(buffer);
    });
    EXPECT_EQ(ini.GET_NomLong(name), Bstr(u"Long"));
    EXPECT_CALL(test.kernel32, GetShortPathNameA(isText("nom?"), _))
        .WillOnce(Return(300))
        .WillOnce(Return(0));
    EXPECT_EQ(ini.GET_NomCourt(name), Bstr(std::u16string(255, u' ')));
    EXPECT_EQ(ini.GET_NomCourt(name), Bstr());
    EXPECT_CALL(test.kernel32, GetLongPathNameA).WillOnce([](auto&, auto&) -> I4 {
        raise(ErrorNumber::EntryPointNotFound);
    });
    EXPECT_EQ(errorOf([&] { ini.GET_NomLong(name); }), 453);
}

TEST_F(IniFiles, RenameTellsFailureByFalse) {
    const Bstr from = u"a";
    const Bstr to = u"b";
    EXPECT_CALL(test.files, rename(from, to)).WillOnce(Return()).WillOnce([](auto&, auto&) {
        raise(ErrorNumber::FileExists);
    });
    EXPECT_EQ(ini.RenommerFichier(from, to), True);
    EXPECT_EQ(ini.RenommerFichier(from, to), False);
}

/// Answers True, in bits of its own, to the questions after files and folders, and changes the path.
class FileSystemDouble : public Counted<> {
  public:
    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        if (name == u"FileExists") return 1;
        return name == u"FolderExists" ? std::optional<MemberId>(2) : std::nullopt;
    }
    ReturnCode invoke(MemberId member, CallKind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord&) noexcept override {
        **std::get_if<Bstr*>(arguments[0].as<Reference>()) = u"asked";
        result = VariantBool::ofBits(member == 1 ? I2{1} : I2{0});
        return ReturnCode::Success;
    }
};

TEST_F(IniFiles, ExistenceIsAskedOfAFileSystemObject) {
    const std::u16string_view progId = u"Scripting.FileSystemObject";
    EXPECT_CALL(test.services, createObject(progId))
        .WillOnce([](auto) { return makeObject<FileSystemDouble>(); })
        .WillOnce([](auto) { return makeObject<FileSystemDouble>(); })
        .WillOnce([](auto) -> ObjectRef { raise(ErrorNumber::CannotCreateObject); });
    EXPECT_EQ(ini.FichierExiste(file), True);
    EXPECT_EQ(file, Bstr(u"asked"));
    EXPECT_EQ(ini.DossierExiste(file), False);
    EXPECT_EQ(errorOf([&] { ini.DossierExiste(file); }), 429);
}

}  // namespace
}  // namespace tovera::testing
