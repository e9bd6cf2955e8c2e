#pragma once

#include <set>
#include <string>
#include <string_view>

#include "catalogue/catalogue.h"
#include "cli/step.h"

// Steps of the program as statements of LibreOffice Basic.
namespace tovera::basic {

/// What Basic has no word for, as the form of a file.
struct NoSuchThing {
    std::string what;
};

class Translator {
  public:
    explicit Translator(const ClassDescription& description) : description_(description) {}

    /// The statements of a step. Raises `NoSuchThing` for what can't be said in Basic.
    std::string statementsOf(std::string_view text);

    /// A text as Basic writes it.
    static std::string quoted(std::u16string_view text);

  private:
    std::string callOf(const cli::Step& step);
    std::string writeOf(const cli::Step& step);
    std::string argumentOf(const cli::ArgumentExpression& expression);
    std::string nameOf(std::u16string_view name) const;
    bool isVariable(std::u16string_view name) const { return known_.contains(std::u16string(name)); }
    const MemberDescription* member(std::u16string_view name, CallKind kind) const;

    const ClassDescription& description_;
    std::set<std::u16string> known_;
    std::string before_;  ///< assignments that stand before a call
};

}  // namespace tovera::basic
