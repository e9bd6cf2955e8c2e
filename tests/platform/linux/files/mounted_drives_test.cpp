#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/cdrom.h>
#include <sched.h>
#include <sys/mount.h>

#include "multimedia/cls_multimedia.h"
#include "platform/linux/child_process.h"
#include "platform/linux/files/drive_letters.h"
#include "platform/linux/files/drives.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/sound/tray.h"
#include "platform/linux/temporary_folder.h"
#include "registry/cls_initreg.h"

// Drives that the kernel really has: files as loop devices, mounted where nobody else sees them.
namespace tovera::testing {
namespace {

constexpr int leftOut = 99;
constexpr const char* firstId = "11111111-2222-3333-4444-555555555555";
constexpr const char* secondId = "99999999-8888-7777-6666-aaaaaaaaaaaa";

bool run(const std::string& command) {
    return std::system(("{ " + command + "; } >/dev/null 2>&1").c_str()) == 0;
}

/// A place for mounts of this process's own, which end with it, the loop devices too.
class OwnMounts {
  public:
    OwnMounts() {
        isThere_ = unshare(CLONE_NEWNS) == 0 && ::mount("none", "/", "", MS_REC | MS_PRIVATE, "") == 0 &&
                   ::mount("none", "/mnt", "tmpfs", 0, "") == 0 && make("un", firstId) &&
                   make("deux", secondId) && make("sans", "clear") && mount("un", "essai") &&
                   unmount("essai");
    }
    bool isThere() const { return isThere_; }
    bool make(const std::string& volume, const std::string& id) const {
        return run("PATH=$PATH:/sbin:/usr/sbin mkfs.ext4 -q -U " + id + ' ' + image(volume) + " 2M");
    }
    bool mount(const std::string& volume, const std::string& name) const {
        return run("mkdir -p /mnt/" + name) && run("mount -o loop " + image(volume) + " /mnt/" + name);
    }
    bool unmount(const std::string& name) const { return run("umount /mnt/" + name); }
    std::string deviceOf(const std::string& name) const {
        const auto file = folder_ / "device";
        return run("findmnt -no SOURCE /mnt/" + name + " | tr -d '\\n' >" + file) ? contentOf(file) : "";
    }

  private:
    std::string image(const std::string& volume) const { return folder_ / volume; }

    TemporaryFolder folder_;
    bool isThere_ = false;
};

/// Runs steps, which compare by `EXPECT`, in a process that has mounts of its own.
template <class Steps>
void onOwnMounts(Steps&& steps) {
    if (!canForkBesideThreads) GTEST_SKIP() << "the address sanitizer is in the way";
    const int result = resultOf(start([&] {
        const OwnMounts mounts;
        if (!mounts.isThere()) return leftOut;
        UserFolder user;
        steps(mounts, user);
        return ::testing::Test::HasFailure() ? 1 : 0;
    }));
    if (result == leftOut) GTEST_SKIP() << "this machine mounts no loop devices for this user";
    EXPECT_EQ(result, 0);
}

/// The letter that a volume has been given, by the file that keeps them. Machines have drives of their own.
Bstr letterOf(const UserFolder& user, const std::string& identity) {
    std::ifstream given(user.onC("../drives"));
    for (std::string line; std::getline(given, line);)
        if (line.substr(2) == identity) return Bstr(std::u16string(1, static_cast<char16_t>(line[0])));
    return u"?";
}

TEST(MountedDrives, KeepTheirLettersAndSerialNumbers) {
    onOwnMounts([](const OwnMounts& mounts, const UserFolder& user) {
        Cls_Multimedia object;
        Cls_InitREG files;
        const auto serial = [&](const Bstr& letter) {
            auto root = join(letter, u":\\");
            return object.NoSerieDisque(root);
        };
        EXPECT_TRUE(mounts.mount("un", "cle"));
        user.makeFile("un fichier");
        EXPECT_EQ(serial(u"A"), 0);
        const auto first = letterOf(user, std::string("uuid:") + firstId);
        ASSERT_NE(first, u"?");
        auto file = join(first, u":\\Un Fichier.txt");
        EXPECT_EQ(object.TypePeripherique(first), 3);
        EXPECT_EQ(serial(first), serialOf(firstId));
        std::ofstream("/mnt/cle/un fichier.txt") << "x";
        EXPECT_EQ(files.FichierExiste(file), True) << "paths go by the same letters";
        EXPECT_TRUE(mounts.unmount("cle"));
        EXPECT_TRUE(mounts.mount("deux", "cle"));
        EXPECT_EQ(object.TypePeripherique(first), 1) << "another volume in its place gets none of its paths";
        EXPECT_EQ(files.FichierExiste(file), False);
        EXPECT_EQ(serial(first), 0);
        EXPECT_TRUE(mounts.mount("sans", "sans"));
        EXPECT_TRUE(mounts.mount("un", "ailleurs"));
        EXPECT_EQ(serial(first), serialOf(firstId));
        EXPECT_EQ(files.FichierExiste(file), True);
        EXPECT_EQ(serial(letterOf(user, std::string("uuid:") + secondId)), serialOf(secondId));
        EXPECT_EQ(object.EstDisqueDur(letterOf(user, "device:" + mounts.deviceOf("sans"))), True)
            << "a volume without an identity";
        const TemporaryFolder noted;
        EXPECT_TRUE(run("mkdir -p " + noted / "disk/by-id" + " && ln -s " + mounts.deviceOf("sans") + ' ' +
                        noted / "disk/by-id/usb-Cle_1234-part1"));
        otherDrives({{noted.path(), "/sys/dev/block", ""}, "/proc/self/mountinfo", noted / "letters"});
        EXPECT_NE(contentOf(noted / "letters").find(" hardware:usb-Cle_1234-part1\n"), std::string::npos)
            << "the device itself tells which it is";
    });
}

TEST(MountedDrives, AreUnmountedBeforeTheTrayOpens) {
    onOwnMounts([](const OwnMounts& mounts, const UserFolder&) {
        const TemporaryFolder devices;
        EXPECT_TRUE(mounts.mount("un", "disque"));
        EXPECT_TRUE(run("ln -s " + mounts.deviceOf("disque") + ' ' + devices / "sr0"));
        std::vector<unsigned long> sent;
        std::ofstream(devices / "cdrom") << "drive name:\tsr0\n";
        const OpticalDrives drives{
            {devices.path(), "", devices / "cdrom"}, "/proc/self/mountinfo", [&](int, unsigned long request) {
                sent.push_back(request);
                return 0;
            }};
        {
            const FileDescriptor used(::open("/mnt/disque", O_RDONLY | O_CLOEXEC));
            EXPECT_EQ(moveTray(true, drives), 276) << "a disc in use stays";
        }
        EXPECT_TRUE(run("findmnt /mnt/disque"));
        EXPECT_TRUE(sent.empty());
        EXPECT_EQ(moveTray(true, drives), 0);
        EXPECT_FALSE(run("findmnt /mnt/disque"));
        EXPECT_EQ(sent, (std::vector<unsigned long>{CDROM_LOCKDOOR, CDROMEJECT}));
    });
}

}  // namespace
}  // namespace tovera::testing
