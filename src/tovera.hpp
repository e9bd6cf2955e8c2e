#pragma once

#if __cplusplus < 202002L
#error "TOVERA needs C++20 or later: -std=c++20"
#endif

// All that a user of the library needs: the classes, directly or by name.
//
//     tovera::Cls_Date().Paques(2027);                                          // failures are AutomationError
//     tovera::createComponent("KADRELDLL.Cls_Date").call(u"Paques", 2027);      // the same, as a host calls it

#include <ostream>

#include "calendar/cls_date.h"
#include "catalogue/catalogue.h"
#include "conversion/cls_conversion.h"
#include "crypto/cls_cryptage.h"
#include "database/cls_sql.h"
#include "frame/utf8.h"
#include "geometry/cls_math.h"
#include "input/cls_sourisclv.h"
#include "language/cls_traduction.h"
#include "multimedia/cls_multimedia.h"
#include "network/cls_internet.h"
#include "platform/object_registration.h"
#include "registry/cls_initreg.h"
#include "shell/cls_windows.h"

namespace tovera {

/// As UTF-8.
inline std::ostream& operator<<(std::ostream& out, const Bstr& text) {
    return out << toUtf8(text);
}

}  // namespace tovera
