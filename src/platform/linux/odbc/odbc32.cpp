#include "platform/odbc32.h"

#if __has_include(<sql.h>)

#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <mutex>
#include <odbcinst.h>
#include <sql.h>
#include <sqlext.h>
#include <utility>

#include "frame/utf8.h"
#include "platform/linux/libraries/shared_library.h"
#include "platform/linux/registry/odbc_mirror.h"
#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

constexpr std::string_view givenSource = "MS Access Database";

/// The functions of unixODBC that the port calls.
struct OdbcLibrary {
    SharedLibrary manager{"libodbc.so.2"};
    SharedLibrary installer{"libodbcinst.so.2"};
    EntryPoint<decltype(::SQLAllocHandle)> allocHandle{manager, "SQLAllocHandle"};
    EntryPoint<decltype(::SQLSetEnvAttr)> setEnvAttr{manager, "SQLSetEnvAttr"};
    EntryPoint<decltype(::SQLDataSources)> dataSources{manager, "SQLDataSources"};
    EntryPoint<decltype(::SQLFreeHandle)> freeHandle{manager, "SQLFreeHandle"};
    EntryPoint<decltype(::SQLGetPrivateProfileString)> getPrivateProfileString{installer,
                                                                               "SQLGetPrivateProfileString"};
};

OdbcLibrary& unixOdbc() {
    static OdbcLibrary functions;
    return functions;
}

/// The library file of the Access driver as it is registered; empty where it is not.
std::string accessDriverFile() {
    auto& odbc = unixOdbc();
    if (!odbc.installer.isPresent()) return {};
    std::array<char, 1024> file{};
    odbc.getPrivateProfileString(accessDriver.data(), "Driver", "", file.data(), int{file.size()},
                                 "odbcinst.ini");
    return file.data();
}

bool isAccessDriver(std::string_view driver) {
    if (sameFolded(driver, accessDriver)) return true;
    const auto file = accessDriverFile();
    return !file.empty() && (driver == file || driver.ends_with("/" + file));
}

/// Fills a buffer as ODBC does, with a NUL behind a text that is cut; whether it was whole.
bool fill(AnsiText& buffer, I2& length, std::string_view text) {
    length = static_cast<I2>(text.size());
    const auto room = buffer.bytes.size();
    if (room == 0) return false;
    const auto count = std::min(text.size(), room - 1);
    std::copy_n(text.begin(), count, buffer.bytes.begin());
    buffer.bytes[count] = '\0';
    return count == text.size();
}

std::string ansi(std::span<const char> text, SQLSMALLINT length) {
    const auto count = std::min(static_cast<std::size_t>(std::max(length, SQLSMALLINT{0})), text.size() - 1);
    return toAnsi1252(fromUtf8({text.data(), count}));
}

/// Texts in ANSI, as all that goes to callers.
struct Source {
    std::string name;
    std::string driver;
};

/// The next source of unixODBC's own list.
I4 nextSource(SQLHANDLE environment, I4 direction, Source& found) {
    std::array<char, 1024> name{};
    std::array<char, 1024> driver{};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT driverLength = 0;
    const auto status = unixOdbc().dataSources(
        environment, static_cast<SQLUSMALLINT>(direction), reinterpret_cast<SQLCHAR*>(name.data()),
        static_cast<SQLSMALLINT>(name.size()), &nameLength, reinterpret_cast<SQLCHAR*>(driver.data()),
        static_cast<SQLSMALLINT>(driver.size()), &driverLength);
    found = {ansi(name, nameLength), ansi(driver, driverLength)};
    return status;
}

/// ODBC through unixODBC. Sources on the driver for Access files bear the description that it has on Windows,
/// and where that driver is registered the list shows the source that Windows has from the start. Without
/// unixODBC there is no environment to be had.
class LinuxOdbc32 : public Odbc32 {
  public:
    I4 SQLAllocHandle(I4 type, I4 parent, I4& handle) override;
    I4 SQLSetEnvAttr(I4 environment, I4 attribute, I4 value, I4 length) override;
    I4 SQLDataSources(I4 environment, I4 direction, AnsiText& name, I2& nameLength, AnsiText& description,
                      I2& descriptionLength) override;
    I4 SQLFreeHandle(I4 type, I4 handle) override;
    bool canKeepSource(const AnsiText& name, const AnsiText& file) override;

