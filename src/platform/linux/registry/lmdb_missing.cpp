#if !__has_include(<lmdb.h>)

#include "frame/error.h"
#include "platform/linux/registry/lmdb_store.h"

// A build without LMDB's header: every use of the store tells that the library is missing.
namespace tovera {

StoreFailure StoreFailure::damage() {
    raise(ErrorNumber::FileNotFound);
}

std::optional<Bytes> StoreTransaction::get(Bytes) const {
    raise(ErrorNumber::FileNotFound);
}

void StoreTransaction::put(Bytes, Bytes) {
    raise(ErrorNumber::FileNotFound);
}

void StoreTransaction::remove(Bytes) {
    raise(ErrorNumber::FileNotFound);
}

bool StoreTransaction::hasBeginning(Bytes) const {
    raise(ErrorNumber::FileNotFound);
}

void StoreTransaction::removeBeginning(Bytes) {
    raise(ErrorNumber::FileNotFound);
}

LmdbStore::LmdbStore(std::string folder) : folder_(std::move(folder)) {}

LmdbStore::~LmdbStore() = default;

void LmdbStore::keepDamaged() {}

void LmdbStore::tellOfEarlierLoss() {}

I4 LmdbStore::run(Purpose, WorkReference) {
    raise(ErrorNumber::FileNotFound);
}

}  // namespace tovera

#endif
