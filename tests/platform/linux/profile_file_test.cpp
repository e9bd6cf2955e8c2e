#include "platform/linux/profile_file.h"

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>

#include "platform/linux/child_process.h"
#include "platform/linux/temporary_folder.h"
#include "platform/linux/whole_file.h"

namespace tovera::testing {
namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct ProfileFile : ::testing::Test {
    void put(std::string_view text, mode_t mode = 0644) {
        std::ofstream(file, std::ios::binary) << text;
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
    }
    auto namesInFolder() const {
        return std::distance(std::filesystem::directory_iterator(folder.path()), {});
    }

    TemporaryFolder folder;
    const std::string file = folder / "profile.ini";
};

TEST_F(ProfileFile, IsMadeByAWriteButItsFolderIsNot) {
    EXPECT_EQ(readProfileEntry(file, "s", "k"), std::nullopt);
    EXPECT_TRUE(removeProfileEntry(file, "s", "k") && removeProfileSection(file, "s"));
    EXPECT_EQ(namesInFolder(), 0);
    EXPECT_TRUE(writeProfileEntry(file, "s", "k", "v"));
    EXPECT_EQ(contentOf(file), "[s]\r\nk=v\r\n");
    EXPECT_EQ(namesInFolder(), 1);
    for (const auto& path : {folder / "none/a.ini", folder.path(), folder / "", std::string(), file + "/a"}) {
        EXPECT_FALSE(writeProfileEntry(path, "s", "k", "v")) << path;
        EXPECT_FALSE(removeProfileSection(path, "s")) << path;
    }
    EXPECT_EQ(namesInFolder(), 1);
}

TEST_F(ProfileFile, KeepsItsModeAndTheLinksToIt) {
    put("[s]\nk=1\n", 0640);
    const auto link = folder / "link.ini";
    const auto dangling = folder / "new.ini";
    ASSERT_EQ(symlink("profile.ini", link.c_str()), 0);
    ASSERT_EQ(symlink((folder / "made.ini").c_str(), dangling.c_str()), 0);
    EXPECT_TRUE(writeProfileEntry(link, "s", "k", "2"));
    EXPECT_TRUE(writeProfileEntry(dangling, "s", "k", "3"));
    struct stat facts {};
    ASSERT_EQ(stat(file.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777U, 0640U);
    EXPECT_EQ(contentOf(file), "[s]\nk=2\n");
    EXPECT_EQ(contentOf(folder / "made.ini"), "[s]\r\nk=3\r\n");
    EXPECT_TRUE(std::filesystem::is_symlink(link) && std::filesystem::is_symlink(dangling));
}

TEST_F(ProfileFile, ReadsFilesOfAnySize) {
    for (const std::size_t size : {16383, 16384, 16385, 300000}) {
        auto text = "[s]\n" + std::string(size - 8, ';') + "\nk=v";
        ASSERT_EQ(text.size(), size);
        put(text);
        EXPECT_EQ(readProfileEntry(file, "s", "k"), "v") << size;
        EXPECT_TRUE(writeProfileEntry(file, "s", "k", "w"));
        text.back() = 'w';
        EXPECT_EQ(contentOf(file), text);
    }
    const auto pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(readProfileEntry(pipe, "s", "k"), std::nullopt);
    EXPECT_FALSE(writeProfileEntry(pipe, "s", "k", "v"));
    EXPECT_EQ(readProfileEntry("/dev/zero", "s", "k"), std::nullopt);
}

TEST_F(ProfileFile, LosesNothingToEightWriters) {
    constexpr int writers = 8;
    constexpr int entries = 40;
    const auto keyOf = [](int writer, int i) {
        return "k" + std::to_string(writer) + "_" + std::to_string(i);
    };
    std::vector<std::unique_ptr<ChildProcess>> processes;
    for (int writer = 0; writer < writers; ++writer) {
        processes.push_back(std::make_unique<ChildProcess>([&] {
            bool done = true;
            for (int i = 0; i < entries; ++i) {
                done = writeProfileEntry(file, "s" + std::to_string(i % 3), keyOf(writer, i), "v") && done;
            }
            return done ? 0 : 1;
        }));
    }
    for (const auto& process : processes) EXPECT_EQ(process->wait(), 0);
    for (int writer = 0; writer < writers; ++writer) {
        for (int i = 0; i < entries; ++i) {
            EXPECT_EQ(readProfileEntry(file, "s" + std::to_string(i % 3), keyOf(writer, i)), "v");
        }
    }
    EXPECT_EQ(namesInFolder(), 1);
}

TEST_F(ProfileFile, IsWholeWhereverAWriterIsKilled) {
    const std::string lead = "[s]\nfirst=" + std::string(50000, 'x') + "\n";
    put(lead);
    const auto counter = folder / "reported";
    for (int round = 0; round < 20; ++round) {
        ChildProcess writer([&] {
            const int reported = open(counter.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            for (int i = 0; i < 1000; ++i) {
                const auto number = std::to_string(round * 1000 + i);
                if (!writeProfileEntry(file, "s", "n", number)) return 1;
                if (pwrite(reported, number.c_str(), number.size(), 0) < 0) return 1;
            }
            return 0;
        });
        usleep(static_cast<useconds_t>(2000 + round * 1700));
        writer.kill();
        writer.wait();
        const auto reported = contentOf(counter);
        const auto stored = readProfileEntry(file, "s", "n");
        if (reported.empty()) continue;
        ASSERT_TRUE(stored);
        EXPECT_GE(std::stoi(*stored), std::stoi(reported));
        EXPECT_EQ(contentOf(file), lead + "n=" + *stored + "\n");
    }
    // A new file that was left behind is in nobody's way.
    EXPECT_TRUE(writeProfileEntry(file, "s", "n", "last"));
    std::filesystem::remove(counter);
    EXPECT_EQ(namesInFolder(), 1);
}

TEST_F(ProfileFile, StaysAsItIsWhenTheDiskIsFull) {
    put("[s]\nk=old\n");
    ChildProcess writer([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
        return writeProfileEntry(file, "s", "k", std::string(2000, 'x')) ? 1 : 0;
    });
    EXPECT_EQ(writer.wait(), 0);
    EXPECT_EQ(contentOf(file), "[s]\nk=old\n");
    EXPECT_EQ(namesInFolder(), 1);
}

TEST_F(ProfileFile, StaysAsItIsWhereWritingIsForbidden) {
    const struct { mode_t folderMode, fileMode; } rows[] = {{0555, 0666}, {0777, 0444}};
    for (const auto& row : rows) {
        put("[s]\nk=old\n", row.fileMode);
        ASSERT_EQ(chmod(folder.path().c_str(), row.folderMode), 0);
        ChildProcess writer([&] {
            if (geteuid() == 0 && setuid(65534) != 0) return 1;
            return writeProfileEntry(file, "s", "k", "new") || removeProfileSection(file, "s") ? 1 : 0;
        });
        EXPECT_EQ(writer.wait(), 0);
        ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
        ASSERT_EQ(chmod(file.c_str(), 0644), 0);
        EXPECT_EQ(contentOf(file), "[s]\nk=old\n");
        EXPECT_EQ(namesInFolder(), 1);
    }
}

}  // namespace
}  // namespace tovera::testing
