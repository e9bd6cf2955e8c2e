#include "platform/linux/network/progress_bar.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <sstream>

#include "cli/program.h"
#include "platform/linux/child_process.h"
#include "platform/linux/libraries/shared_library.h"
#include "platform/linux/network/loopback_server.h"
#include "platform/linux/temporary_folder.h"

namespace tovera::testing {
namespace {

TEST(ProgressBars, TellHowMuchHasCome) {
    EXPECT_EQ(progressText(12'345'678, 0), "12.3 MB");
    EXPECT_EQ(progressText(0, 1'000'000), "[" + std::string(30, ' ') + "] 0 % of 1.0 MB");
    EXPECT_EQ(progressText(505'000, 1'000'000),
              "[" + std::string(15, '#') + std::string(15, ' ') + "] 50 % of 1.0 MB");
    EXPECT_EQ(progressText(7, 5), "[" + std::string(30, '#') + "] 100 % of 0.0 MB");
}

/// What the program writes on standard error, a terminal or a pipe, during a download of a good second.
std::string shownOn(const std::array<int, 2>& ends, const std::string& step) {
    const auto process = start([&] {
        dup2(ends[1], STDERR_FILENO);
        close(ends[0]);
        std::istringstream input;
        std::ostringstream output;
        const std::array<std::string, 2> arguments{"Cls_Internet", step};
        return cli::runProgram(arguments, {input, output, output}) == 0 && output.str() == "True\n" ? 0 : 1;
    });
    close(ends[1]);
    std::string text;
    for (char piece[4096];;) {
        const auto count = read(ends[0], piece, sizeof piece);
        if (count <= 0) break;
        text.append(piece, static_cast<std::size_t>(count));
    }
    close(ends[0]);
    EXPECT_EQ(resultOf(process), 0);
    return text;
}

TEST(ProgressBars, AreForTerminalsAlone) {
    if (!canForkBesideThreads) GTEST_SKIP() << "not under the address sanitizer";
#if !__has_include(<curl/curl.h>)
    GTEST_SKIP() << "built without libcurl";
#endif
    if (!SharedLibrary("libcurl.so.4", "libcurl-gnutls.so.4").isPresent())
        GTEST_SKIP() << "libcurl isn't installed";
    const TemporaryFolder folder;
    const LoopbackServer server(
        {{"/", {"HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n", 1'000'000, false, 90}}});
    for (const auto* variable : {"http_proxy", "all_proxy", "ALL_PROXY"}) unsetenv(variable);
    const auto step = "TelechargeFichier(\"" + server.url("/") + "\", \"" + folder / "f" + "\")";
    std::array<int, 2> ends{};
    ASSERT_EQ(openpty(&ends[0], &ends[1], nullptr, nullptr, nullptr), 0);
    const auto shown = shownOn(ends, step);
    EXPECT_NE(shown.find("% of 1.0 MB"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with("\r\x1b[K")) << "the line is left empty";
    ASSERT_EQ(pipe(ends.data()), 0);
    EXPECT_EQ(shownOn(ends, step), "");
}

}  // namespace
}  // namespace tovera::testing
