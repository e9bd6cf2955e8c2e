#pragma once

#include "calendar/class_table.h"
#include "conversion/class_table.h"
#include "crypto/class_table.h"
#include "database/class_table.h"
#include "geometry/class_table.h"
#include "input/class_table.h"
#include "language/class_table.h"
#include "multimedia/class_table.h"
#include "network/class_table.h"
#include "registry/class_table.h"
#include "shell/class_table.h"

namespace tovera {

template <class... Classes>
struct TypeList {};

/// The classes of the component, in the order of their publication.
using ComponentClasses = TypeList<Cls_InitREG, Cls_Windows, Cls_Traduction, Cls_Internet, Cls_Date, Cls_SQL,
                                  Cls_Cryptage, Cls_Conversion, Cls_Multimedia, Cls_Math, Cls_SourisClv>;

}  // namespace tovera
