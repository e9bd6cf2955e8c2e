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
    for (const auto& form : forms_) {
        if (form.document->isChanged())
            replaceBytes(form.path, form.document->file().bytes, form.document->bytes());
    }
}

}  // namespace tovera::cli
