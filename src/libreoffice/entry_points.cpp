#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <cppuhelper/implbase1.hxx>
#include <cstring>
#include <memory>
#include <mutex>

#include "libreoffice/bridge.h"
#include "libreoffice/cell_functions.h"

namespace tovera::office {
namespace {

/// Makes the objects of one class, as long as the office keeps it.
class ClassFactory final : public cppu::WeakImplHelper1<css::lang::XSingleComponentFactory> {
  public:
    explicit ClassFactory(const tovera_class& made) : made_(made) {}

    Reference<XInterface> SAL_CALL createInstanceWithContext(const Context& context) override {
        return bridgeFor(context)->create(made_);
    }
    Reference<XInterface> SAL_CALL createInstanceWithArgumentsAndContext(const Sequence<Any>&,
                                                                         const Context& context) override {
        return createInstanceWithContext(context);
    }

  private:
    std::shared_ptr<Bridge> bridgeFor(const Context& context) {
        const std::scoped_lock lock(inUse_);
        if (!bridge_ || bridge_->context() != context) bridge_ = std::make_shared<Bridge>(context);
        return bridge_;
    }

    const tovera_class& made_;
    std::mutex inUse_;
    std::shared_ptr<Bridge> bridge_;
};

class CellFunctionsFactory final : public cppu::WeakImplHelper1<css::lang::XSingleComponentFactory> {
  public:
    Reference<XInterface> SAL_CALL createInstanceWithContext(const Context&) override {
        return makeCellFunctions();
    }
    Reference<XInterface> SAL_CALL createInstanceWithArgumentsAndContext(const Sequence<Any>&,
                                                                         const Context&) override {
        return makeCellFunctions();
    }
};

Reference<css::lang::XSingleComponentFactory> factoryOf(const char* implementation) {
    if (std::strcmp(implementation, cellFunctionsName) == 0) return new CellFunctionsFactory;
    const auto* const made = tovera_find_class(implementation);
    if (!made) return {};
    return new ClassFactory(*made);
}

}  // namespace
}  // namespace tovera::office

/// What the office asks for the maker of an implementation.
extern "C" SAL_DLLPUBLIC_EXPORT void* component_getFactory(const char* implementation, void*, void*) {
    const auto factory = tovera::office::factoryOf(implementation);
    if (!factory.is()) return nullptr;
    factory->acquire();
    return factory.get();
}
