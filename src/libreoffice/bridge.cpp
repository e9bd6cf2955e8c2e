#include "libreoffice/bridge.h"

#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <new>

#include "libreoffice/component_object.h"
#include "libreoffice/dialog_form.h"
#include "libreoffice/failures.h"
#include "libreoffice/invoked_object.h"
#include "libreoffice/message_boxes.h"

namespace tovera::office {
namespace {

Bridge& bridgeOf(void* data) {
    return *static_cast<Bridge*>(data);
}

/// Runs a service; a failing one does nothing.
template <class Work>
void guarded(Work work) noexcept {
    try {
        work();
    } catch (...) {
    }
}

/// What the office can't show is left to the system.
int32_t messageBox(void* data, const char* text, int32_t flags, const char* title) {
    int32_t button = -1;
    guarded(
        [&] { button = showMessageBox(bridgeOf(data).context(), fromUtf8(text), flags, fromUtf8(title)); });
    return button;
}

/// An office that is going down ends the wait.
int32_t pump(void* data) {
    auto number = static_cast<int32_t>(Number::OfAnObject);
    guarded([&] {
        processEvents(bridgeOf(data).context());
        number = 0;
    });
    return number;
}

tovera_object* createObject(void* data, const char* progId) {
    Handle made;
    guarded([&] {
        auto& bridge = bridgeOf(data);
        const auto& context = bridge.context();
        const auto found = context->getServiceManager()->createInstanceWithContext(fromUtf8(progId), context);
        if (found.is()) made = bridge.toComponent(found);
    });
    return made.release();
}

constexpr tovera_services services{sizeof(tovera_services), messageBox, pump, createObject};

}  // namespace

Bridge::Bridge(const Context& context) : context_(context), host_(tovera_host_new(&services, this)) {
    if (!host_) throw std::bad_alloc();
}

Reference<XInterface> Bridge::create(const tovera_class& wanted) {
    Failure failure;
    Handle made(tovera_create(host_.get(), wanted.name, &failure));
    if (!made) raise(failure);
    return static_cast<cppu::OWeakObject*>(
        new ComponentObject(shared_from_this(), membersOf(wanted), std::move(made)));
}

const Members& Bridge::membersOf(const tovera_class& described) {
    const std::scoped_lock lock(inUse_);
    return members_.try_emplace(&described, described).first->second;
}

Handle Bridge::toComponent(const Reference<XInterface>& object) {
    if (!object.is()) return {};
    if (formModelOf(object).is()) return formOf(shared_from_this(), object);
    return handleOf(std::make_unique<InvokedObject>(context_, shared_from_this(), object));
}

Reference<XInterface> Bridge::toOffice(tovera_object* object) {
    const auto* const ofOffice = officeObjectOf(object);
    return ofOffice ? ofOffice->office() : Reference<XInterface>();
}

}  // namespace tovera::office
