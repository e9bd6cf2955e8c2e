#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

struct MDB_txn;

namespace tovera {

using Bytes = std::span<const std::byte>;

/// What failed inside a transaction, by LMDB's code or errno; the store gives the status for it.
struct StoreFailure {
    int code;
    /// An entry that isn't what was written.
    static StoreFailure damage();
    bool isDamage() const;
};

/// Throws the failure of a call of LMDB.
void requireSuccess(int code);

/// One transaction on the store: entries of a key (up to 511 bytes) and data of any size, in the order of the
/// keys. What it gives lives until its end, or until the next change.
class StoreTransaction {
  public:
    explicit StoreTransaction(MDB_txn* transaction) : transaction_(transaction) {}

    std::optional<Bytes> get(Bytes key) const;
    void put(Bytes key, Bytes data);
    void remove(Bytes key);
    /// Whether there are entries whose keys begin so.
    bool hasBeginning(Bytes beginning) const;
    void removeBeginning(Bytes beginning);

  private:
    std::optional<std::string> firstWith(Bytes beginning) const;

    MDB_txn* transaction_;
};

}  // namespace tovera
