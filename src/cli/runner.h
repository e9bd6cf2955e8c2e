#pragma once

#include <iosfwd>
#include <map>
#include <memory>
#include <span>
#include <string>

#include "cli/step.h"
#include "frame/component_object.h"

namespace tovera::cli {

/// Runs steps on one object, and keeps the variables that they share.
class Runner {
  public:
    Runner(ObjectRef object, const ClassDescription& description, std::ostream& out)
        : object_(std::move(object)), description_(description), out_(out) {}

    /// Runs one step and prints its result when it gives one. A failing member raises `AutomationError`.
    void run(const Step& step);

  private:
    void call(const Step& step);
    void write(const Step& step);
    Variant argument(const ArgumentExpression& expression);
    Variant writtenValue(std::u16string_view text);
    Variant& variable(const std::u16string& name);

    ObjectRef object_;
    const ClassDescription& description_;
    std::ostream& out_;
    std::map<std::u16string, Variant, std::less<>> variables_;
};

}  // namespace tovera::cli
