#pragma once

#include <memory>

#include "libreoffice/objects.h"

namespace tovera::office {

/// A walk through the elements of a collection.
class Walk {
  public:
    Walk() = default;
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;
    virtual ~Walk() = default;
    /// The next element; false behind the last one.
    virtual bool next(tovera_value& element) = 0;
};

/// An object of the office as the component calls it. Members may leave by exceptions of the office.
class OfficeObject {
  public:
    OfficeObject() = default;
    OfficeObject(const OfficeObject&) = delete;
    OfficeObject& operator=(const OfficeObject&) = delete;
    virtual ~OfficeObject() = default;

    /// What it stands for in the office.
    virtual Reference<XInterface> office() const = 0;
    /// The identifier of a member, its name in any case; error 438 where there is none.
    virtual sal_Int32 memberNamed(const OUString& name) = 0;
    virtual void invoke(sal_Int32 member, unsigned flags, tovera_value* arguments, std::size_t count,
                        tovera_value& result) = 0;
    /// Error 451 for what is no collection.
    virtual std::unique_ptr<Walk> elements();
    /// The object through another of its interfaces; empty where it hasn't got it.
    virtual Handle query(const tovera_interface_id&) { return {}; }
};

Handle handleOf(std::unique_ptr<OfficeObject> object);
/// The object of the office behind a handle; null for those of the component.
OfficeObject* officeObjectOf(const tovera_object* handle);

}  // namespace tovera::office
