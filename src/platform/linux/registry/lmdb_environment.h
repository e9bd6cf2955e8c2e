#pragma once

#include <utility>

#include "platform/linux/registry/lmdb_library.h"
#include "platform/linux/registry/store_transaction.h"

namespace tovera {

/// Aborts its transaction unless that was committed.
class WriteTransaction {
  public:
    explicit WriteTransaction(MDB_env* environment) {
        requireSuccess(lmdb().txn_begin(environment, static_cast<MDB_txn*>(nullptr), 0U, &transaction_));
    }
    WriteTransaction(const WriteTransaction&) = delete;
    WriteTransaction& operator=(const WriteTransaction&) = delete;
    ~WriteTransaction() {
        if (transaction_) lmdb().txn_abort(transaction_);
    }

    MDB_txn* get() const { return transaction_; }
    void commit() { requireSuccess(lmdb().txn_commit(std::exchange(transaction_, nullptr))); }

  private:
    MDB_txn* transaction_ = nullptr;
};

}  // namespace tovera
