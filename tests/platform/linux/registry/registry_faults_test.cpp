#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sys/stat.h>

#include "platform/linux/child_process.h"
#include "platform/linux/registry/registry_status.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

using namespace registryStatus;

const std::string keyPath = "Software\\Faults";

/// A user of numbered values.
struct Numbers : RegistryUser {
    using RegistryUser::RegistryUser;

    static std::string valueOf(int i) {
        return std::string(static_cast<std::size_t>(i % 300), static_cast<char>(i));
    }
    I4 writeNumber(int i) { return write(keyPath, std::to_string(i), valueOf(i)); }
    bool hasNumber(int i) { return reads(keyPath, std::to_string(i), valueOf(i)); }
};

struct RegistryFaults : UserHomeWithStore {
    TemporaryFolder folder;
    const std::string store = folder / "registry";
    const std::string data = store + "/data.mdb";

    void fill(int count) const {
        Numbers user(store);
        ASSERT_EQ(user.create(keyPath), success);
        for (int i = 0; i < count; ++i) ASSERT_EQ(user.writeNumber(i), success);
    }
    void expectFilled(int count) const {
        Numbers user(store);
        for (int i = 0; i < count; ++i) ASSERT_TRUE(user.hasNumber(i)) << i << " of " << count;
    }
    /// The damaged files that were set aside.
    std::vector<std::string> keptFiles() const {
        std::vector<std::string> kept;
        for (const auto& file : std::filesystem::directory_iterator(store)) kept.push_back(file.path());
        std::erase_if(kept, [](const auto& path) { return path.find("/damaged-") == path.npos; });
        return kept;
    }
    void overwrite(std::size_t position, const std::string& bytes) const {
        std::fstream stream(data, std::ios::in | std::ios::out | std::ios::binary);
        stream.seekp(static_cast<std::streamoff>(position));
        stream << bytes;
    }
};

TEST_F(RegistryFaults, whatWasReportedAsWrittenOutlivesTheProcess) {
    fill(0);
    std::mt19937 random(7);
    int written = 0;
    for (int round = 0; round < 8; ++round) {
        const int last = written + static_cast<int>(random() % 1000);
        const int reported = reportedByKilled(last, [&](auto report) {
            Numbers user(store);
            for (int i = written; user.writeNumber(i) == success && report(i);) ++i;
        });
        ASSERT_GE(reported, last);
        written = reported + 1;
        expectFilled(written);
    }
}

TEST_F(RegistryFaults, processesLoseNothingOfEachOther) {
    constexpr int processes = 8;
    constexpr int writes = 200;
    Numbers parents(store);  // found open by its children
    ASSERT_EQ(parents.create(keyPath), success);
    EXPECT_TRUE(succeedsInEach(processes, [&](int process) {
        Numbers own(store);
        auto& user = process % 4 == 0 ? parents : own;
        for (int i = process; i < processes * writes; i += processes) {
            if (user.writeNumber(i) != success || !user.hasNumber(i)) return 1;
        }
        return 0;
    }));
    EXPECT_TRUE(parents.hasNumber(9) && parents.writeNumber(processes * writes) == success);
    expectFilled(processes * writes + 1);
}

TEST_F(RegistryFaults, anotherProcessMayLetTheStoreGrow) {
    Numbers user(store);
    ASSERT_EQ(user.create(keyPath), success);
    const std::string big(1'000'000, 'b');
    const auto grow = [&](int) {
        RegistryUser other(store);
        for (int i = 0; i < 50; ++i)
            if (other.write(keyPath, "big" + std::to_string(i), big) != success) return 1;
        return 0;
    };
    EXPECT_TRUE(succeedsInEach(1, grow));
    EXPECT_EQ(user.writeNumber(7), success);
    EXPECT_TRUE(user.hasNumber(7) && user.reads(keyPath, "big49", big));
}

TEST_F(RegistryFaults, aStoreThatTookTheOldOnesPlaceGetsTheWrites) {
    Numbers user(store);
    ASSERT_EQ(user.create(keyPath), success);
    std::filesystem::rename(store, store + ".old");
    const auto make = [&](int) {
        Numbers other(store);
        return other.create(keyPath) == success && other.writeNumber(1) == success ? 0 : 1;
    };
    EXPECT_TRUE(succeedsInEach(1, make));
    EXPECT_EQ(user.writeNumber(0), success);
    EXPECT_TRUE(succeedsInEach(1, [&](int) { return Numbers(store).hasNumber(0) ? 0 : 1; }));
    EXPECT_TRUE(user.hasNumber(1));
}

