#pragma once

#include "libreoffice/handles.h"
#include "libreoffice/office.h"

namespace tovera::office {

/// How objects cross between the office and the component. All that cross are the office's, also those that
/// stand for objects of the component, and come back as they went.
class Objects {
  public:
    Objects() = default;
    Objects(const Objects&) = delete;
    Objects& operator=(const Objects&) = delete;
    virtual ~Objects() = default;

    /// An object of the office as the component calls it.
    virtual Handle toComponent(const Reference<XInterface>& object) = 0;
    /// What an object stands for in the office.
    virtual Reference<XInterface> toOffice(tovera_object* object) = 0;
};

}  // namespace tovera::office
