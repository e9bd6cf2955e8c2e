#include "platform/drives.h"

#include <gtest/gtest.h>

#include "platform/linux/files/drive_letters.h"
#include "platform/linux/files/drives.h"
#include "platform/linux/files/mount_list.h"
#include "platform/linux/temporary_folder.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

/// A made-up machine: its mount list, its devices, and the letters that were given on it.
struct Machine : ::testing::Test {
    std::string drives() {
        std::string text;
        for (const auto& drive : otherDrives(sources))
            text += std::string(1, drive.letter) + std::to_string(drive.type) + drive.folder + ' ';
        return text;
    }
    void mount(const std::vector<std::string>& lines) {
        std::string list;
        for (const auto& line : lines) list += "36 35 " + line + '\n';
        user.makeFile("mounts", list);
    }

    UserFolder user;
    DriveSources sources{
        {user.onC("dev"), user.onC("block"), user.onC("cdrom")}, user.onC("mounts"), user.onC("neuf/drives")};
};

TEST(MountList, FieldsAndEscapes) {
    const auto mounts = readMountList(
        "36 35 98:0 / /mnt/a\\040b\\134c\\011 rw,noatime master:1 shared:2 - ext3 /dev/root rw\n"
        "37 35 0:5 / /mnt/x rw - nfs server:/dossier\\040un rw,errors=continue\n"
        "38 35 0:5 / /mnt/none rw\n\nbroken\n39 35 0:6 / relative rw - tmpfs t rw\n"
        "40 35 8:1 / /mnt/\\04\\999 rw - vfat /dev/sda1");
    const std::vector<Mount> expected{{"98:0", "/mnt/a b\\c\t", "ext3", "/dev/root"},
                                      {"0:5", "/mnt/x", "nfs", "server:/dossier un"},
                                      {"8:1", "/mnt/\\04\\999", "vfat", "/dev/sda1"}};
    EXPECT_EQ(mounts, expected);
}

TEST_F(Machine, LettersStayWithTheirVolumes) {
    const std::string usb = "8:17 / /media/u/CLE rw - vfat /dev/sdb1 rw";
    const std::string share = "0:50 / /home/u/serveur rw - cifs //serveur/partage rw";
    const std::string disc = "11:0 / /media/u/DISQUE ro - iso9660 " + sources.devices + "/sr0 ro";
    const std::vector<std::string> system{
        "8:1 / / rw - ext4 /dev/sda1 rw", "8:2 / /home rw - ext4 /dev/sda2 rw",
        "0:20 / /mnt rw - tmpfs tmpfs rw", "0:21 / /tmp rw - tmpfs tmpfs rw"};
    user.makeFile("block/8:17/removable", "1\n");
    mount(system);
    EXPECT_EQ(drives(), "");
    EXPECT_FALSE(std::filesystem::exists(sources.letters)) << "nothing to note";
    mount({system[0], usb, share, "0:22 / /mnt/ram rw - tmpfs tmpfs rw",
           "0:30 / /mnt/c/proc rw - proc proc rw", "0:31 / /mnt/auto rw - autofs systemd-1 rw",
           "8:33 / /mnt/disque rw - ext4 /dev/sdc1 rw"});
    EXPECT_EQ(drives(), "D2/media/u/CLE E4/home/u/serveur F6/mnt/ram G3/mnt/disque ");
    user.makeFile("dev/sr0");
    user.makeFile("cdrom", "drive name:\tsr0\n");
    mount({share});
    EXPECT_EQ(drives(), "H5 E4/home/u/serveur ") << "an empty optical drive has a letter";
    mount({disc, usb, usb, share});
    EXPECT_EQ(drives(), "H5/media/u/DISQUE D2/media/u/CLE E4/home/u/serveur ");
    std::vector<std::string> thousand;
    for (int i = 0; i < 1000; ++i)
        thousand.push_back("7:0 / /mnt/" + std::to_string(i) + " rw - ext4 /dev/loop" + std::to_string(i) +
                           " rw");
    mount(thousand);
    EXPECT_EQ(otherDrives(sources).size(), 18U) << "the absent volumes keep theirs";
    mount({usb});
    EXPECT_EQ(drives(), "H5 D2/media/u/CLE ");
}

