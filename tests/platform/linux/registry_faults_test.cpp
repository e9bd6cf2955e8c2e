#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sys/stat.h>

#include "platform/linux/child_process.h"
#include "platform/linux/registry_user.h"
#include "platform/linux/temporary_folder.h"

namespace tovera::testing {
namespace {

using namespace registryStatus;

const std::string keyPath = "Software\\Faults";

struct RegistryFaults : ::testing::Test {
    TemporaryFolder folder;
    const std::string store = folder / "registry";
    const std::string data = store + "/data.mdb";

    void SetUp() override {
        if (!hasStore()) GTEST_SKIP() << "LMDB isn't installed";
    }

    /// Calls work with a registry of its own, as another process would have it.
    template <class Work>
    static auto withRegistry(const std::string& in, Work&& work) {
        LinuxAdvapi32 registry(in);
        RegistryUser user(registry);
        return work(user);
    }
    template <class Work>
    auto withRegistry(Work&& work) const {
        return withRegistry(store, std::forward<Work>(work));
    }

    static std::string valueOf(int i) {
        return std::string(static_cast<std::size_t>(i % 300), static_cast<char>(i));
    }
    static I4 write(RegistryUser& user, int i, const std::string& prefix = "v") {
        return user.write(keyPath, prefix + std::to_string(i), valueOf(i));
    }
    static bool isThere(RegistryUser& user, int i, const std::string& prefix = "v") {
        std::string read;
        return user.read(keyPath, prefix + std::to_string(i), read) == success && read == valueOf(i);
    }
    void fill(int count) const {
        withRegistry([&](RegistryUser& user) {
            ASSERT_EQ(user.create(keyPath), success);
            for (int i = 0; i < count; ++i) ASSERT_EQ(write(user, i), success);
        });
    }
    void expectFilled(int count) const {
        withRegistry([&](RegistryUser& user) {
            for (int i = 0; i < count; ++i) ASSERT_TRUE(isThere(user, i)) << i << " of " << count;
        });
    }
    std::vector<std::string> keptFiles() const {
        std::vector<std::string> kept;
        for (const auto& entry : std::filesystem::directory_iterator(store)) {
            if (entry.path().filename().string().starts_with("damaged-")) kept.push_back(entry.path());
        }
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
            withRegistry([&](RegistryUser& user) {
                for (int i = written; write(user, i) == success && report(i);) ++i;
            });
        });
        ASSERT_GE(reported, last);
        written = reported + 1;
        expectFilled(written);
    }
}

TEST_F(RegistryFaults, eightProcessesLoseNothingOfEachOther) {
    constexpr int processes = 8;
    constexpr int writes = 200;
    const auto prefixOf = [](int process) { return "p" + std::to_string(process) + "-"; };
    EXPECT_TRUE(succeedsInEach(processes, [&](int process) {
        return withRegistry([&](RegistryUser& user) {
            if (user.create(keyPath) != success) return 1;
            for (int i = 0; i < writes; ++i) {
                if (write(user, i, prefixOf(process)) != success) return 2;
                if (!isThere(user, i, prefixOf(process))) return 3;
            }
            return 0;
        });
    }));
    withRegistry([&](RegistryUser& user) {
        for (int i = 0; i < processes * writes; ++i) {
            EXPECT_TRUE(isThere(user, i / processes, prefixOf(i % processes))) << i;
        }
    });
}

TEST_F(RegistryFaults, parentAndForkedChildBothGoOn) {
    fill(10);
    withRegistry([&](RegistryUser& user) {
        ASSERT_TRUE(isThere(user, 9));
        ChildProcess child([&] { return isThere(user, 9) && write(user, 10) == success ? 0 : 1; });
        EXPECT_EQ(child.wait(), 0);
        EXPECT_TRUE(isThere(user, 10));
        EXPECT_EQ(write(user, 11), success);
        EXPECT_TRUE(isThere(user, 11));
    });
}

