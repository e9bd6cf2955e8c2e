#pragma once

#include "python/interpreter.h"

// The lock of the interpreter: whoever runs Python has it. Code of the module has it, unless it has let it
// go.
namespace tovera::python {

/// Lets other threads of Python run, where that is wanted, until the end of its block.
class OthersRun {
  public:
    explicit OthersRun(bool wanted);
    OthersRun(const OthersRun&) = delete;
    OthersRun& operator=(const OthersRun&) = delete;
    ~OthersRun();

  private:
    bool active_;
};

/// The lock for a function that the component calls, if it has been let go for the call that has led there.
class Locked {
  public:
    Locked();
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked();

  private:
    bool active_;
};

}  // namespace tovera::python
