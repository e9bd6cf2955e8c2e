#include "platform/odbc32.h"

#include "frame/error.h"
#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"
#include "platform/windows/system_odbc.h"
#include "platform/windows/wide_handles.h"

namespace tovera {
namespace {

class WindowsOdbc32 : public Odbc32 {
    I4 SQLAllocHandle(I4 type, I4 parent, I4& handle) override {
        SQLHANDLE made = nullptr;
        I4 status = SQL_ERROR;
        try {
            status = callEntryPoint<&::SQLAllocHandle>(odbc32, type, handleAt(parent), &made);
        } catch (const AutomationError& missing) {
            // A machine without ODBC has no environment to give; its caller knows what to tell of that.
            if (missing.number() != static_cast<I4>(ErrorNumber::FileNotFound)) throw;
        }
        handle = made ? handles_.add(reinterpret_cast<std::uintptr_t>(made)) : 0;
        return status;
    }
    I4 SQLSetEnvAttr(I4 environment, I4 attribute, I4 value, I4 length) override {
        return callEntryPoint<&::SQLSetEnvAttr>(odbc32, handleAt(environment), attribute,
                                                handleOf<SQLPOINTER>(value), length);
    }
    I4 SQLDataSources(I4 environment, I4 direction, AnsiText& name, I2& nameLength, AnsiText& description,
                      I2& descriptionLength) override {
        return callEntryPoint<&::SQLDataSources>(odbc32, handleAt(environment), direction, name, roomIn(name),
                                                 &nameLength, description, roomIn(description),
                                                 &descriptionLength);
    }
    I4 SQLFreeHandle(I4 type, I4 handle) override {
        const auto freed = reinterpret_cast<SQLHANDLE>(handles_.take(handle));
        return callEntryPoint<&::SQLFreeHandle>(odbc32, type, freed);
    }

  private:
    SQLHANDLE handleAt(I4 number) { return reinterpret_cast<SQLHANDLE>(handles_.find(number)); }

    WideHandles handles_;
};

}  // namespace

Odbc32& homeOdbc32() {
    static WindowsOdbc32 port;
    return port;
}

}  // namespace tovera
