#include "cli/form_argument.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "platform/linux/files/file_errors.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/files/whole_file.h"

namespace tovera::cli {

namespace {

std::string bytesOf(const std::string& path) {
    FileBytes bytes;
    if (const int error = readFile(path, bytes)) raiseFileError(error);
    return std::string(bytes.view());
}

/// Refuses a read-only file, whoever we are, and one that somebody else has written since we read it.
void replace(const std::string& path, std::string_view oldBytes, std::string newBytes) {
    using std::filesystem::perms;
    constexpr auto anyWriter = perms::owner_write | perms::group_write | perms::others_write;
    std::error_code ignored;
    if ((std::filesystem::status(path, ignored).permissions() & anyWriter) == perms::none)
        raiseFileError(EACCES);
    bool stale = false;
    const int error = changeFile(path, [&](std::string_view present) -> std::optional<std::string> {
        stale = present != oldBytes;
        if (stale) return {};
        return std::move(newBytes);
    });
    if (error != 0) raiseFileError(error);
    if (stale) raise(ErrorNumber::PathAccess);
}

}  // namespace

ObjectRef Forms::open(std::u16string_view path) {
    const auto found = foundHostPath(path);
    if (found.empty()) raise(ErrorNumber::PathNotFound);
    std::error_code failure;
    const auto file = std::filesystem::canonical(found, failure).string();
    if (failure) raiseFileError(failure.value());
    if (const auto known = std::ranges::find(forms_, file, &OpenForm::path); known != forms_.end())
        return known->object;
    auto document = std::make_shared<FormDocument>(bytesOf(file), services_);
    auto object = formObject(document);
    forms_.push_back(OpenForm{file, std::move(document), object});
    return object;
}

void Forms::save() const {
    for (const auto& form : forms_) {
        if (form.document->isChanged())
            replace(form.path, form.document->file().bytes, form.document->bytes());
    }
}

}  // namespace tovera::cli
