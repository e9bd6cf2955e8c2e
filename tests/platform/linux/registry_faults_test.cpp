#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <sys/mount.h>
#include <sys/resource.h>

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

    void SetUp() override {
        if (!hasStore()) GTEST_SKIP() << "LMDB isn't installed";
    }

    /// Calls work with a registry of its own, as another process would have it.
    template <class Work>
    auto withRegistry(Work&& work) {
        LinuxAdvapi32 registry(store);
        RegistryUser user(registry);
        return work(user);
    }

    void fill(int count) {
        withRegistry([&](RegistryUser& user) {
            ASSERT_EQ(user.create(keyPath), success);
            for (int i = 0; i < count; ++i) {
                ASSERT_EQ(user.write(keyPath, "v" + std::to_string(i), valueOf(i)), success);
            }
        });
    }
    static std::string valueOf(int i) {
        return std::string(static_cast<std::size_t>(i % 300), static_cast<char>(i));
    }
    static bool isThere(RegistryUser& user, int i, const std::string& prefix = "v") {
        std::string data;
        return user.read(keyPath, prefix + std::to_string(i), data) == success && data == valueOf(i);
    }
    std::vector<std::string> keptFiles() const {
        std::vector<std::string> kept;
        for (const auto& entry : std::filesystem::directory_iterator(store)) {
            const auto name = entry.path().filename().string();
            if (name.starts_with("damaged-")) kept.push_back(entry.path());
        }
        return kept;
    }
};

TEST_F(RegistryFaults, whatWasReportedAsWrittenOutlivesTheProcess) {
    fill(0);
    std::mt19937 random(7);
    int written = 0;
    for (int round = 0; round < 8; ++round) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        ChildProcess writer([&] {
            return withRegistry([&](RegistryUser& user) {
                for (int i = written; i < written + 1000; ++i) {
                    if (user.write(keyPath, "v" + std::to_string(i), valueOf(i)) != success) return 1;
                    if (::write(ends[1], &i, sizeof i) != sizeof i) return 2;
                }
                return 0;
            });
        });
        close(ends[1]);
        const int last = written + static_cast<int>(random() % 1000);
        int reported = written - 1;
        while (reported < last && ::read(ends[0], &reported, sizeof reported) == sizeof reported) {
        }
        writer.kill();
        while (::read(ends[0], &reported, sizeof reported) == sizeof reported) {
        }
        writer.wait();
        close(ends[0]);
        written = reported + 1;
        ASSERT_GT(written, last);
        withRegistry([&](RegistryUser& user) {
            for (int i = 0; i < written; ++i) ASSERT_TRUE(isThere(user, i)) << i << " of " << written;
        });
    }
}

TEST_F(RegistryFaults, eightProcessesLoseNothingOfEachOther) {
    constexpr int processes = 8;
    constexpr int writes = 200;
    std::vector<std::unique_ptr<ChildProcess>> writers;
    for (int process = 0; process < processes; ++process) {
        const auto prefix = "p" + std::to_string(process) + "-";
        writers.push_back(std::make_unique<ChildProcess>([&, prefix] {
            return withRegistry([&](RegistryUser& user) {
                if (user.create(keyPath) != success) return 1;
                for (int i = 0; i < writes; ++i) {
                    if (user.write(keyPath, prefix + std::to_string(i), valueOf(i)) != success) return 2;
                    if (!isThere(user, i, prefix)) return 3;
                }
                return 0;
            });
        }));
    }
    for (const auto& writer : writers) EXPECT_EQ(writer->wait(), 0);
    withRegistry([&](RegistryUser& user) {
        for (int process = 0; process < processes; ++process) {
            for (int i = 0; i < writes; ++i) {
                EXPECT_TRUE(isThere(user, i, "p" + std::to_string(process) + "-")) << process << ' ' << i;
            }
        }
    });
}

TEST_F(RegistryFaults, parentAndForkedChildBothGoOn) {
    fill(10);
    withRegistry([&](RegistryUser& user) {
        ASSERT_TRUE(isThere(user, 9));
        ChildProcess child([&] {
            if (!isThere(user, 9)) return 1;
            return user.write(keyPath, "v10", valueOf(10)) == success ? 0 : 2;
        });
        EXPECT_EQ(child.wait(), 0);
        EXPECT_TRUE(isThere(user, 10));
        EXPECT_EQ(user.write(keyPath, "v11", valueOf(11)), success);
        EXPECT_TRUE(isThere(user, 11));
    });
}

