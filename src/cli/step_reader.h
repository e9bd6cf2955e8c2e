#pragma once

#include <string_view>

#include "cli/expression.h"

namespace tovera::cli {

/// Reads the text of a step from left to right.
class StepReader {
  public:
    explicit StepReader(std::u16string_view text) : text_(text) {}

    void skipBlanks();
    bool atEnd() const { return at_ == text_.size(); }
    /// Takes a character when it comes next.
    bool take(char16_t c);
    /// Everything that has not been read yet.
    std::u16string_view rest() const { return text_.substr(at_); }

    /// A name, or the empty text when none comes next.
    std::u16string takeName();
    /// A literal, or nothing when none comes next.
    std::optional<Variant> takeLiteral();
    ArgumentExpression takeArgument();

    [[noreturn]] void fail(const std::string& what) const;

  private:
    std::optional<Variant> takeWord();
    Variant takeText();
    Variant takeDate();
    Variant takeNumber();
    Variant takeArray();
    I4 takeBound();
    FormUse takeForm();

    std::u16string_view text_;
    std::size_t at_ = 0;
};

}  // namespace tovera::cli
