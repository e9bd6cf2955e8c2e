#pragma once

#include <gmock/gmock.h>
#include <vector>

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera::testing {

/// A message box that was shown, and answered at once.
struct ShownBox {
    Bstr text;
    I4 flags;
    Bstr title;
    friend bool operator==(const ShownBox&, const ShownBox&) = default;
};

/// Services that record what a member does with them. The code page maps every character below 256 to its
/// own byte.
class TestServices : public Services {
  public:
    using Services::messageBox;
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override;
    MOCK_METHOD(R8, launch, (const Bstr& commandLine, WindowStyle style), (override));
    MOCK_METHOD(ObjectRef, createObject, (std::u16string_view progId), (override));
    ComponentFacts facts() override { return componentFacts; }
    RegionalSettings regionalSettings() override { return regional; }
    std::string toAnsi(std::u16string_view text) override;
    std::u16string fromAnsi(std::string_view bytes) override;
    MOCK_METHOD(void, pumpMessages, (), (override));

    std::vector<ShownBox> boxes;
    ComponentFacts componentFacts;
    RegionalSettings regional;
};

class MockUser32 : public User32 {
  public:
    MOCK_METHOD(I4, OemToCharA, (const AnsiText& source, AnsiText& target), (override));
};

class MockKernel32 : public Kernel32 {
  public:
    MOCK_METHOD(I4, WritePrivateProfileStringA,
                (const AnsiText& section, const AnsiText& key, const AnsiText& value, const AnsiText& file),
                (override));
    MOCK_METHOD(I4, GetPrivateProfileStringA,
                (const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue, AnsiText& buffer,
                 const AnsiText& file),
                (override));
    MOCK_METHOD(I4, WriteProfileStringA,
                (const AnsiText& section, const AnsiText& key, const AnsiText& value), (override));
    MOCK_METHOD(I4, GetProfileStringA,
                (const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue,
                 AnsiText& buffer),
                (override));
    MOCK_METHOD(I4, GetSystemDirectoryA, (AnsiText & buffer), (override));
    MOCK_METHOD(I4, GetWindowsDirectoryA, (AnsiText & buffer), (override));
    MOCK_METHOD(I4, GetLongPathNameA, (const AnsiText& shortName, AnsiText& buffer), (override));
    MOCK_METHOD(I4, GetShortPathNameA, (const AnsiText& longName, AnsiText& buffer), (override));
};

class MockFiles : public Files {
  public:
    MOCK_METHOD(void, rename, (const Bstr& oldPath, const Bstr& newPath), (override));
};

class MockAdvapi32 : public Advapi32 {
  public:
    MOCK_METHOD(I4, RegOpenKeyExA, (I4 key, const AnsiText& subKey, I4 options, I4 access, I4& opened),
                (override));
    MOCK_METHOD(I4, RegCreateKeyA, (I4 key, const AnsiText& subKey, I4& created), (override));
    MOCK_METHOD(I4, RegSetValueExA,
                (I4 key, const AnsiText& name, I4 reserved, I4 type, std::span<const std::byte> data),
                (override));
    MOCK_METHOD(I4, RegQueryValueExA,
                (I4 key, const AnsiText& name, I4& type, std::span<std::byte> data, I4& size), (override));
    MOCK_METHOD(I4, RegDeleteKeyA, (I4 key, const AnsiText& subKey), (override));
    MOCK_METHOD(I4, RegCloseKey, (I4 key), (override));
};

class MockOdbc32 : public Odbc32 {
  public:
    MOCK_METHOD(I4, SQLAllocHandle, (I4 type, I4 parent, I4& handle), (override));
    MOCK_METHOD(I4, SQLSetEnvAttr, (I4 environment, I4 attribute, I4 value, I4 length), (override));
    MOCK_METHOD(I4, SQLDataSources,
                (I4 environment, I4 direction, AnsiText& name, I2& nameLength, AnsiText& description,
                 I2& descriptionLength),
                (override));
    MOCK_METHOD(I4, SQLFreeHandle, (I4 type, I4 handle), (override));
};

/// A platform of doubles for one test.
struct TestPlatform {
    ::testing::NiceMock<TestServices> services;
    ::testing::StrictMock<MockUser32> user32;
    ::testing::StrictMock<MockKernel32> kernel32;
    ::testing::StrictMock<MockFiles> files;
    ::testing::StrictMock<MockAdvapi32> advapi32;
    ::testing::StrictMock<MockOdbc32> odbc32;
    Platform platform{services, user32, kernel32, files, advapi32, odbc32};
};

/// The number of the Automation error that a call raises, 0 when it raises none.
template <class Call>
I4 errorOf(Call&& call) {
    try {
        std::forward<Call>(call)();
        return 0;
    } catch (const AutomationError& error) {
        return error.number();
    }
}

}  // namespace tovera::testing

namespace tovera {

void PrintTo(const Bstr& text, std::ostream* out);
void PrintTo(const Variant& value, std::ostream* out);

}  // namespace tovera
