#pragma once

#include <unordered_map>

#include "libreoffice/office.h"

namespace tovera::office {

/// What one name of a class stands for: a method, or the ways of a property.
struct Member {
    OUString name;
    const tovera_member* method = nullptr;
    const tovera_member* read = nullptr;
    const tovera_member* write = nullptr;
    const tovera_member* assign = nullptr;
};

/// The members of a class by their names in any case.
class Members {
  public:
    explicit Members(const tovera_class& described);
    Members(const Members&) = delete;
    Members& operator=(const Members&) = delete;

    /// Null where the class hasn't got it.
    const Member* find(const OUString& name) const;
    const tovera_class& described() const { return described_; }

  private:
    struct Hash {
        std::size_t operator()(const OUString& name) const {
            return static_cast<std::size_t>(name.hashCode());
        }
    };

    const tovera_class& described_;
    // Basic asks once for the exact name, and calls by that one then.
    std::unordered_map<OUString, Member, Hash> byName_;
    std::unordered_map<OUString, const Member*, Hash> byLowerName_;
};

}  // namespace tovera::office
