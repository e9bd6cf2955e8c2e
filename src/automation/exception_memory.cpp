// The compiler's library sets memory aside for exceptions when it is loaded, and leaves it to the end of the
// process to take that back. A component may be unloaded and loaded again many times before.
namespace __gnu_cxx {

void __freeres();  // NOLINT: the library's own name

}  // namespace __gnu_cxx

namespace {

const struct GivenBackAtUnloading {
    ~GivenBackAtUnloading() { __gnu_cxx::__freeres(); }
} givenBackAtUnloading;

}  // namespace
