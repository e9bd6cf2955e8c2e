#include <filesystem>
#include <gtest/gtest.h>
#include <windows.h>

#include "multimedia/cls_multimedia.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

TEST(LockedFiles, AreToldToTheCaller) {
    const auto* const path = L"C:\\verrou.wav";
    const HANDLE locked =
        CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(locked, INVALID_HANDLE_VALUE);
    Cls_Multimedia object;
    EXPECT_EQ(errorOf([&] { object.FrequenceFichierWAV(u"C:\\verrou.wav"); }), 70);
    CloseHandle(locked);
    EXPECT_EQ(object.FrequenceFichierWAV(u"C:\\verrou.wav"), 0);
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_NE(errorOf([&] { object.FrequenceFichierWAV(u"C:\\verrou.wav"); }), 0) << "a folder";
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace tovera::testing
