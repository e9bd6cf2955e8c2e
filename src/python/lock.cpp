#include "python/lock.h"

#include <chrono>
#include <thread>
#include <utility>

namespace tovera::python {
namespace {

/// The state of this thread while it has let the lock go, else null.
[[gnu::tls_model("initial-exec")]] thread_local constinit PyThreadState* letGo = nullptr;

/// A thread that comes back when the interpreter ends would be ended by it in the midst of C++, which the
/// process doesn't survive. It stops here until the process is gone.
void takeBack() {
    if (!Py_IsInitialized()) waitForTheEnd();
    orWaitForTheEnd([] { PyEval_RestoreThread(std::exchange(letGo, nullptr)); });
}

}  // namespace

void waitForTheEnd() {
    while (true) std::this_thread::sleep_for(std::chrono::hours(1));
}

OthersRun::OthersRun(bool wanted) : active_(wanted && Py_IsInitialized() != 0) {
    if (active_) letGo = PyEval_SaveThread();
}

OthersRun::~OthersRun() {
    if (active_) takeBack();
}

Locked::Locked() : active_(letGo != nullptr) {
    if (active_) takeBack();
}

Locked::~Locked() {
    if (active_) letGo = PyEval_SaveThread();
}

}  // namespace tovera::python
