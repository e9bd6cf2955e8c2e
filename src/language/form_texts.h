#pragma once

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera {

/// The texts of one form and of its controls, and their entries in a language file: one section with the
/// form's name. The form is reached by late-bound calls alone, each of them made anew; a property that a
/// control lacks has no entry.
class FormTexts {
  public:
    FormTexts(Platform& platform, const ObjectRef& form, Bstr& file)
        : platform_(platform), convert_(platform.services), form_(form), file_(file) {}

    /// Writes the form's caption, and of each control the texts that aren't empty.
    void save(FailuresIgnored& step);
    /// Gives the form and its controls what the file holds for them, else their own texts again.
    void load(FailuresIgnored& step);

  private:
    using Key = Bstr (FormTexts::*)(const ObjectRef& control, std::u16string_view property) const;

    Bstr plainKey(const ObjectRef& control, std::u16string_view property) const;
    Bstr arrayKey(const ObjectRef& control, std::u16string_view property) const;
    Bstr formKey() const;
    Key keyOf(FailuresIgnored& step, const ObjectRef& control) const;

    Bstr textOf(const ObjectRef& object, std::u16string_view member) const;
    Bstr formName() const;

    template <class Visit>
    void forEachControl(FailuresIgnored& step, Visit&& visit) const;
    void saveControl(FailuresIgnored& step, const ObjectRef& control);
    void loadControl(FailuresIgnored& step, const ObjectRef& control);

    Platform& platform_;
    Conversions convert_;
    const ObjectRef& form_;
    Bstr& file_;
};

}  // namespace tovera
