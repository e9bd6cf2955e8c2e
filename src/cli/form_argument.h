#pragma once

#include <string_view>
#include <vector>

#include "cli/form_object.h"

namespace tovera::cli {

/// The form files that a command line names. Each is read once, and all that name it get the same form.
class Forms {
  public:
    explicit Forms(Services& services) : services_(services) {}

    /// The form of a file, in the manner of Windows or of this system. Raises error 53 or 76 for a file that
    /// isn't there, 70 or 75 for one that can't be read, and 321 for one that isn't a form file.
    ObjectRef open(std::u16string_view path);

    /// Writes the texts that were changed back to their files. Where one can't be written, those before it
    /// get their old bytes again.
    void save() const;

  private:
    struct OpenForm {
        std::string path;
        std::shared_ptr<FormDocument> document;
        ObjectRef object;
    };

    Services& services_;
    std::vector<OpenForm> forms_;
};

}  // namespace tovera::cli