/// A FAT12 volume as far as it takes to know it by.
std::string fatVolume(std::uint32_t serial) {
    std::string bytes = "\xEB\x3C\x90mkfs.fat";
    const auto append = [&](std::uint32_t number, std::size_t size) {
        bytes.append(reinterpret_cast<const char*>(&number), size);
    };
    // Sector, cluster, reserved, tables, entries of the root, sectors, medium, sectors of a table, geometry.
    for (const auto& [number, size] :
         std::initializer_list<std::pair<std::uint32_t, std::size_t>>{{512, 2},
                                                                      {1, 1},
                                                                      {1, 2},
                                                                      {2, 1},
                                                                      {224, 2},
                                                                      {2880, 2},
                                                                      {0xF0, 1},
                                                                      {9, 2},
                                                                      {18, 2},
                                                                      {2, 2},
                                                                      {0, 4},
                                                                      {0, 4},
                                                                      {0, 2},
                                                                      {0x29, 1},
                                                                      {serial, 4}})
        append(number, size);
    bytes += "NO NAME    FAT12   ";
    bytes.resize(510);
    return bytes + "\x55\xAA\xF0\xFF\xFF" + std::string(1474048, '\0');
}

TEST_F(Machine, VolumesThatNobodyHasNotedAreReadThemselves) {
    user.makeFile("block/8:17/uevent", "MAJOR=8\nDEVNAME=sdb1\nDEVTYPE=partition\n");
    EXPECT_EQ(volumeId(sources, "8:17"), "");
    user.makeFile("dev/sdb1", "no file system");
    EXPECT_EQ(volumeId(sources, "8:17"), "");
    user.makeFile("dev/sdb1", fatVolume(0xCAFE1234));
    EXPECT_EQ(volumeId(sources, "8:17"), "CAFE-1234");
    EXPECT_EQ(volumeId(sources, "8:18"), "");
    mount({"8:17 / /media/u/CLE rw - vfat /dev/sdb1 rw"});
    EXPECT_EQ(drives(), "D3/media/u/CLE ");
    EXPECT_EQ(contentOf(sources.letters), "D uuid:CAFE-1234\n");
}

TEST(Drives, OfThisMachine) {
    UserFolder user;
    auto& drives = homeDrives();
    const std::pair<const char*, I4> roots[] = {{"C:\\", 3}, {"c:/", 3}, {"Z:\\", 3},
                                                {"Y:\\", 1}, {"C:", 1},  {"\xE9:\\", 1},
                                                {"@:\\", 1}, {"", 1},    {"C:\\WINDOWS\\", 1}};
    for (const auto& [root, type] : roots) EXPECT_EQ(drives.GetDriveTypeA({root}), type) << root;
    I4 serial = 0, longest = 0, flags = 0;
    EXPECT_EQ(drives.GetVolumeInformationA({"C"}, serial, longest, flags), 0);
    EXPECT_EQ(drives.GetVolumeInformationA({"Y:\\"}, serial, longest, flags), 0);
    EXPECT_EQ(serial, 0);
    ASSERT_EQ(drives.GetVolumeInformationA({"C:\\"}, serial, longest, flags), 1);
    const I4 first = serial;
    drives.GetVolumeInformationA({"C:\\"}, serial, longest, flags);
    EXPECT_EQ(serial, first);
    const std::pair<const char*, std::uint32_t> uuids[] = {
        {"CAFE-1234", 0xCAFE1234},
        {"01D5A2B3C4D5E6F7", 0xC4D5E6F7},
        {"2018-07-04-12-30-45-00", 0x12304500U},
        {"00000001-0002-0000-0004-000000000008", 1U ^ 0x20000U ^ 0x40000U ^ 8U}};
    for (const auto& [uuid, expected] : uuids) EXPECT_EQ(serialOf(uuid), static_cast<I4>(expected)) << uuid;
}

}  // namespace
}  // namespace tovera::testing
