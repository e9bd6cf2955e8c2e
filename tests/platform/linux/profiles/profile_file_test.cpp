#include "platform/linux/profiles/profile_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/linux/child_process.h"
#include "platform/linux/temporary_folder.h"

namespace tovera::testing {
namespace {

struct ProfileFile : ::testing::Test {
    void put(const std::string& text, mode_t mode = 0644) {
        std::ofstream(file, std::ios::binary) << text;
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
    }
    auto namesInFolder() const {
        return std::distance(std::filesystem::directory_iterator(folder.path()), {});
    }
    static bool refuses(const std::string& path) {
        return !writeProfileEntry(path, "s", "k", std::string(20000, 'x')) &&
               !removeProfileSection(path, "s");
    }

    TemporaryFolder folder;
    const std::string file = folder / "profile.ini";
    const std::string old = "[s]\nk=old\n";
};

TEST_F(ProfileFile, IsMadeByAWriteButItsFolderIsNot) {
    EXPECT_TRUE(removeProfileEntry(file, "s", "k") && removeProfileSection(file, "s"));
    EXPECT_EQ(namesInFolder(), 0);
    EXPECT_TRUE(writeProfileEntry(file, "s", "k", "v"));
    EXPECT_EQ(contentOf(file), "[s]\r\nk=v\r\n");
    const auto pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const auto& path :
         {folder / "none/a.ini", folder.path(), folder / "", std::string(), file + "/a", pipe})
        EXPECT_TRUE(refuses(path)) << path;
    EXPECT_EQ(namesInFolder(), 2);
    for (const auto& path : {pipe, std::string("/dev/zero")})
        EXPECT_EQ(readProfileEntry(path, "s", "k"), std::nullopt) << path;
}

TEST_F(ProfileFile, KeepsItsModeAndTheLinksToIt) {
    put(old, 0640);
    const auto link = folder / "link.ini";
    const auto dangling = folder / "new.ini";
    std::filesystem::create_symlink("profile.ini", link);
    std::filesystem::create_symlink(folder / "made.ini", dangling);
    EXPECT_TRUE(writeProfileEntry(link, "s", "k", "2") && writeProfileEntry(dangling, "s", "k", "3"));
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0640));
    EXPECT_EQ(contentOf(file), "[s]\nk=2\n");
    EXPECT_EQ(contentOf(folder / "made.ini"), "[s]\r\nk=3\r\n");
    EXPECT_TRUE(std::filesystem::is_symlink(link) && std::filesystem::is_symlink(dangling));
}

TEST_F(ProfileFile, ReadsFilesOfAnySize) {
    for (const std::size_t size : {16383, 16384, 16385, 65534, 65536, 65538, 300000, 300001}) {
        auto text = "[s]\n" + std::string(size - 8, ';') + "\nk=v";
        for (std::size_t i = 9; size % 2 == 0 && i + 9 < text.size(); i += 7) text.replace(i, 2, "\r\n");
        put(text);
        EXPECT_EQ(readProfileEntry(file, "s", "k"), "v") << size;
        EXPECT_TRUE(writeProfileEntry(file, "s", "k", "w"));
        text.back() = 'w';
        EXPECT_EQ(contentOf(file), text);
    }
    put("\xEF\xBB\xBF;" + std::string(300000, ';') + "\n[s]\nk=\xC3\xA9");
    EXPECT_EQ(readProfileEntry(file, "s", "k"), "\xE9");
}

TEST_F(ProfileFile, LosesNothingToEightWriters) {
    constexpr int writers = 8;
    constexpr int entries = 40;
    const auto keyOf = [](int writer, int i) { return std::to_string(writer) + "_" + std::to_string(i); };
    EXPECT_TRUE(succeedsInEach(writers, [&](int writer) {
        int i = 0;
        while (i < entries && writeProfileEntry(file, "s", keyOf(writer, i), "v")) ++i;
        return i - entries;
    }));
    for (int n = 0; n < writers * entries; ++n)
        EXPECT_EQ(readProfileEntry(file, "s", keyOf(n % writers, n / writers)), "v");
    EXPECT_EQ(namesInFolder(), 1);
}

TEST_F(ProfileFile, IsWholeWhereverAWriterIsKilled) {
    const std::string lead = "[s]\nfirst=" + std::string(50000, 'x') + "\n";
    put(lead);
    for (int round = 0; round < 20; ++round) {
        const int reported = reportedByKilled(round * 1000 + round * 3, [&](auto report) {
            for (int i = round * 1000; writeProfileEntry(file, "s", "n", std::to_string(i)) && report(i);)
                ++i;
        });
        const auto stored = readProfileEntry(file, "s", "n").value_or("-1");
        EXPECT_TRUE(reported >= round * 1000 && std::stoi(stored) >= reported) << stored << ' ' << reported;
        EXPECT_EQ(contentOf(file), lead + "n=" + stored + "\n");
    }
    // A new file that was left behind is in nobody's way.
    EXPECT_TRUE(writeProfileEntry(file, "s", "n", "last"));
    EXPECT_EQ(namesInFolder(), 1);
}

TEST_F(ProfileFile, StaysAsItIsWhenTheDiskIsFullOrWritingIsForbidden) {
    put(old);
    EXPECT_TRUE(succeedsOnFullDisk(1000, [&](auto lift) {
        if (writeProfileEntry(file, "s", "k", std::string(2000, 'x')) || contentOf(file) != old) return 1;
        lift();
        return writeProfileEntry(file, "s", "k", "old") ? 0 : 2;
    }));
    for (const mode_t folderMode : {0555, 0777}) {
        ASSERT_EQ(chmod(folder.path().c_str(), folderMode) | chmod(file.c_str(), 0444), 0);
        EXPECT_TRUE(succeedsForOthers([&] { return refuses(file) ? 0 : 1; }));
        ASSERT_EQ(chmod(folder.path().c_str(), 0755) | chmod(file.c_str(), 0644), 0);
    }
    EXPECT_EQ(contentOf(file), old);
    EXPECT_EQ(namesInFolder(), 1);
    TemporaryDisk disk("16k");
    if (!disk.isThere) return;
    const auto onDisk = disk / "a.ini";
    std::ofstream(onDisk) << old;
    EXPECT_FALSE(writeProfileEntry(onDisk, "s", "k", std::string(20000, 'x')));
    EXPECT_TRUE(disk.makeReadOnly() && refuses(onDisk));
    EXPECT_EQ(contentOf(onDisk), old);
}

}  // namespace
}  // namespace tovera::testing
