#pragma once

#include <set>
#include <string>

#include "cli/step.h"
#include "frame/class_table.h"

namespace tovera::cli {

/// The property that a name reads, without regard to case; null when the class hasn't got it.
const MemberDescription* readableProperty(const ClassDescription& description, std::u16string_view name);

/// The names that bare words of a step may be: the variables that it and the steps before it make, and the
/// properties of the object.
class KnownNames {
  public:
    explicit KnownNames(const ClassDescription& description) : description_(description) {}

    /// Takes the variables of the next step. Raises `CommandLineError` for a word that is no such name.
    void take(const Step& step);

  private:
    const ClassDescription& description_;
    std::set<std::u16string, std::less<>> variables_;
};

}  // namespace tovera::cli
