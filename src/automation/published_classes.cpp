#include "automation/published_classes.h"

#include "automation/dual_slots.h"
#include "catalogue/class_list.h"
#include "catalogue/identities.h"
#include "platform/windows/interface_ids.h"

namespace tovera {
namespace {

template <class C>
class AutomationObjectOf final : public AutomationObject {
  public:
    explicit AutomationObjectOf(const PublishedClass& publishedClass) : AutomationObject(publishedClass) {}

  private:
    void* instance() noexcept override { return &instance_; }

    C instance_{home()};
};

template <class C>
const PublishedClass& publishedClass();

template <class C>
IDispatch* create() {
    return std::make_unique<AutomationObjectOf<C>>(publishedClass<C>()).release()->dispatch();
}

template <class C>
const PublishedClass& publishedClass() {
    static const PublishedClass made{&describe<C>, dualSlots<C>(), &create<C>,
                                     systemId(identityOf("_" + std::string(ClassTable<C>::name))),
                                     systemId(identityOf(ClassTable<C>::name))};
    return made;
}

template <class C>
ClassFactory* factoryOf(const CLSID& classId) {
    if (classId != systemId(identityOf(ClassTable<C>::name))) return nullptr;
    static ClassFactory factory(publishedClass<C>());
    return &factory;
}

template <class... Classes>
ClassFactory* findAmong(TypeList<Classes...>, const CLSID& classId) {
    ClassFactory* found = nullptr;
    static_cast<void>(((found = factoryOf<Classes>(classId)) || ...));
    return found;
}

}  // namespace

ClassFactory* findFactory(const CLSID& classId) {
    return findAmong(ComponentClasses{}, classId);
}

}  // namespace tovera