/// Writes until the disk is full, makes room, and looks whether all is as reported.
int fillTheDisk(RegistryUser& user, const std::function<void()>& makeRoom) {
    const std::string big(20'000, 'b');
    std::string read;
    if (user.create(keyPath) != success) return 1;
    const auto isThere = [&](int i) {
        return user.read(keyPath, std::to_string(i), read) == success && read == big;
    };
    I4 status = success;
    int count = 0;
    for (; count < 2000 && status == success; ++count) {
        status = user.write(keyPath, std::to_string(count), big);
    }
    if (status != diskFull) return 2;
    for (int i = 0; i < count; ++i) {
        if (isThere(i) != (i + 1 < count)) return 3;
    }
    makeRoom();
    return user.write(keyPath, "after", big) == success ? 0 : 4;
}

TEST_F(RegistryFaults, aFullDiskIsToldAndCostsNothing) {
    EXPECT_TRUE(succeedsOnFullDisk(3'000'000, [&](auto lift) {
        return withRegistry([&](RegistryUser& user) { return fillTheDisk(user, lift); });
    }));
    TemporaryDisk disk("64k");
    if (!disk.isThere()) return;
    for (const auto* size : {"80k", "3m"}) {  // room for no new store, for half of one
        withRegistry(disk / "registry",
                     [](RegistryUser& user) { EXPECT_EQ(user.create(keyPath), diskFull); });
        EXPECT_TRUE(disk.resize(size));
    }
    withRegistry(disk / "registry", [&](RegistryUser& user) {
        EXPECT_EQ(fillTheDisk(user, [&] { EXPECT_TRUE(disk.resize("9m")); }), 0);
    });
    EXPECT_TRUE(disk.makeReadOnly());
    withRegistry(disk / "registry", [&](RegistryUser& user) {
        std::string read;
        EXPECT_EQ(user.read(keyPath, "after", read), success);
        EXPECT_EQ(user.write(keyPath, "after", "x"), accessDenied);
        EXPECT_EQ(user.remove(keyPath), accessDenied);
    });
}

TEST_F(RegistryFaults, permissionsAreNoDamage) {
    fill(3);
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    const struct {
        mode_t folder, file;
        I4 reading;
    } rows[] = {{0555, 0444, success}, {0777, 0, accessDenied}};
    for (const auto& row : rows) {
        ASSERT_EQ(chmod(store.c_str(), row.folder) | chmod(data.c_str(), row.file), 0);
        EXPECT_TRUE(succeedsForOthers([&] {
            return withRegistry([&](RegistryUser& user) {
                std::string read;
                if (user.read(keyPath, "v2", read) != row.reading) return 1;
                return write(user, 1) == accessDenied && user.create("New") == accessDenied ? 0 : 2;
            });
        })) << row.reading;
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
    };
    for (const auto& [what, inflict] : damages) {
        SCOPED_TRACE(what);
        std::filesystem::remove_all(store);
        fill(500);
        inflict(std::filesystem::file_size(data));
        const auto damaged = contentOf(data);

        ::testing::internal::CaptureStderr();
        withRegistry([&](RegistryUser& user) {
            std::string ignored;
            EXPECT_EQ(user.read(keyPath, "v1", ignored), registryCorrupt);
            EXPECT_EQ(user.create("Software\\New"), success);
        });
        const auto message = ::testing::internal::GetCapturedStderr();
        const auto kept = keptFiles();
        ASSERT_EQ(kept.size(), 1U);
        EXPECT_NE(message.find(kept[0]), std::string::npos) << message;
        EXPECT_TRUE(contentOf(kept[0]) == damaged);
        withRegistry([](RegistryUser& user) { EXPECT_TRUE(user.has("Software\\New")); });
    }
}

TEST_F(RegistryFaults, aDamagedStoreGoesBackToTheCopyOfAnEarlierStart) {
    fill(500);
    std::filesystem::copy_file(data, store + "/copy.mdb");
    overwrite(0, std::string(8192, 'x'));
    ::testing::internal::CaptureStderr();
    withRegistry([&](RegistryUser& user) { EXPECT_EQ(write(user, 1), registryCorrupt); });
    EXPECT_NE(::testing::internal::GetCapturedStderr().find("takes its place"), std::string::npos);
    expectFilled(500);
    EXPECT_EQ(keptFiles().size(), 1U);
}

TEST_F(RegistryFaults, aChangedByteIsNeverReadAsTheValue) {
    fill(0);
    const std::string value = "a value that stands in the file as it is";
    withRegistry([&](RegistryUser& user) { user.write(keyPath, "v", value); });
    const auto bytes = contentOf(data);
    for (auto at = bytes.find(value); at != std::string::npos; at = bytes.find(value, at + 1)) {
        overwrite(at + 3, "X");
    }
    withRegistry([&](RegistryUser& user) {
        std::string read;
        EXPECT_EQ(user.read(keyPath, "v", read), registryCorrupt);
        EXPECT_EQ(user.write(keyPath, "v", value), success);
        EXPECT_EQ(user.read(keyPath, "v", read), success);
    });
}

/// Many changes of all kinds leave a file that the check finds sound, and that holds what a plain map holds.
TEST_F(RegistryFaults, theCheckFindsNoFaultInASoundStore) {
    std::mt19937 random(11);
    std::map<std::string, std::string> model;
    for (int round = 0; round < 7; ++round) {
        withRegistry([&](RegistryUser& user) {
            for (const auto& [key, value] : model) {
                std::string read;
                EXPECT_EQ(user.read(key, "v", read), success) << key;
                EXPECT_TRUE(read == value) << key;
            }
            for (int i = 0; i < 300; ++i) {
                const auto key = "R\\k" + std::to_string(random() % 150);
                if (random() % 4 == 0) {
                    EXPECT_EQ(user.remove(key), model.erase(key) != 0 ? success : notFound);
                } else {
                    model[key] = std::string(random() % 9000, 'd');
                    ASSERT_EQ(user.create(key) | user.write(key, "v", model[key]), success);
                }
            }
        });
    }
    EXPECT_TRUE(keptFiles().empty());
}

}  // namespace
}  // namespace tovera::testing
