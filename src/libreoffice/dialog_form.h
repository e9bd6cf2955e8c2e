#pragma once

#include <com/sun/star/beans/XPropertySet.hpp>

#include "libreoffice/office_object.h"

namespace tovera::office {

/// The model of a dialog or of a document's form, from the model itself or from the dialog that shows it;
/// nothing for other objects.
Reference<css::beans::XPropertySet> formModelOf(const Reference<XInterface>& object);

/// A dialog or a document's form as the component's classes know forms: the collection of its controls, with
/// those of its parts. Title and labels are captions, help texts are tool tips.
Handle formOf(std::shared_ptr<Objects> objects, const Reference<XInterface>& object);

}  // namespace tovera::office
