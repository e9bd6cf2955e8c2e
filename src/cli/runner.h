#pragma once

#include <iosfwd>
#include <map>
#include <optional>
#include <string>

#include "cli/form_argument.h"
#include "cli/step.h"
#include "frame/component_object.h"

namespace tovera::cli {

/// Runs steps on one object, and keeps the variables that they share.
class Runner {
  public:
    Runner(ObjectRef object, const ClassDescription& description, Services& services, std::ostream& out)
        : object_(std::move(object)), description_(description), out_(out), forms_(services) {}

    /// Runs one step and prints its result when it gives one. A failing member raises `AutomationError`.
    void run(const Step& step);

    /// Writes the form files back whose texts the steps have changed.
    void saveForms() const { forms_.save(); }

  private:
    void call(const Step& step);
    void write(const Step& step);
    Variant argument(const ArgumentExpression& expression);
    std::optional<Variant> namedValue(std::u16string_view name);
    Variant writtenValue(const Step& step);
    bool takesText(std::u16string_view property) const;

    ObjectRef object_;
    const ClassDescription& description_;
    std::ostream& out_;
    Forms forms_;
    std::map<std::u16string, Variant, std::less<>> variables_;
};

}  // namespace tovera::cli
