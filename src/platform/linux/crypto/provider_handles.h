#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/linux/crypto/key_pair.h"
#include "platform/linux/crypto/key_store.h"
#include "platform/linux/crypto/rc4.h"

// What stands behind the numbers that callers hold of the provider.
namespace tovera {

/// An opened container. A pair once read stays until the container is closed.
struct OpenContainer {
    explicit OpenContainer(std::string folder) : store(std::move(folder)) {}
    KeyStore store;
    std::map<I4, KeyPair> pairs;
};

/// A hash that takes bytes until its value is used.
struct OpenHash {
    std::shared_ptr<OpenContainer> container;
    DigestContext bytes;
    std::optional<Md5Digest> value;
};

/// A handle of a pair of the container.
struct PairKey {
    std::shared_ptr<OpenContainer> container;
    I4 pair = 0;
};

/// A key of the cipher. Its stream begins anew behind a final block.
struct CipherKey {
    explicit CipherKey(const std::array<std::uint8_t, 16>& bytes) : fresh(bytes), stream(fresh) {}
    CipherKey(const CipherKey&) = delete;
    CipherKey& operator=(const CipherKey&) = delete;
    ~CipherKey() {
        openSsl().cleanse(&fresh, sizeof fresh);
        openSsl().cleanse(&stream, sizeof stream);
    }
    Rc4 fresh;
    Rc4 stream;
};

/// Objects by number, for all threads. A number isn't given twice until all are used up.
template <class Object>
class HandleTable {
  public:
    I4 add(std::shared_ptr<Object> object) {
        const std::lock_guard guard(mutex_);
        do last_ = last_ == maxI4 ? 1 : last_ + 1;
        while (objects_.contains(last_));
        objects_.emplace(last_, std::move(object));
        return last_;
    }
    /// Null for a number that stands for nothing.
    std::shared_ptr<Object> find(I4 handle) {
        const std::lock_guard guard(mutex_);
        const auto found = objects_.find(handle);
        return found == objects_.end() ? nullptr : found->second;
    }
    bool remove(I4 handle) {
        const std::lock_guard guard(mutex_);
        return objects_.erase(handle) != 0;
    }

  private:
    static constexpr I4 maxI4 = 0x7FFFFFFF;
    std::mutex mutex_;
    std::map<I4, std::shared_ptr<Object>> objects_;
    I4 last_ = 0;
};

}  // namespace tovera
