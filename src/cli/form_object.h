#pragma once

#include <memory>

#include "cli/form_document.h"
#include "frame/object.h"

namespace tovera::cli {

/// The form as a late-bound object: the collection of its controls, each of them with its name, its texts and
/// its other plain properties.
ObjectRef formObject(std::shared_ptr<FormDocument> document);

}  // namespace tovera::cli
