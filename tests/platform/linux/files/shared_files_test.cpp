#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <thread>

#include "platform/linux/child_process.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/folder_entries.h"
#include "platform/linux/files/new_file.h"
#include "platform/linux/files/patient_lock.h"
#include "platform/linux/files/whole_file.h"
#include "platform/linux/temporary_folder.h"

namespace tovera::testing {
namespace {

using namespace std::chrono_literals;

constexpr uid_t nobody = 65534;
constexpr uid_t stranger = 12345;

/// Files of several users, which only root can make.
struct SharedFiles : ::testing::Test {
    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "files of other users can't be made";
        for (const auto& made : {folder.path(), own.path()}) ASSERT_EQ(chmod(made.c_str(), 0777), 0);
        setenv("XDG_DATA_HOME", own.path().c_str(), 1);
    }
    void TearDown() override { unsetenv("XDG_DATA_HOME"); }

    void put(uid_t owner, gid_t group, mode_t mode) {
        std::filesystem::remove(file);
        std::ofstream(file) << "old";
        ASSERT_EQ(chown(file.c_str(), owner, group) | chmod(file.c_str(), mode), 0);
    }
    static int changeTo(const std::string& path, const std::string& bytes) {
        return changeFile(path, [&](std::string_view) { return bytes; });
    }
    std::vector<std::string> unfinished() const { return entriesOf(own / "tovera/unfinished"); }

    TemporaryFolder folder;
    TemporaryFolder own;
    const std::string file = folder / "shared.ini";
};

TEST_F(SharedFiles, KeepAllThatGoesWithThem) {
    put(stranger, 54321, 0664);
    // Two more users: version 2, then tag, rights and user of each entry.
    const std::string list(
        "\2\0\0\0\1\0\6\0\377\377\377\377\2\0\6\0\1\0\0\0\4\0\4\0\377\377\377\377\20\0\6\0"
        "\377\377\377\377\40\0\4\0\377\377\377\377",
        44);
    const bool hasAttributes = setxattr(file.c_str(), "user.note", "n", 1, 0) == 0;
    const bool hasList = setxattr(file.c_str(), "system.posix_acl_access", list.data(), list.size(), 0) == 0;
    const auto before = *factsOf(file);
    ASSERT_EQ(changeTo(file, "new"), 0);
    const auto after = *factsOf(file);
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_NE(after.st_ino, before.st_ino);
    EXPECT_EQ(std::tuple(after.st_uid, after.st_gid, after.st_mode),
              std::tuple(before.st_uid, before.st_gid, before.st_mode));
    std::string value(100, '\0');
    EXPECT_EQ(getxattr(file.c_str(), "user.note", value.data(), value.size()), hasAttributes ? 1 : -1);
    EXPECT_EQ(getxattr(file.c_str(), "system.posix_acl_access", value.data(), value.size()),
              hasList ? 44 : -1);
    if (hasList) {
        EXPECT_EQ(value.substr(0, 44), list);
    }
}

TEST_F(SharedFiles, AreWrittenInPlaceWhereTheyCannotBeReplacedAsTheyAre) {
    const std::tuple<mode_t, uid_t, mode_t> rows[] = {
        {0777, stranger, 0666},   // the owner would be another one
        {0555, nobody, 0644},     // no new file in this folder
        {01777, stranger, 0666},  // a file of others can't be replaced
    };
    for (const auto& [folderMode, owner, fileMode] : rows) {
        put(owner, 54321, fileMode);
        const auto before = *factsOf(file);
        ASSERT_EQ(chmod(folder.path().c_str(), folderMode), 0);
        EXPECT_TRUE(succeedsForOthers([&] { return changeTo(file, "new content"); })) << owner;
        EXPECT_EQ(contentOf(file), "new content");
        EXPECT_TRUE(succeedsForOthers([&] { return changeTo(file, "n"); }));
        EXPECT_EQ(contentOf(file), "n");
        const auto after = *factsOf(file);
        EXPECT_EQ(std::tuple(after.st_ino, after.st_uid, after.st_gid, after.st_mode),
                  std::tuple(before.st_ino, owner, 54321, before.st_mode));
        EXPECT_TRUE(unfinished().empty());
        ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
        EXPECT_EQ(entriesOf(folder.path()), std::vector<std::string>{"shared.ini"});
    }
    put(stranger, 54321, 0666);
    setenv("XDG_DATA_HOME", "/proc", 1);
    EXPECT_FALSE(succeedsForOthers([&] { return changeTo(file, "new"); })) << "nowhere to keep the old bytes";
    EXPECT_EQ(contentOf(file), "old");
}

TEST_F(SharedFiles, ComeBackWholeFromAWriteInPlaceThatWasEnded) {
    constexpr std::size_t size = 4'000'000;
    put(stranger, 54321, 0666);
    std::ofstream(file) << std::string(size, 'a');
    int restored = 0;
    // On a busy machine few writers are met in the middle.
    for (int round = 0; round < 12 || (restored == 0 && round < 300); ++round) {
        const auto writer = start([&] {
            if (setuid(nobody) != 0) return 1;
            for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1))
                changeTo(file, std::string(size - static_cast<std::size_t>(letter), letter));
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(20 + 7 * (round % 40)));
        ::kill(writer, SIGKILL);
        resultOf(writer);
        restored += unfinished().empty() ? 0 : 1;
        EXPECT_TRUE(succeedsForOthers([&] {
            std::ostringstream said;
            auto* const before = std::cerr.rdbuf(said.rdbuf());
            bool isWhole = false;
            changeFile(file, [&](std::string_view bytes) -> std::optional<std::string> {
                isWhole = bytes.size() == size || bytes.size() == size - static_cast<std::size_t>(bytes[0]);
                isWhole = isWhole && bytes.find_first_not_of(bytes[0]) == std::string_view::npos;
                return {};
            });
            std::cerr.rdbuf(before);
            return isWhole ? 0 : 1;
        }));
        EXPECT_TRUE(unfinished().empty());
    }
    EXPECT_GT(restored, 0) << "no writer was ended in the middle";
}

