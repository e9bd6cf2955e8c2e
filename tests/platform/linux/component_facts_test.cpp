#include "platform/linux/component_facts.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "frame/utf8.h"
#include "own_home.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/paths.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

TEST(ComponentFolder, IsTheUsersOwnOrOneOfHis) {
    const UserFolder user;  // with a home and a data folder of its own
    const TemporaryFolder home;
    const auto own = home / "tovera";
    const auto system = std::u16string(systemFolder);
    const auto folderOfMode = [&](mode_t mode) {
        std::filesystem::create_directory(own);
        chmod(own.c_str(), mode);
        return componentFolder(own, home.path());
    };
    EXPECT_EQ(folderOfMode(0755), fromUtf8(own));
    std::filesystem::create_directory_symlink(home.path(), home / "link");
    EXPECT_EQ(componentFolder(own, home / "link"), fromUtf8(own));
    EXPECT_EQ(componentFolder(home / "link/tovera", home.path()), fromUtf8(own));
    EXPECT_EQ(componentFolder(own, own), system);
    EXPECT_EQ(componentFolder(own, own + "/"), system) << "another name of the same";
    EXPECT_EQ(folderOfMode(0775), system);
    EXPECT_EQ(folderOfMode(0757), system);
    EXPECT_EQ(componentFolder("/usr/bin", home.path()), system);
    EXPECT_EQ(componentFolder(own, home / "tov"), system) << "a name that begins alike";
    EXPECT_EQ(componentFolder(home / "missing", home.path()), system);
    EXPECT_EQ(factsOf(foundHostPath(systemFolder))->st_mode & 07777U, 0700U);
}

}  // namespace
}  // namespace tovera::testing
