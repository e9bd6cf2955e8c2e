#pragma once

#include "libreoffice/objects.h"

// Values on their way between the office and the component.
namespace tovera::office {

/// A value of the office as the component takes it. Texts stay where they are: the office's value outlives
/// this one. As a variable it may have another value after the call.
class Given {
  public:
    /// Error 13 for what no type of the component stands for. Basic has one value for Nothing and Null:
    /// `wanted`, the type that the component declares, tells them apart.
    Given(Objects& objects, const Any& value, uint16_t wanted = TOVERA_VARIANT);
    Given(const Given&) = delete;
    Given& operator=(const Given&) = delete;
    ~Given() { tovera_clear(&value_); }

    const tovera_value& value() const { return value_; }
    /// The value as a variable that the call may change.
    tovera_value asVariable() { return tovera_by_reference(&value_); }
    bool isChanged() const;
    /// The value with what was made for it; a text still stays where it is.
    void handOver(tovera_value& target);

  private:
    void takeArray(const Any& value);

    Array array_;
    Handle object_;
    tovera_value value_;
    tovera_value before_;
};

/// A value of the component as Basic takes it. Dates are numbers of days, which every function of Basic and
/// of the sheets takes as dates.
Any toOffice(Objects& objects, const tovera_value& value);

/// Gives a value to the component as the result of an object of the office. Unlike one from Basic, a whole
/// number of 64 bits is none but itself.
void put(Objects& objects, const Any& value, tovera_value& target);

}  // namespace tovera::office
