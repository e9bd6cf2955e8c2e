#pragma once

#include <cstdlib>
#include <string>
#include <unistd.h>

#include "child_process.h"

namespace tovera::testing {

/// A display of the test's own, ended with it. `DISPLAY` names it meanwhile.
class XServer {
  public:
    XServer() {
        int ends[2];
        if (pipe(ends) != 0) return;
        process_ = start([&] {
            close(ends[0]);
            const auto number = std::to_string(ends[1]);
            const auto* const quiet = "/dev/null";
            if (!freopen(quiet, "w", stderr)) return 1;
            execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "1280x1024x24", "-noreset",
                   "-nolisten", "tcp", nullptr);
            return 1;
        });
        close(ends[1]);
        std::string digits;
        for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';) digits += digit;
        close(ends[0]);  // the server ends when it can't write the whole line
        if (digits.empty()) return;
        const auto* const before = std::getenv("DISPLAY");
        before_ = before ? before : "";
        isThere_ = true;
        setenv("DISPLAY", (':' + digits).c_str(), 1);
    }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;
    ~XServer() {
        end();
        if (isThere_) before_.empty() ? unsetenv("DISPLAY") : setenv("DISPLAY", before_.c_str(), 1);
    }

    bool isThere() const { return isThere_; }
    /// Takes the server away from its clients.
    void end() {
        if (process_ <= 0) return;
        kill(process_, SIGTERM);
        resultOf(process_);
        process_ = 0;
    }

  private:
    pid_t process_ = 0;
    std::string before_;
    bool isThere_ = false;
};

}  // namespace tovera::testing
