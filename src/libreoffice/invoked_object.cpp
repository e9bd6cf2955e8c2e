#include "libreoffice/invoked_object.h"

#include <algorithm>
#include <com/sun/star/beans/XExactName.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/lang/XSingleServiceFactory.hpp>

#include "libreoffice/failures.h"
#include "libreoffice/values.h"

namespace tovera::office {
namespace {

using css::script::XInvocation;

Reference<XInvocation> invocationOf(const Context& context, const Reference<XInterface>& object) {
    if (Reference<XInvocation> own(object, UNO_QUERY); own.is()) return own;
    const Reference<css::lang::XSingleServiceFactory> maker(
        context->getServiceManager()->createInstanceWithContext("com.sun.star.script.Invocation", context),
        css::uno::UNO_QUERY_THROW);
    return {maker->createInstanceWithArguments(listOf(Any(object))), css::uno::UNO_QUERY_THROW};
}

class EnumerationWalk final : public Walk {
  public:
    EnumerationWalk(std::shared_ptr<Objects> objects, const Reference<css::container::XEnumeration>& elements)
        : objects_(std::move(objects)), elements_(elements) {}
    bool next(tovera_value& element) override {
        if (!elements_->hasMoreElements()) return false;
        put(*objects_, elements_->nextElement(), element);
        return true;
    }

  private:
    std::shared_ptr<Objects> objects_;
    Reference<css::container::XEnumeration> elements_;
};

class IndexWalk final : public Walk {
  public:
    IndexWalk(std::shared_ptr<Objects> objects, const Reference<css::container::XIndexAccess>& elements)
        : objects_(std::move(objects)), elements_(elements) {}
    bool next(tovera_value& element) override {
        if (next_ >= elements_->getCount()) return false;
        put(*objects_, elements_->getByIndex(next_++), element);
        return true;
    }

  private:
    std::shared_ptr<Objects> objects_;
    Reference<css::container::XIndexAccess> elements_;
    sal_Int32 next_ = 0;
};

}  // namespace

InvokedObject::InvokedObject(const Context& context, std::shared_ptr<Objects> objects,
                             const Reference<XInterface>& object)
    : objects_(std::move(objects)), object_(object), invocation_(invocationOf(context, object)) {}

sal_Int32 InvokedObject::memberNamed(const OUString& name) {
    auto exact = name;
    if (const Reference<css::beans::XExactName> names(invocation_, UNO_QUERY); names.is()) {
        if (const auto found = names->getExactName(name); !found.isEmpty()) exact = found;
    }
    if (!invocation_->hasMethod(exact) && !invocation_->hasProperty(exact)) raise(Number::NoSuchMember);
    return names_.idOf(exact);
}

void InvokedObject::invoke(sal_Int32 member, unsigned flags, tovera_value* arguments, std::size_t count,
                           tovera_value& result) {
    const auto name = names_.at(member);
    if ((flags & (TOVERA_WRITE | TOVERA_ASSIGN)) != 0) {
        if (count != 1) raise(Number::WrongArgumentCount);
        invocation_->setValue(name, toOffice(*objects_, arguments[0]));
    } else if ((flags & TOVERA_READ) != 0 && count == 0 && invocation_->hasProperty(name)) {
        put(*objects_, invocation_->getValue(name), result);
    } else {
        call(name, arguments, count, result);
    }
}

void InvokedObject::call(const OUString& name, tovera_value* arguments, std::size_t count,
                         tovera_value& result) {
    Sequence<Any> given(static_cast<sal_Int32>(count));
    for (std::size_t i = 0; i < count; ++i) given.getArray()[i] = toOffice(*objects_, arguments[i]);
    Sequence<sal_Int16> changed;
    Sequence<Any> values;
    put(*objects_, invocation_->invoke(name, given, changed, values), result);
    for (sal_Int32 i = 0; i < std::min(changed.getLength(), values.getLength()); ++i) {
        const auto at = static_cast<std::size_t>(changed[i]);
        if (changed[i] >= 0 && at < count && arguments[at].type == TOVERA_REFERENCE)
            put(*objects_, values[i], *arguments[at].as.reference);
    }
}

std::unique_ptr<Walk> InvokedObject::elements() {
    using namespace css::container;
    Reference<XEnumeration> walk(object_, UNO_QUERY);
    if (const Reference<XEnumerationAccess> collection(object_, UNO_QUERY); !walk.is() && collection.is())
        walk = collection->createEnumeration();
    if (walk.is()) return std::make_unique<EnumerationWalk>(objects_, walk);
    if (const Reference<XIndexAccess> collection(object_, UNO_QUERY); collection.is())
        return std::make_unique<IndexWalk>(objects_, collection);
    return OfficeObject::elements();
}

}  // namespace tovera::office