  private:
    struct Environment {
        void* handle = nullptr;
        bool givenSourceSeen = false;
        bool atEnd = false;  ///< the next call tells so, and the one after begins anew
    };

    Environment* environmentOf(I4 handle);

    std::mutex mutex_;
    std::map<I4, Environment> environments_;
    I4 lastHandle_ = 0;
};

LinuxOdbc32::Environment* LinuxOdbc32::environmentOf(I4 handle) {
    const std::lock_guard guard(mutex_);
    const auto found = environments_.find(handle);
    return found == environments_.end() ? nullptr : &found->second;
}

I4 LinuxOdbc32::SQLAllocHandle(I4 type, I4 /*parent*/, I4& handle) {
    auto& odbc = unixOdbc();
    if (type != SQL_HANDLE_ENV || !odbc.manager.isPresent()) return SQL_ERROR;
    SQLHANDLE made = nullptr;
    const auto status = odbc.allocHandle(SQLSMALLINT{SQL_HANDLE_ENV}, SQLHANDLE{}, &made);
    if (!SQL_SUCCEEDED(status)) return status;
    const std::lock_guard guard(mutex_);
    handle = ++lastHandle_;
    environments_[handle] = {made};
    return status;
}

I4 LinuxOdbc32::SQLSetEnvAttr(I4 environment, I4 attribute, I4 value, I4 length) {
    const auto* const of = environmentOf(environment);
    if (!of) return SQL_INVALID_HANDLE;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): ODBC takes numbers in the place of addresses.
    auto* const number = reinterpret_cast<SQLPOINTER>(static_cast<std::intptr_t>(value));
    return unixOdbc().setEnvAttr(of->handle, attribute, number, length);
}

I4 LinuxOdbc32::SQLDataSources(I4 environment, I4 direction, AnsiText& name, I2& nameLength,
                               AnsiText& description, I2& descriptionLength) {
    auto* const of = environmentOf(environment);
    if (!of) return SQL_INVALID_HANDLE;
    if (direction != SQL_FETCH_NEXT) of->givenSourceSeen = of->atEnd = false;
    if (std::exchange(of->atEnd, false)) return SQL_NO_DATA;
    Source source;
    const auto status = nextSource(of->handle, direction, source);
    if (status == SQL_NO_DATA) {
        if (std::exchange(of->givenSourceSeen, false) || accessDriverFile().empty()) return status;
        source = {std::string(givenSource), std::string(accessDriver)};
        of->atEnd = true;
    } else if (!SQL_SUCCEEDED(status)) {
        return status;
    } else if (source.name == givenSource) {
        of->givenSourceSeen = true;
    }
    const bool isNameWhole = fill(name, nameLength, source.name);
    const bool isDescriptionWhole = fill(description, descriptionLength,
                                         isAccessDriver(source.driver) ? accessDescription : source.driver);
    return isNameWhole && isDescriptionWhole ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

I4 LinuxOdbc32::SQLFreeHandle(I4 type, I4 handle) {
    const auto* const of = environmentOf(handle);
    if (type != SQL_HANDLE_ENV || !of) return SQL_INVALID_HANDLE;
    const auto status = unixOdbc().freeHandle(SQLSMALLINT{SQL_HANDLE_ENV}, of->handle);
    const std::lock_guard guard(mutex_);
    environments_.erase(handle);
    return status;
}

bool LinuxOdbc32::canKeepSource(const AnsiText& name, const AnsiText& file) {
    const bool isKept = tovera::canKeepSource(name.terminated(), file.terminated());
    if (!isKept)
        std::cerr << "tovera: ODBC: Invalid DSN: " << toUtf8(fromAnsi1252(name.terminated())) << " ("
                  << toUtf8(fromAnsi1252(file.terminated())) << ')' << std::endl;
    return isKept;
}

}  // namespace

Odbc32& homeOdbc32() {
    static LinuxOdbc32 port;
    return port;
}

}  // namespace tovera

#else  // built without unixODBC: there is no environment to be had

namespace tovera {
namespace {

struct LinuxOdbc32 : Odbc32 {
    I4 SQLAllocHandle(I4, I4, I4&) override { return odbc::SQL_ERROR; }
};

}  // namespace

Odbc32& homeOdbc32() {
    static LinuxOdbc32 port;
    return port;
}

}  // namespace tovera

#endif
