#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// The one function of the setup kit's library, `VB6stkit`.
struct SetupKit : Port<SetupKit> {
    /// Makes a link file to a program in the current folder, which must be the component's own; its name ends
    /// in the link's name and ".lnk".
    virtual I4 fCreateShellLink(const AnsiText& folder, const AnsiText& name, const AnsiText& target,
                                const AnsiText& arguments) {
        return missingLibrary(folder, name, target, arguments);
    }
};

SetupKit& homeSetupKit();

}  // namespace tovera
