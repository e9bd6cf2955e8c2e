#include "platform/windows/odbc32.h"

#include "frame/error.h"
#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"
#include "platform/windows/system_odbc.h"

namespace tovera {
namespace {

SQLCHAR* bytesOf(AnsiText& buffer) {
    return reinterpret_cast<SQLCHAR*>(buffer.addressOrNull());
}

SQLSMALLINT roomIn(const AnsiText& buffer) {
    return static_cast<SQLSMALLINT>(buffer.bytes.size());
}

}  // namespace

I4 WindowsOdbc32::SQLAllocHandle(I4 type, I4 parent, I4& handle) {
    static constinit EntryPoint<decltype(::SQLAllocHandle)> allocate{L"odbc32", "SQLAllocHandle"};
    SQLHANDLE made = nullptr;
    I4 status = SQL_ERROR;
    try {
        status = allocate(static_cast<SQLSMALLINT>(type), handleOf<SQLHANDLE>(parent), &made);
    } catch (const AutomationError& missing) {
        // A machine without ODBC has no environment to give; its caller knows what to tell of that.
        if (missing.number() != static_cast<I4>(ErrorNumber::FileNotFound)) throw;
    }
    handle = numberOfHandle(made);
    return status;
}

I4 WindowsOdbc32::SQLSetEnvAttr(I4 environment, I4 attribute, I4 value, I4 length) {
    static constinit EntryPoint<decltype(::SQLSetEnvAttr)> set{L"odbc32", "SQLSetEnvAttr"};
    return set(handleOf<SQLHENV>(environment), attribute, handleOf<SQLPOINTER>(value), length);
}

I4 WindowsOdbc32::SQLDataSources(I4 environment, I4 direction, AnsiText& name, I2& nameLength,
                                 AnsiText& description, I2& descriptionLength) {
    static constinit EntryPoint<decltype(::SQLDataSources)> next{L"odbc32", "SQLDataSources"};
    return next(handleOf<SQLHENV>(environment), static_cast<SQLUSMALLINT>(direction), bytesOf(name),
                roomIn(name), &nameLength, bytesOf(description), roomIn(description), &descriptionLength);
}

I4 WindowsOdbc32::SQLFreeHandle(I4 type, I4 handle) {
    static constinit EntryPoint<decltype(::SQLFreeHandle)> release{L"odbc32", "SQLFreeHandle"};
    return release(static_cast<SQLSMALLINT>(type), handleOf<SQLHANDLE>(handle));
}

}  // namespace tovera
