#pragma once

#include <string>

namespace tovera {

/// Whether the pages of an LMDB file hang together: each reached once and where its parents say it is, keys
/// in their order, as many entries as were counted, no page both in use and free. LMDB itself trusts its file
/// and can crash on a damaged one. Nothing may write to the file meanwhile.
bool isSoundStore(const std::string& file);

/// The same for the part that LMDB reads when it opens the file; others may write meanwhile.
bool hasSoundHead(const std::string& file);

}  // namespace tovera
