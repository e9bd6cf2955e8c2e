#include "platform/odbc32.h"

#include "frame/error.h"
#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"
#include "platform/windows/system_odbc.h"

namespace tovera {
namespace {

class WindowsOdbc32 : public Odbc32 {
    I4 SQLAllocHandle(I4 type, I4 parent, I4& handle) override {
        SQLHANDLE made = nullptr;
        I4 status = SQL_ERROR;
        try {
            status = callEntryPoint<&::SQLAllocHandle>(odbc32, type, handleOf<SQLHANDLE>(parent), &made);
        } catch (const AutomationError& missing) {
            // A machine without ODBC has no environment to give; its caller knows what to tell of that.
            if (missing.number() != static_cast<I4>(ErrorNumber::FileNotFound)) throw;
        }
        handle = numberOfHandle(made);
        return status;
    }
    I4 SQLSetEnvAttr(I4 environment, I4 attribute, I4 value, I4 length) override {
        return callEntryPoint<&::SQLSetEnvAttr>(odbc32, handleOf<SQLHENV>(environment), attribute,
                                                handleOf<SQLPOINTER>(value), length);
    }
    I4 SQLDataSources(I4 environment, I4 direction, AnsiText& name, I2& nameLength, AnsiText& description,
                      I2& descriptionLength) override {
        return callEntryPoint<&::SQLDataSources>(odbc32, handleOf<SQLHENV>(environment), direction, name,
                                                 roomIn(name), &nameLength, description, roomIn(description),
                                                 &descriptionLength);
    }
    I4 SQLFreeHandle(I4 type, I4 handle) override {
        return callEntryPoint<&::SQLFreeHandle>(odbc32, type, handleOf<SQLHANDLE>(handle));
    }
};

}  // namespace

Odbc32& homeOdbc32() {
    static WindowsOdbc32 port;
    return port;
}

}  // namespace tovera
