#pragma once

#include <array>
#include <span>

#include "python/given_value.h"

namespace tovera::python {

/// More parameters than any member has.
inline constexpr std::size_t mostParameters = 16;

/// What Python passes to a member: arguments in their order, and named ones behind them.
struct Passed {
    std::span<PyObject* const> inOrder;
    PyObject* names = nullptr;  ///< a tuple, or null; their arguments stand behind those in order
};

/// The arguments of a call for the component. Those that are left out are missing ones.
class Arguments {
  public:
    /// Throws `Raised`, an error 450 or 448 for too many and for unknown names.
    Arguments(const tovera_member& member, const Passed& passed);
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;
    ~Arguments() { clear(); }

    std::span<const tovera_value> values() const { return {values_.data(), count_}; }

    /// Gives the variables their new values.
    void giveBack();

  private:
    struct Variable {
        PyObject* byRef;
        tovera_value value;
    };

    void set(std::size_t place, PyObject* value);
    void setNamed(const Passed& passed);
    std::size_t placeOf(PyObject* name) const;
    void setVariable(std::size_t place, PyObject* byRef);
    void fillUpTo(std::size_t count);
    void clear();

    const tovera_member& member_;
    std::size_t count_ = 0;
    std::size_t variableCount_ = 0;
    Keeper keeper_;
    // Not set before they are used: most calls use few.
    std::array<tovera_value, mostParameters> values_;
    std::array<Variable, mostParameters> variables_;
};

}  // namespace tovera::python
