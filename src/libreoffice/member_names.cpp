#include "libreoffice/member_names.h"

#include <algorithm>

#include "libreoffice/failures.h"

namespace tovera::office {

sal_Int32 MemberNames::idOf(const OUString& name) {
    auto known = std::ranges::find(names_, name);
    if (known == names_.end()) known = names_.insert(known, name);
    return static_cast<sal_Int32>(known - names_.begin()) + 1;
}

const OUString& MemberNames::at(sal_Int32 member) const {
    if (member < 1 || static_cast<std::size_t>(member) > names_.size()) raise(Number::NoSuchMember);
    return names_[static_cast<std::size_t>(member - 1)];
}

}  // namespace tovera::office
