#pragma once

#include <atomic>
#include <mutex>

namespace tovera {

/// A shared library of the system, loaded at the first call of one of its functions and kept until the end.
class SharedLibrary {
  public:
    /// The library's file name, found along the system's own path, and that of another library that serves as
    /// well.
    constexpr explicit SharedLibrary(const char* name, const char* otherName = nullptr)
        : name_(name), otherName_(otherName) {}

    /// The address of a function. Raises error 53 for a library that can't be loaded, 453 for a function that
    /// it hasn't got.
    void* function(const char* name);
    bool isPresent();

  private:
    void* load();

    const char* name_;
    const char* otherName_;
    std::mutex mutex_;
    void* handle_ = nullptr;
};

/// The address of a function of a shared library, looked up when it is first asked for.
template <class Function>
class EntryPointAddress {
  public:
    constexpr EntryPointAddress(SharedLibrary& library, const char* name) : library_(library), name_(name) {}

    /// For a library that takes the function itself, as a callback.
    Function* address() const {
        auto* found = address_.load(std::memory_order_acquire);
        if (!found) {
            found = reinterpret_cast<Function*>(library_.function(name_));
            address_.store(found, std::memory_order_release);
        }
        return found;
    }

  private:
    SharedLibrary& library_;
    const char* name_;
    mutable std::atomic<Function*> address_{nullptr};
};

/// A function of a shared library, bound at its first call: `EntryPoint<decltype(mdb_get)>`.
template <class Function>
class EntryPoint : public EntryPointAddress<Function> {
  public:
    using EntryPointAddress<Function>::EntryPointAddress;
    template <class... Arguments>
    auto operator()(Arguments... arguments) const {
        return this->address()(arguments...);
    }
};

/// The same where the number of arguments is fixed: they convert to what the function declares.
template <class R, class... Declared>
class EntryPoint<R(Declared...)> : public EntryPointAddress<R(Declared...)> {
  public:
    using EntryPointAddress<R(Declared...)>::EntryPointAddress;
    R operator()(Declared... arguments) const { return this->address()(arguments...); }
};

}  // namespace tovera
