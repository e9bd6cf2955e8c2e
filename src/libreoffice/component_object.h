#pragma once

#include <com/sun/star/beans/XExactName.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/script/XInvocation.hpp>
#include <cppuhelper/implbase3.hxx>
#include <memory>

#include "libreoffice/members.h"
#include "libreoffice/objects.h"

namespace tovera::office {

using Invocable =
    cppu::WeakImplHelper3<css::script::XInvocation, css::beans::XExactName, css::lang::XServiceInfo>;

/// An object of the component as Basic and every other language of the office call it: by the names of its
/// members, in any case.
class ComponentObject final : public Invocable {
  public:
    ComponentObject(std::shared_ptr<Objects> objects, const Members& members, Handle handle)
        : objects_(std::move(objects)), members_(members), handle_(std::move(handle)) {}

    Reference<css::beans::XIntrospectionAccess> SAL_CALL getIntrospection() override { return {}; }
    Any SAL_CALL invoke(const OUString& name, const Sequence<Any>& arguments, Sequence<sal_Int16>& outIndexes,
                        Sequence<Any>& outValues) override;
    void SAL_CALL setValue(const OUString& name, const Any& value) override;
    Any SAL_CALL getValue(const OUString& name) override;
    sal_Bool SAL_CALL hasMethod(const OUString& name) override;
    sal_Bool SAL_CALL hasProperty(const OUString& name) override;

    OUString SAL_CALL getExactName(const OUString& approximateName) override;

    OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const OUString& name) override;
    Sequence<OUString> SAL_CALL getSupportedServiceNames() override;

  private:
    const Member& memberNamed(const OUString& name) const;
    Any call(const tovera_member& member, unsigned flags, const Sequence<Any>& arguments,
             Sequence<sal_Int16>* outIndexes, Sequence<Any>* outValues);

    std::shared_ptr<Objects> objects_;
    const Members& members_;
    Handle handle_;
};

}  // namespace tovera::office
