#pragma once

#include "frame/object_ref.h"

namespace tovera {

struct Services;

/// `Scripting.FileSystemObject`: FileExists, FolderExists, GetFileName, GetParentFolderName, CreateFolder.
ObjectRef makeFileSystemObject(Services& services);

}  // namespace tovera
