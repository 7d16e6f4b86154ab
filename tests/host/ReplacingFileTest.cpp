// Replacing a user's file whole or not at all: what stands at the path before, during and after a write that
// completes, is abandoned, races another, or is refused.
#include "support/TempFolder.h"
#include "support/ThrownMessage.h"

#include <vantix/toolbox/ReplacingFile.h>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace
{

namespace fs = std::filesystem;
using testsupport::ReadFile;
using vantix::toolbox::ReplacingFile;

class ReplacingFileTest : public ::testing::Test
{
protected:
    std::string Path(const std::string& name) const { return (m_folder.path() / name).string(); }
    long Files() const { return std::distance(fs::directory_iterator(m_folder.path()), {}); }

    testsupport::TempFolder m_folder{"vantix-replace"};
};

TEST_F(ReplacingFileTest, TheEarlierFileStaysUntilTheNewOneIsCompleteAndAnAbandonedOneLeavesNothing)
{
    const std::string path = Path("movie.avi");
    testsupport::WriteFile(path, "earlier");
    ::chmod(path.c_str(), 0640);
    {
        ReplacingFile abandoned(path);
        abandoned.write("never seen");
        EXPECT_EQ(2, Files());
    }
    EXPECT_EQ(std::make_pair(std::string("earlier"), 1L), std::make_pair(ReadFile(path), Files()));

    // Two writers of one path, as two programs exporting the same movie: each file appears whole, the last
    // one completed stays, and one that fails takes nothing of the other's with it.
    auto first = std::make_unique<ReplacingFile>(path), second = std::make_unique<ReplacingFile>(path);
    first->write("first, whole");
    second->write("second");
    second->writeAt(0, "S", 1);
    first->commit();
    EXPECT_EQ("first, whole", ReadFile(path));
    second->commit();
    first.reset();
    second.reset();
    EXPECT_EQ(std::make_pair(std::string("Second"), 1L), std::make_pair(ReadFile(path), Files()));
    struct stat status = {};
    ASSERT_EQ(0, ::stat(path.c_str(), &status));
    EXPECT_EQ(0640u, status.st_mode & 07777) << "the replacement keeps the permissions";
}

TEST_F(ReplacingFileTest, ALinkIsWrittenThroughAndWhatIsNoRegularFileIsRefusedUntouched)
{
    fs::create_directory(Path("folder"));
    testsupport::WriteFile(Path("target"), "earlier");
    fs::create_symlink("target", Path("link"));
    ::mkfifo(Path("pipe").c_str(), 0600);
    {
        ReplacingFile cancelled(Path("link"));
        cancelled.write("abandoned");
    }
    EXPECT_EQ("earlier", ReadFile(Path("link")));
    vantix::toolbox::WriteWholeFile(Path("link"), "new");
    EXPECT_TRUE(fs::is_symlink(Path("link")));
    EXPECT_EQ("new", ReadFile(Path("target")));

    EXPECT_THROW_MSG(ReplacingFile(Path("folder")), std::runtime_error,
                     "cannot write " + Path("folder") + ": it is a folder");
    EXPECT_THROW_MSG(ReplacingFile(Path("folder/")), std::runtime_error,
                     "cannot write " + Path("folder/") + ": it is a folder");
    EXPECT_THROW_MSG(ReplacingFile(""), std::runtime_error, "cannot write : the file name is empty");
    EXPECT_THROW_MSG(ReplacingFile(Path("pipe")), std::runtime_error,
                     "cannot write " + Path("pipe") + ": it is not a regular file");
    // A device node of our own (only root may make one): refused, and left where it is.
    if (::mknod(Path("device").c_str(), S_IFCHR | 0600, makedev(1, 3)) == 0)
    {
        EXPECT_THROW_MSG(ReplacingFile(Path("device")), std::runtime_error,
                         "cannot write " + Path("device") + ": it is not a regular file");
    }
    EXPECT_THROW_MSG(ReplacingFile(Path("none/x")), std::runtime_error,
                     "cannot write " + Path("none/x") + ": No such file or directory");
    {
        const vantix::toolbox::KeptFile replayed(Path("link"), "it is the macro being replayed");
        EXPECT_THROW_MSG(ReplacingFile(Path("target")), std::runtime_error,
                         "cannot write " + Path("target") + ": it is the macro being replayed");
    }
    EXPECT_THROW_MSG(ReplacingFile(Path("target")), std::runtime_error, "");
    for (const char* name : {"folder", "pipe", "link"})
        EXPECT_TRUE(fs::exists(fs::symlink_status(Path(name)))) << name;
    EXPECT_EQ(fs::exists(Path("device")) ? 5 : 4, Files());
}

} // namespace
