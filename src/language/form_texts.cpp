#include "language/form_texts.h"

#include <array>

#include "language/language_entry.h"

namespace tovera {
namespace {

constexpr std::array<std::u16string_view, 3> savingOrder{u"Caption", u"Text", u"ToolTipText"};
constexpr std::array<std::u16string_view, 3> loadingOrder{u"Caption", u"ToolTipText", u"Text"};

/// {FCFB3D25-A0FA-1068-A738-08002B3371B5}, the interface that every control of a form has.
constexpr InterfaceId controlInterface{
    0xFCFB3D25, 0xA0FA, 0x1068, {0xA7, 0x38, 0x08, 0x00, 0x2B, 0x33, 0x71, 0xB5}};

ObjectRef required(ObjectRef object) {
    if (!object) raise(ErrorNumber::ObjectRequired);
    return object;
}

}  // namespace

void FormTexts::save(FailuresIgnored& step) {
    step([&] {
        const auto section = formName();
        const auto key = formKey();
        const auto value = textOf(form_, u"Caption");
        writeLanguageEntry(platform_, section, key, value, file_);
    });
    forEachControl(step, [&](const ObjectRef& control) { saveControl(step, control); });
}

void FormTexts::saveControl(FailuresIgnored& step, const ObjectRef& control) {
    const auto key = keyOf(step, control);
    for (const auto property : savingOrder) {
        Bstr text;
        step([&] { text = textOf(control, property); });
        if (text.empty()) continue;
        step([&] {
            const auto section = formName();
            const auto entry = (this->*key)(control, property);
            const auto value = textOf(control, property);
            writeLanguageEntry(platform_, section, entry, value, file_);
        });
    }
}

void FormTexts::load(FailuresIgnored& step) {
    step([&] {
        const auto section = formName();
        const auto key = formKey();
        auto text = LireEntreeLangue(platform_, file_, section, key, textOf(form_, u"Caption"));
        writeMember(form_, u"Caption", std::move(text));
    });
    forEachControl(step, [&](const ObjectRef& control) { loadControl(step, control); });
}

void FormTexts::loadControl(FailuresIgnored& step, const ObjectRef& control) {
    const auto key = keyOf(step, control);
    for (const auto property : loadingOrder) {
        step([&] {
            const auto section = formName();
            const auto entry = (this->*key)(control, property);
            auto text = LireEntreeLangue(platform_, file_, section, entry, textOf(control, property));
            writeMember(control, property, std::move(text));
        });
    }
}

template <class Visit>
void FormTexts::forEachControl(FailuresIgnored& step, Visit&& visit) const {
    std::unique_ptr<Enumerator> controls;
    step([&] { controls = required(form_)->elements(); });
    while (controls) {
        std::optional<Variant> element;
        step([&] { element = controls->next(); });
        if (!element) return;
        ObjectRef control;
        if (step([&] { control = required(convert_.to<ObjectRef>(*element))->query(controlInterface); }))
            visit(control);
    }
}

/// A control whose `Index` can be read is the member of a control array.
FormTexts::Key FormTexts::keyOf(FailuresIgnored& step, const ObjectRef& control) const {
    step.error.clear();
    step([&] { readMember(control, u"Index"); });
    return step.error.number == 0 ? &FormTexts::arrayKey : &FormTexts::plainKey;
}

Bstr FormTexts::formKey() const {
    return join(formName(), u".Caption");
}

Bstr FormTexts::plainKey(const ObjectRef& control, std::u16string_view property) const {
    return join(textOf(control, u"name"), u".", property);
}

Bstr FormTexts::arrayKey(const ObjectRef& control, std::u16string_view property) const {
    return join(textOf(control, u"name"), u"(", textOf(control, u"Index"), u").", property);
}

Bstr FormTexts::formName() const {
    return textOf(form_, u"name");
}

/// The text of a member, never null: at the platform's entry points a null text would mean something else.
Bstr FormTexts::textOf(const ObjectRef& object, std::u16string_view member) const {
    return convert_.to<Bstr>(readMember(object, member)).view();
}

}  // namespace tovera
