#pragma once

#include <string>
#include <vector>

namespace tovera::client {

/// While it lives, programs are looked for in the recorder's folder before the system's. Nothing may be
/// launched unless it stands before the system's program.
class Recorder {
  public:
    Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder();

    /// Whether this program would be the recorder.
    bool standsFor(const std::wstring& program) const;
    /// The lines that were recorded, once there are so many or some seconds have passed. They are taken away.
    std::vector<std::string> take(std::size_t count) const;

  private:
    std::wstring before_, folder_;
};

}  // namespace tovera::client
