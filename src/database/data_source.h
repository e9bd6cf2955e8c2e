#pragma once

#include "platform/writes_together.h"
#include "registry/cls_initreg.h"

namespace tovera {

/// Writes all that describes an Access data source of the current user, in `ODBC.INI` and in the registry.
/// Nothing is told of writes that fail.
class DataSource {
  public:
    DataSource(Platform& platform, Bstr& file, Bstr& name)
        : writes_(platform), registry_(writes_.platform()), file_(file), name_(name) {}

    void declare();

  private:
    void writeIniEntries();
    void listSource();
    void createKeys();
    void describeSource();
    void describeEngine();

    Bstr keyOfSource(std::u16string_view subKey) const;
    Bstr driverPath();
    void writeText(Bstr key, Bstr valueName, Bstr& text);
    void writeText(Bstr key, Bstr valueName, std::u16string_view text);
    void writeNumber(Bstr key, Bstr valueName, I4 number);

    WritesTogether writes_;
    Cls_InitREG registry_;
    Bstr& file_;
    Bstr& name_;
};

}  // namespace tovera
