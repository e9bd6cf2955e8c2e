#pragma once

#include <vector>

#include "libreoffice/office.h"

namespace tovera::office {

/// The identifiers of an object's members: numbers from 1, each name once.
class MemberNames {
  public:
    sal_Int32 idOf(const OUString& name);
    /// Error 438 for what is no identifier. A later name may move this one.
    const OUString& at(sal_Int32 member) const;

  private:
    std::vector<OUString> names_;
};

}  // namespace tovera::office