TEST_F(SharedFiles, StrangersLeftoversAndLinksAreInNobodysWay) {
    ASSERT_EQ(chmod(folder.path().c_str(), 01777), 0);
    std::ofstream(folder / ".tovera-new") << "left by somebody";
    EXPECT_TRUE(
        succeedsForOthers([&] { return changeTo(folder / "mine", "1") | changeTo(folder / "mine", "2"); }));
    EXPECT_EQ(contentOf(folder / "mine"), "2");
    EXPECT_EQ(contentOf(folder / ".tovera-new"), "left by somebody");

    put(0, 0, 0644);
    const auto link = folder / "link";
    std::filesystem::create_symlink(file, link);
    EXPECT_EQ(changeTo(link, "by the folder's owner"), 0);
    ASSERT_EQ(lchown(link.c_str(), stranger, stranger), 0);
    EXPECT_EQ(changeTo(link, "by a stranger"), EACCES);
    EXPECT_EQ(NewFile().begin(link), EACCES);
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    EXPECT_EQ(changeTo(link, "in a folder without owners"), 0);
    EXPECT_EQ(contentOf(file), "in a folder without owners");
}

TEST(PatientLock, WaitsItsTimeAndTells) {
    const TemporaryFolder folder;
    const auto opened = [&] { return FileDescriptor(open(folder.path().c_str(), O_RDONLY | O_CLOEXEC)); };
    const std::tuple<std::chrono::milliseconds, int, int> rows[] = {
        {0ms, 0, 0}, {50ms, 0, 0}, {400ms, 0, 1}, {3000ms, EBUSY, 2}};
    for (const auto& [held, error, lines] : rows) {
        auto holder = std::make_unique<FileDescriptor>(opened());
        ASSERT_EQ(flock(holder->get(), LOCK_EX), 0);
        std::thread release([&, time = held] {
            std::this_thread::sleep_for(time);
            holder.reset();
        });
        ::testing::internal::CaptureStderr();
        const auto begin = std::chrono::steady_clock::now();
        {
            const auto file = opened();
            EXPECT_EQ(lockPatiently(file, "the folder", {200ms, 1000ms}), error) << held.count();
        }
        const auto waited = std::chrono::steady_clock::now() - begin;
        EXPECT_LT(waited, 2500ms);
        const auto said = ::testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::ranges::count(said, '\n'), lines) << said;
        release.join();
        std::this_thread::sleep_for(50ms);
        EXPECT_EQ(flock(opened().get(), LOCK_EX | LOCK_NB), 0) << "kept by one that has given up";
    }
}

}  // namespace
}  // namespace tovera::testing
