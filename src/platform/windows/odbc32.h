#pragma once

#include "platform/odbc32.h"

namespace tovera {

class WindowsOdbc32 : public Odbc32 {
  public:
    I4 SQLAllocHandle(I4 type, I4 parent, I4& handle) override;
    I4 SQLSetEnvAttr(I4 environment, I4 attribute, I4 value, I4 length) override;
    I4 SQLDataSources(I4 environment, I4 direction, AnsiText& name, I2& nameLength, AnsiText& description,
                      I2& descriptionLength) override;
    I4 SQLFreeHandle(I4 type, I4 handle) override;
};

}  // namespace tovera
