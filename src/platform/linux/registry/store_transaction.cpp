#include "platform/linux/registry/store_transaction.h"

#if __has_include(<lmdb.h>)

#include <cstring>

#include "platform/linux/registry/lmdb_library.h"

namespace tovera {
namespace {

constexpr MDB_dbi mainDatabase = 1;

MDB_val valueOf(Bytes bytes) {
    return {bytes.size(), const_cast<std::byte*>(bytes.data())};
}

Bytes bytesOf(const MDB_val& value) {
    return {static_cast<const std::byte*>(value.mv_data), value.mv_size};
}

bool beginsWith(Bytes bytes, Bytes beginning) {
    return bytes.size() >= beginning.size() &&
           std::memcmp(bytes.data(), beginning.data(), beginning.size()) == 0;
}

}  // namespace

StoreFailure StoreFailure::damage() {
    return {MDB_CORRUPTED};
}

bool StoreFailure::isDamage() const {
    return code == MDB_CORRUPTED || code == MDB_PAGE_NOTFOUND || code == MDB_INVALID ||
           code == MDB_VERSION_MISMATCH;
}

void requireSuccess(int code) {
    if (code != MDB_SUCCESS) throw StoreFailure{code};
}

std::optional<Bytes> StoreTransaction::get(Bytes key) const {
    auto wanted = valueOf(key);
    MDB_val found{};
    const int code = lmdb().get(transaction_, mainDatabase, &wanted, &found);
    if (code == MDB_NOTFOUND) return std::nullopt;
    requireSuccess(code);
    return bytesOf(found);
}

void StoreTransaction::put(Bytes key, Bytes data) {
    auto wanted = valueOf(key);
    auto stored = valueOf(data);
    requireSuccess(lmdb().put(transaction_, mainDatabase, &wanted, &stored, 0U));
}

void StoreTransaction::remove(Bytes key) {
    auto wanted = valueOf(key);
    const int code = lmdb().del(transaction_, mainDatabase, &wanted, static_cast<MDB_val*>(nullptr));
    if (code != MDB_NOTFOUND) requireSuccess(code);
}

std::optional<std::string> StoreTransaction::firstWith(Bytes beginning) const {
    MDB_cursor* cursor = nullptr;
    requireSuccess(lmdb().cursor_open(transaction_, mainDatabase, &cursor));
    auto key = valueOf(beginning);
    MDB_val data{};
    const int code = lmdb().cursor_get(cursor, &key, &data, MDB_SET_RANGE);
    std::optional<std::string> first;
    if (code == MDB_SUCCESS && beginsWith(bytesOf(key), beginning)) {
        first.emplace(static_cast<const char*>(key.mv_data), key.mv_size);
    }
    lmdb().cursor_close(cursor);
    if (code != MDB_NOTFOUND) requireSuccess(code);
    return first;
}

bool StoreTransaction::hasBeginning(Bytes beginning) const {
    return firstWith(beginning).has_value();
}

void StoreTransaction::removeBeginning(Bytes beginning) {
    while (const auto key = firstWith(beginning)) remove(std::as_bytes(std::span(*key)));
}

}  // namespace tovera

#endif
