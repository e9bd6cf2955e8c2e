#pragma once

#include <com/sun/star/script/XInvocation.hpp>

#include "libreoffice/member_names.h"
#include "libreoffice/office_object.h"

namespace tovera::office {

/// Any object of the office, called by names: through its own invocation, or through one that the office
/// makes from its properties and methods.
class InvokedObject final : public OfficeObject {
  public:
    InvokedObject(const Context& context, std::shared_ptr<Objects> objects,
                  const Reference<XInterface>& object);

    Reference<XInterface> office() const override { return object_; }
    sal_Int32 memberNamed(const OUString& name) override;
    void invoke(sal_Int32 member, unsigned flags, tovera_value* arguments, std::size_t count,
                tovera_value& result) override;
    std::unique_ptr<Walk> elements() override;

  private:
    void call(const OUString& name, tovera_value* arguments, std::size_t count, tovera_value& result);

    std::shared_ptr<Objects> objects_;
    Reference<XInterface> object_;
    Reference<css::script::XInvocation> invocation_;
    MemberNames names_;
};

}  // namespace tovera::office
