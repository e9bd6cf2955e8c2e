#pragma once

#include <map>

#include "cli/form_file.h"
#include "frame/services.h"

namespace tovera::cli {

/// A form file and the texts that were assigned to its form and controls since it was read.
class FormDocument {
  public:
    /// Raises error 321 for bytes that aren't those of a form file.
    FormDocument(std::string bytes, Services& services)
        : file_(readFormFile(std::move(bytes))), services_(services) {}

    const FormFile& file() const { return file_; }
    Services& services() const { return services_; }

    /// A text property of a block, empty where the file has no line for it.
    Bstr text(std::size_t block, std::string_view property) const;
    /// Assigns it. A text that is only what a language file makes of the present one, which loses the blanks
    /// and quotes round a text and all beyond 254 characters, is no other text: the line stays as it is.
    /// Raises error 438 for a text that can only be read, and 5 for one that a line of the file
    /// can't hold: with a line break, or a character that the ANSI code page lacks.
    void setText(std::size_t block, std::string_view property, const Bstr& text);

    bool isChanged() const { return !texts_.empty(); }
    /// The file's bytes with the assigned texts.
    std::string bytes() const;

  private:
    std::string_view writtenText(std::size_t block, std::string_view property) const;
    std::string_view presentText(std::size_t block, std::string_view property) const;

    FormFile file_;
    Services& services_;
    std::map<std::pair<std::size_t, std::string_view>, std::string> texts_;  ///< those that differ
};

}  // namespace tovera::cli
