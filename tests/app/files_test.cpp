// Whole files: what is read and written, and that a failure loses nothing.
#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace varno {
namespace {

namespace fs = std::filesystem;

class Files : public testing::Test {
  protected:
    Files() {
        std::string name = (fs::temp_directory_path() / "varno-files-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    ~Files() override { fs::remove_all(folder_); }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }
    static std::string Read(const std::string& path) {
        std::string bytes = "untouched";
        const Error error = ReadFile(path, bytes);
        return error ? "error" : bytes;
    }
    std::size_t Count() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }

  private:
    fs::path folder_;
};

TEST_F(Files, GivesBackEveryByte) {
    std::string bytes;
    for (int i = 0; i < 300000; ++i) {
        bytes += static_cast<char>(i * 7);
    }
    for (const std::string& content : {std::string(), std::string("\r\n\0x", 4), bytes}) {
        ASSERT_FALSE(WriteFile(Path("Wägung.VRB"), content));
        EXPECT_EQ(Read(Path("Wägung.VRB")), content);
    }
    EXPECT_EQ(Count(), 1U);  // nothing temporary is left
}

TEST_F(Files, SaysWhatCannotBeReadAndTouchesNothing) {
    std::string bytes = "old";
    for (const std::string& path : {Path("missing.VRB"), Path(""), std::string()}) {
        const Error error = ReadFile(path, bytes);
        ASSERT_TRUE(error) << path;
        EXPECT_NE(error->find(path), std::string::npos);
        EXPECT_EQ(bytes, "old");
    }
}

// The disk is full after each number of bytes in turn.
TEST_F(Files, KeepsTheOldFileWhenWritingFails) {
    const std::string path = Path("Plant.VRB");
    const std::string old(5000, 'o');
    ASSERT_FALSE(WriteFile(path, old));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    for (const rlim_t room : {0UL, 1UL, 4095UL, 4096UL, 8008UL}) {
        const rlimit limit{room, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        const Error error = WriteFile(path, std::string(8009, 'n'));
        setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_TRUE(error) << room;
        EXPECT_EQ(Read(path), old) << room;
        EXPECT_EQ(Count(), 1U) << room;
    }
    EXPECT_TRUE(WriteFile(Path("no such folder/Plant.VRB"), "x"));
    EXPECT_TRUE(WriteFile(Path(""), "x"));
}

TEST_F(Files, WritesThroughALinkAndKeepsTheRights) {
    ASSERT_FALSE(WriteFile(Path("real.VRB"), "old"));
    ASSERT_EQ(chmod(Path("real.VRB").c_str(), 0640), 0);
    fs::create_symlink(Path("real.VRB"), Path("link.VRB"));
    ASSERT_FALSE(WriteFile(Path("link.VRB"), "new"));
    EXPECT_EQ(Read(Path("real.VRB")), "new");
    EXPECT_TRUE(fs::is_symlink(Path("link.VRB")));
    EXPECT_EQ(fs::status(Path("real.VRB")).permissions(), fs::perms(0640));
}

TEST_F(Files, FindsTheFileMeantWhateverItsCase) {
    ASSERT_FALSE(WriteFile(Path("shop1.vrt"), "x"));
    EXPECT_EQ(FileMeantBy(Path("shop1.VRT")), Path("shop1.vrt"));
    EXPECT_EQ(FileMeantBy(Path("shop1.vrt")), Path("shop1.vrt"));
    EXPECT_EQ(FileMeantBy(Path("shop2.VRT")), Path("shop2.VRT"));
    ASSERT_FALSE(WriteFile(Path("SHOP1.vrt"), "y"));
    EXPECT_EQ(FileMeantBy(Path("Shop1.VRT")), Path("Shop1.VRT"));  // two could be meant
    EXPECT_EQ(FileMeantBy(Path("no such folder/a.VRT")), Path("no such folder/a.VRT"));
}

}  // namespace
}  // namespace varno
