#include "automation/shell_classes.h"

#include "automation/dual_slots.h"
#include "catalogue/class_list.h"
#include "catalogue/identities.h"
#include "platform/windows/interface_ids.h"

namespace tovera {
namespace {

template <class C>
class AutomationObjectOf final : public AutomationObject {
  public:
    explicit AutomationObjectOf(const ShellClass& shellClass) : AutomationObject(shellClass) {}

  private:
    void* instance() noexcept override { return &instance_; }

    C instance_{home()};
};

template <class C>
const ShellClass& shellClass();

template <class C>
IDispatch* create() {
    return std::make_unique<AutomationObjectOf<C>>(shellClass<C>()).release()->dispatch();
}

template <class C>
const ShellClass& shellClass() {
    static const ShellClass made{&describe<C>, dualSlots<C>(), &create<C>,
                                 systemId(identityOf("_" + std::string(ClassTable<C>::name))),
                                 systemId(identityOf(ClassTable<C>::name))};
    return made;
}

template <class... Classes>
std::span<const ShellClass> classesOf(TypeList<Classes...>) {
    static const std::array classes{shellClass<Classes>()...};
    return classes;
}

}  // namespace

std::span<const ShellClass> shellClasses() {
    return classesOf(ComponentClasses{});
}

}  // namespace tovera
