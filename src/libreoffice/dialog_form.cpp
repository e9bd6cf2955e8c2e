#include "libreoffice/dialog_form.h"

#include <array>
#include <com/sun/star/awt/XControl.hpp>
#include <com/sun/star/awt/XControlModel.hpp>
#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/form/XForm.hpp>
#include <cstring>
#include <vector>

#include "libreoffice/failures.h"
#include "libreoffice/member_names.h"
#include "libreoffice/values.h"

namespace tovera::office {
namespace {

using css::beans::XPropertySet;
using css::container::XNameContainer;

/// {FCFB3D25-A0FA-1068-A738-08002B3371B5}, the interface that every control of a form has.
constexpr tovera_interface_id controlInterface{
    0xFCFB3D25, 0xA0FA, 0x1068, {0xA7, 0x38, 0x08, 0x00, 0x2B, 0x33, 0x71, 0xB5}};

/// What the component's classes call a text, and the properties that hold it here: the first one that there
/// is.
struct NamedText {
    const char* name;
    std::array<const char*, 2> properties;
};
constexpr std::array<NamedText, 4> texts{{
    {"name", {"Name", nullptr}},
    {"caption", {"Label", "Title"}},
    {"text", {"Text", nullptr}},
    {"tooltiptext", {"HelpText", nullptr}},
}};

class FormItem : public OfficeObject {
  public:
    FormItem(std::shared_ptr<Objects> objects, const Reference<XInterface>& object,
             const Reference<XPropertySet>& model)
        : objects_(std::move(objects)), object_(object), model_(model) {}

    Reference<XInterface> office() const override { return object_; }

    sal_Int32 memberNamed(const OUString& name) override {
        const auto property = propertyOf(name);
        if (property.isEmpty()) raise(Number::NoSuchMember);
        return names_.idOf(property);
    }

    void invoke(sal_Int32 member, unsigned flags, tovera_value* arguments, std::size_t count,
                tovera_value& result) override {
        const auto property = names_.at(member);
        if ((flags & TOVERA_WRITE) != 0 && count == 1) {
            model_->setPropertyValue(property, toOffice(*objects_, arguments[0]));
        } else if (count == 0) {
            put(*objects_, model_->getPropertyValue(property), result);
        } else {
            raise(Number::WrongArgumentCount);
        }
    }

  protected:
    const std::shared_ptr<Objects>& objects() const { return objects_; }
    const Reference<XPropertySet>& model() const { return model_; }

  private:
    /// The model's property for a member's name; empty where it has none. Controls in arrays do not exist
    /// here, so that no control has an index.
    OUString propertyOf(const OUString& name) const {
        const auto known = model_->getPropertySetInfo();
        for (const auto& text : texts) {
            if (!name.equalsIgnoreAsciiCaseAscii(text.name)) continue;
            for (const auto* const property : text.properties) {
                if (const auto found = fromUtf8(property); property && known->hasPropertyByName(found))
                    return found;
            }
            return {};
        }
        if (name.equalsIgnoreAsciiCase("Index")) return {};
        for (const auto& property : known->getProperties()) {
            if (property.Name.equalsIgnoreAsciiCase(name)) return property.Name;
        }
        return {};
    }

    std::shared_ptr<Objects> objects_;
    Reference<XInterface> object_;
    Reference<XPropertySet> model_;
    MemberNames names_;
};

class Control final : public FormItem {
  public:
    Control(std::shared_ptr<Objects> objects, const Reference<XPropertySet>& model)
        : FormItem(std::move(objects), model, model) {}

    Handle query(const tovera_interface_id& asked) override {
        if (std::memcmp(&asked, &controlInterface, sizeof asked) != 0) return {};
        return handleOf(std::make_unique<Control>(objects(), model()));
    }
};

void collect(const Reference<XInterface>& container, std::vector<Reference<XPropertySet>>& controls) {
    const Reference<XNameContainer> parts(container, UNO_QUERY);
    if (!parts.is()) return;
    for (const auto& name : parts->getElementNames()) {
        const Reference<XPropertySet> control(parts->getByName(name), UNO_QUERY);
        if (!control.is()) continue;
        controls.push_back(control);
        collect(control, controls);
    }
}

class ControlWalk final : public Walk {
  public:
    ControlWalk(std::shared_ptr<Objects> objects, const Reference<XInterface>& form)
        : objects_(std::move(objects)) {
        collect(form, controls_);
    }
    bool next(tovera_value& element) override {
        if (next_ == controls_.size()) return false;
        tovera_clear(&element);
        element =
            tovera_of_object(handleOf(std::make_unique<Control>(objects_, controls_[next_++])).release());
        element.owned = 1;
        return true;
    }

  private:
    std::shared_ptr<Objects> objects_;
    std::vector<Reference<XPropertySet>> controls_;
    std::size_t next_ = 0;
};

class Form final : public FormItem {
  public:
    using FormItem::FormItem;
    std::unique_ptr<Walk> elements() override { return std::make_unique<ControlWalk>(objects(), model()); }
};

}  // namespace

Reference<XPropertySet> formModelOf(const Reference<XInterface>& object) {
    Reference<XInterface> model = object;
    if (const Reference<css::awt::XControl> shown(object, UNO_QUERY); shown.is()) model = shown->getModel();
    const bool isForm = Reference<css::awt::XControlModel>(model, UNO_QUERY).is() ||
                        Reference<css::form::XForm>(model, UNO_QUERY).is();
    if (!isForm || !Reference<XNameContainer>(model, UNO_QUERY).is()) return {};
    return {model, UNO_QUERY};
}

Handle formOf(std::shared_ptr<Objects> objects, const Reference<XInterface>& object) {
    return handleOf(std::make_unique<Form>(std::move(objects), object, formModelOf(object)));
}

}  // namespace tovera::office
