#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Constants of ODBC under ODBC's own names.
namespace odbc {
inline constexpr I4 SQL_SUCCESS = 0;
inline constexpr I4 SQL_ERROR = -1;
inline constexpr I4 SQL_HANDLE_ENV = 1;
inline constexpr I4 SQL_ATTR_ODBC_VERSION = 200;
inline constexpr I4 SQL_OV_ODBC3 = 3;
inline constexpr I4 SQL_IS_INTEGER = -6;
inline constexpr I4 SQL_FETCH_NEXT = 1;
}  // namespace odbc

/// The entry points of `odbc32` that the classes call. Results are ODBC's return codes. A buffer's length is
/// the size that goes with it.
struct Odbc32 : Port<Odbc32> {
    virtual I4 SQLAllocHandle(I4 type, I4 parent, I4& handle) {
        return missingEntryPoint(type, parent, handle);
    }
    virtual I4 SQLSetEnvAttr(I4 environment, I4 attribute, I4 value, I4 length) {
        return missingEntryPoint(environment, attribute, value, length);
    }
    /// The next data source and the description of its driver, each with its length without the NUL.
    virtual I4 SQLDataSources(I4 environment, I4 direction, AnsiText& name, I2& nameLength,
                              AnsiText& description, I2& descriptionLength) {
        return missingEntryPoint(environment, direction, name, nameLength, description, descriptionLength);
    }
    virtual I4 SQLFreeHandle(I4 type, I4 handle) { return missingEntryPoint(type, handle); }

    /// Whether ODBC of this home can keep a source of this name with this database file. One that it can't
    /// keep is told of as ODBC does.
    virtual bool canKeepSource(const AnsiText& name, const AnsiText& file) {
        static_cast<void>(name), static_cast<void>(file);
        return true;
    }
};

Odbc32& homeOdbc32();

}  // namespace tovera