/// Writes until the disk is full, makes room by what `relief` does, and looks whether all is as reported.
template <class Relief>
int fillTheDisk(RegistryUser& user, Relief&& relief) {
    const std::string big(20'000, 'b');
    if (user.create(keyPath) != success || user.write(keyPath, "v7", "1234567") != success) return 1;
    I4 status = success;
    int count = 0;
    while (count < 2000) {
        status = user.write(keyPath, "big" + std::to_string(count), big);
        if (status != success) break;
        ++count;
    }
    if (status != diskFull) return 2;
    for (int i = 0; i < count; ++i) {
        std::string data;
        if (user.read(keyPath, "big" + std::to_string(i), data) != success || data != big) return 3;
    }
    std::string data;
    if (user.read(keyPath, "big" + std::to_string(count), data) != notFound) return 4;
    relief();
    return user.write(keyPath, "after", big) == success ? 0 : 5;
}

TEST_F(RegistryFaults, aFullDiskIsToldAndCostsNothing) {
    ChildProcess limited([&] {
        signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const auto before = limit.rlim_cur;
        limit.rlim_cur = 3'000'000;
        setrlimit(RLIMIT_FSIZE, &limit);
        return withRegistry([&](RegistryUser& user) {
            return fillTheDisk(user, [&] {
                limit.rlim_cur = before;
                setrlimit(RLIMIT_FSIZE, &limit);
            });
        });
    });
    EXPECT_EQ(limited.wait(), 0);

    const auto disk = folder / "disk";
    std::filesystem::create_directory(disk);
    if (mount("none", disk.c_str(), "tmpfs", 0, "size=3m") != 0) return;  // only root may
    {
        LinuxAdvapi32 registry(disk + "/registry");
        RegistryUser user(registry);
        EXPECT_EQ(fillTheDisk(user, [&] { mount("none", disk.c_str(), "tmpfs", MS_REMOUNT, "size=9m"); }), 0);
    }
    umount(disk.c_str());
}

void overwrite(const std::string& file, std::size_t position, const std::string& bytes) {
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    stream.seekp(static_cast<std::streamoff>(position));
    stream << bytes;
}

TEST_F(RegistryFaults, aDamagedStoreIsToldAndSetAsideWhole) {
    const auto data = store + "/data.mdb";
    const std::string noise = [] {
        std::mt19937 random(3);
        std::string bytes(4096, ' ');
        for (auto& byte : bytes) byte = static_cast<char>(random());
        return bytes;
    }();
    struct Damage {
        const char* what;
        std::function<void(std::size_t size)> inflict;
    };
    const Damage damages[] = {
        {"no store at all", [&](std::size_t) { std::ofstream(data) << "This is no store."; }},
        {"cut in half", [&](std::size_t size) { std::filesystem::resize_file(data, size / 2); }},
        {"noise at its head", [&](std::size_t) { overwrite(data, 0, noise + noise); }},
        {"noise all over",
         [&](std::size_t size) {
             for (std::size_t at = 8192; at < size; at += 8192) overwrite(data, at, noise);
         }},
        {"nothing but zeros behind its head",
         [&](std::size_t size) { overwrite(data, 8192, std::string(size - 8192, '\0')); }},
    };
    for (const auto& damage : damages) {
        SCOPED_TRACE(damage.what);
        std::filesystem::remove_all(store);
        fill(500);
        damage.inflict(std::filesystem::file_size(data));
        std::ifstream stream(data, std::ios::binary);
        const std::string damaged(std::istreambuf_iterator<char>(stream), {});

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
        std::ifstream keptStream(kept[0], std::ios::binary);
        EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(keptStream), {}) == damaged);
        withRegistry([](RegistryUser& user) { EXPECT_TRUE(user.has("Software\\New")); });
    }
}

TEST_F(RegistryFaults, aDamagedStoreGoesBackToTheCopyOfAnEarlierStart) {
    fill(500);
    std::filesystem::copy_file(store + "/data.mdb", store + "/copy.mdb");
    overwrite(store + "/data.mdb", 0, std::string(8192, 'x'));
    ::testing::internal::CaptureStderr();
    withRegistry([&](RegistryUser& user) {
        std::string ignored;
        EXPECT_EQ(user.read(keyPath, "v1", ignored), registryCorrupt);
        for (int i = 0; i < 500; ++i) EXPECT_TRUE(isThere(user, i)) << i;
    });
    EXPECT_NE(::testing::internal::GetCapturedStderr().find("takes its place"), std::string::npos);
    EXPECT_EQ(keptFiles().size(), 1U);
}

TEST_F(RegistryFaults, aChangedByteIsNeverReadAsTheValue) {
    fill(0);
    const std::string value = "a value that stands in the file as it is";
    withRegistry([&](RegistryUser& user) { user.write(keyPath, "v", value); });
    const auto data = store + "/data.mdb";
    std::ifstream stream(data, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    for (auto at = bytes.find(value); at != std::string::npos; at = bytes.find(value, at + 1)) {
        overwrite(data, at + 3, "X");
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
    for (int round = 0; round < 6; ++round) {
        withRegistry([&](RegistryUser& user) {
            for (int i = 0; i < 300; ++i) {
                const auto key = "R\\k" + std::to_string(random() % 150);
                if (random() % 4 == 0) {
                    EXPECT_EQ(user.remove(key), model.erase(key) != 0 ? success : notFound);
                } else {
                    ASSERT_EQ(user.create(key), success);
                    model[key] = std::string(random() % 9000, 'd');
                    ASSERT_EQ(user.write(key, "v", model[key]), success);
                }
            }
        });
        withRegistry([&](RegistryUser& user) {
            for (const auto& [key, value] : model) {
                std::string data;
                EXPECT_EQ(user.read(key, "v", data), success) << key;
                EXPECT_TRUE(data == value) << key;
            }
        });
    }
    EXPECT_TRUE(keptFiles().empty());
}

}  // namespace
}  // namespace tovera::testing