/// Writes until the disk is full, makes room, and looks whether all is as reported.
int fillTheDisk(const std::string& store, const std::function<void()>& makeRoom) {
    RegistryUser user(store);
    const std::string big(20'000, 'b');
    if (user.create(keyPath) != success) return 1;
    int count = 0;
    while (count < 2000 && user.write(keyPath, std::to_string(count), big) == success) ++count;
    if (user.write(keyPath, std::to_string(count), big) != diskFull) return 2;
    for (int i = 0; i <= count; ++i) {
        if (user.reads(keyPath, std::to_string(i), big) != (i < count)) return 3;
    }
    makeRoom();
    return user.write(keyPath, "after", big) == success ? 0 : 4;
}

TEST_F(RegistryFaults, aFullDiskIsToldAndCostsNothing) {
    EXPECT_TRUE(succeedsOnFullDisk(3'000'000, [&](auto lift) { return fillTheDisk(store, lift); }));
    TemporaryDisk disk("64k");
    if (!disk.isThere) return;
    for (const auto* size : {"80k", "3m"}) {  // room for no new store, for half of one
        EXPECT_EQ(RegistryUser(disk / "registry").create(keyPath), diskFull);
        EXPECT_TRUE(disk.resize(size));
    }
    EXPECT_EQ(fillTheDisk(disk / "registry", [&] { EXPECT_TRUE(disk.resize("9m")); }), 0);
    EXPECT_TRUE(disk.makeReadOnly());
    RegistryUser reader(disk / "registry");
    EXPECT_EQ(reader.read(keyPath, "after"), success);
    EXPECT_EQ(reader.write(keyPath, "after", "x") | reader.remove(keyPath), accessDenied);
}

TEST_F(RegistryFaults, permissionsAreNoDamage) {
    fill(3);
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    const std::tuple<mode_t, mode_t, I4> rows[] = {{0555, 0444, success}, {0777, 0, accessDenied}};
    for (const auto& [folderMode, fileMode, reading] : rows) {
        ASSERT_EQ(chmod(store.c_str(), folderMode) | chmod(data.c_str(), fileMode), 0);
        EXPECT_TRUE(succeedsForOthers([&] {
            Numbers user(store);
            if (user.read(keyPath, "2") != reading) return 1;
            return user.writeNumber(1) == accessDenied && user.create("New") == accessDenied ? 0 : 2;
        })) << fileMode;
        ASSERT_EQ(chmod(store.c_str(), 0700) | chmod(data.c_str(), 0600), 0);
        EXPECT_TRUE(keptFiles().empty());
        expectFilled(3);
    }
}

TEST_F(RegistryFaults, aDamagedStoreIsToldAndSetAsideWhole) {
    std::mt19937 random(3);
    std::string noise(4096, ' ');
    for (auto& byte : noise) byte = static_cast<char>(random());
    const std::pair<const char*, std::function<void(std::size_t size)>> damages[] = {
        {"no store at all", [&](auto) { std::ofstream(data) << "This is no store."; }},
        {"nothing at all", [&](auto) { std::filesystem::resize_file(data, 0); }},
        {"cut in half", [&](auto size) { std::filesystem::resize_file(data, size / 2); }},
        {"noise at its head", [&](auto) { overwrite(0, noise + noise); }},
        {"noise all over",
         [&](auto size) {
             for (std::size_t at = 8192; at < size; at += 8192) overwrite(at, noise);
         }},
        {"nothing but zeros behind its head",
         [&](auto size) { overwrite(8192, std::string(size - 8192, '\0')); }},
        {"noise where a copy of an earlier start is left",
         [&](auto) {
             std::filesystem::copy_file(data, store + "/copy.mdb");
             overwrite(0, noise + noise);
         }},
    };
    for (const auto& [what, inflict] : damages) {
        SCOPED_TRACE(what);
        std::filesystem::remove_all(store);
        fill(500);
        inflict(std::filesystem::file_size(data));
        const auto damaged = contentOf(data);
        ::testing::internal::CaptureStderr();
        {
            Numbers user(store);
            EXPECT_EQ(user.read(keyPath, "1"), registryCorrupt);
            EXPECT_EQ(user.create("Software\\New"), success);
        }
        const auto message = ::testing::internal::GetCapturedStderr();
        const auto kept = keptFiles();
        ASSERT_EQ(kept.size(), 1U);
        EXPECT_NE(message.find(kept[0]), std::string::npos) << message;
        EXPECT_TRUE(contentOf(kept[0]) == damaged);
        EXPECT_TRUE(RegistryUser(store).has("Software\\New"));
        const bool hasCopy = std::filesystem::exists(store + "/copy.mdb");
        EXPECT_EQ(message.find("takes its place") != std::string::npos, hasCopy);
        if (hasCopy) expectFilled(500);
    }
}

TEST_F(RegistryFaults, aChangedByteIsToldAndKeptBeforeTheValueIsWrittenAnew) {
    fill(0);
    const std::string value = "a value that stands in the file as it is";
    RegistryUser(store).write(keyPath, "v", value);
    const auto bytes = contentOf(data);
    for (auto at = bytes.find(value); at != std::string::npos; at = bytes.find(value, at + 1))
        overwrite(at + 3, "X");
    const auto damaged = contentOf(data);
    RegistryUser user(store);
    for (int read = 0; read < 2; ++read) {
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(user.read(keyPath, "v"), registryCorrupt);
        EXPECT_THAT(::testing::internal::GetCapturedStderr(), ::testing::HasSubstr("can't be read"));
    }
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(user.write(keyPath, "v", value), success);
    const auto message = ::testing::internal::GetCapturedStderr();
    EXPECT_TRUE(user.reads(keyPath, "v", value));
    ASSERT_EQ(keptFiles().size(), 1U);
    EXPECT_TRUE(contentOf(keptFiles()[0]) == damaged);
    EXPECT_THAT(message, ::testing::HasSubstr(keptFiles()[0]));
    EXPECT_EQ(user.write(keyPath, "v", "sound"), success);
    EXPECT_EQ(keptFiles().size(), 1U);
}

TEST_F(RegistryFaults, whatIsMissingAfterADamageIsTold) {
    fill(3);
    std::ofstream(data) << "This is no store.";
    const auto toldBy = [&](const std::string& name) {
        ::testing::internal::CaptureStderr();
        Numbers user(store);
        for (int i = 0; i < 2; ++i) user.read(keyPath, name);
        return ::testing::internal::GetCapturedStderr();
    };
    EXPECT_THAT(toldBy("1"), ::testing::HasSubstr("was damaged"));
    EXPECT_THAT(toldBy("1"), ::testing::HasSubstr("may be in " + keptFiles()[0]));
    std::filesystem::remove(keptFiles()[0]);
    EXPECT_EQ(toldBy("1"), "");
}

TEST_F(RegistryFaults, anInterruptedRestorationIsFinished) {
    fill(20);
    std::filesystem::copy_file(data, store + "/copy.mdb");
    std::ofstream(store + "/restored") << "half of a copy";
    std::ofstream(data) << "This is no store.";
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(Numbers(store).read(keyPath, "1"), registryCorrupt);
    expectFilled(20);
    // Ended between its two renames.
    std::filesystem::rename(data, store + "/restored");
    expectFilled(20);
    EXPECT_FALSE(std::filesystem::exists(store + "/restored"));
    ::testing::internal::GetCapturedStderr();
}

TEST_F(RegistryFaults, aPipeInThePlaceOfAFileHoldsNobody) {
    for (const auto* name : {"data.mdb", "copy.mdb", "restored", "lock.mdb", "guard"}) {
        SCOPED_TRACE(name);
        std::filesystem::remove_all(store);
        std::filesystem::create_directory(store);
        ASSERT_EQ(mkfifo((store + "/" + name).c_str(), 0600), 0);
        EXPECT_EQ(resultOf(start([&] {
                      ::alarm(5);
                      freopen("/dev/null", "w", stderr);
                      Numbers user(store);
                      user.create(keyPath);
                      return 0;
                  })),
                  0);
    }
}

/// Many changes of all kinds leave a file that the check finds sound, and that holds what a plain map holds.
TEST_F(RegistryFaults, theCheckFindsNoFaultInASoundStore) {
    std::mt19937 random(11);
    std::map<std::string, std::string> model;
    for (int round = 0; round < 7; ++round) {
        RegistryUser user(store);
        for (const auto& [key, value] : model) EXPECT_TRUE(user.reads(key, "v", value)) << key;
        for (int i = 0; i < 300; ++i) {
            const auto key = "R\\k" + std::to_string(random() % 150);
            if (random() % 4 == 0) {
                EXPECT_EQ(user.remove(key), model.erase(key) != 0 ? success : notFound);
            } else {
                model[key] = std::string(random() % 9000, 'd');
                ASSERT_EQ(user.create(key) | user.write(key, "v", model[key]), success);
            }
        }
    }
    EXPECT_TRUE(keptFiles().empty());
}

}  // namespace
}  // namespace tovera::testing
