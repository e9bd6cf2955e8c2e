#include "cli/form_argument.h"

#include <algorithm>

#include "platform/user_files.h"

namespace tovera::cli {

ObjectRef Forms::open(std::u16string_view path) {
    auto file = ownPathOf(path);
    if (const auto known = std::ranges::find(forms_, file, &OpenForm::path); known != forms_.end())
        return known->object;
    auto document = std::make_shared<FormDocument>(bytesOfFile(file), services_);
    auto object = formObject(document);
    forms_.push_back(OpenForm{std::move(file), std::move(document), object});
    return object;
}

void Forms::save() const {
    struct Change {
        const OpenForm& form;
        std::string bytes;
    };
    std::vector<Change> changes;
    for (const auto& form : forms_) {
        if (form.document->isChanged()) changes.push_back({form, form.document->bytes()});
    }
    std::size_t written = 0;
    try {
        for (; written < changes.size(); ++written) {
            const auto& [form, bytes] = changes[written];
            replaceBytes(form.path, form.document->file().bytes, bytes);
        }
    } catch (const AutomationError&) {
        while (written-- > 0) {
            const auto& [form, bytes] = changes[written];
            replaceBytes(form.path, bytes, form.document->file().bytes);
        }
        throw;
    }
}

}  // namespace tovera::cli
