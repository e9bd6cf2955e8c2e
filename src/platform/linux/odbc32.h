#pragma once

#include <map>
#include <mutex>
#include <string>

#include "platform/odbc32.h"

namespace tovera {

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

}  // namespace tovera
