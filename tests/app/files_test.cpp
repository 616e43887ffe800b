// Whole files: what is read and written, that a failure loses nothing, and that a file stays what
// it is.
#include "platform/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <sstream>

namespace varno {
namespace {

namespace fs = std::filesystem;

constexpr uid_t Operator = 65534;

// Everything is done as a user who is not root, whoever runs the tests.
class Files : public testing::Test {
  protected:
    Files() {
        SurviveFailedWrites();
        umask(022);
        if (getuid() == 0) {
            EXPECT_EQ(seteuid(Operator), 0);
        }
        std::string name = (fs::temp_directory_path() / "varno-files-XXXXXX").string();
        folder_ = mkdtemp(name.data());
        getrlimit(RLIMIT_FSIZE, &room_);
    }
    ~Files() override {
        EXPECT_EQ(seteuid(getuid()), 0);
        fs::permissions(folder_, fs::perms::owner_all);
        fs::remove_all(folder_);
    }

    std::string Path(const std::string& name) const { return (folder_ / name).string(); }
    std::string Made(const std::string& name, mode_t rights) const {
        EXPECT_EQ(WriteFile(Path(name), Old), std::nullopt);
        EXPECT_EQ(chmod(Path(name).c_str(), rights), 0);
        return Path(name);
    }
    static std::string Read(const std::string& path) {
        std::string bytes = "untouched";
        const Error error = ReadFile(path, bytes);
        return error ? "error" : bytes;
    }
    std::size_t Count() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }
    // The disk is full when a file has so many bytes.
    void LeaveRoom(rlim_t bytes) const {
        const rlimit limit{std::min(bytes, room_.rlim_max), room_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    // Kind, rights, owner, number of names and an attribute.
    static std::string Nature(const std::string& path) {
        struct stat status {};
        char note[9] = "";
        lstat(path.c_str(), &status);
        lgetxattr(path.c_str(), "user.note", note, sizeof note - 1);
        std::ostringstream nature;
        nature << std::oct << status.st_mode << " " << status.st_uid << ":" << status.st_gid << " "
               << status.st_nlink << " " << note;
        return nature.str();
    }

    const std::string Old = std::string(5000, 'o');
    const std::string New = std::string(8009, 'n');

  private:
    fs::path folder_;
    rlimit room_{};
};

TEST_F(Files, GivesBackEveryByte) {
    std::string bytes;
    for (int i = 0; i < 300000; ++i) {
        bytes += static_cast<char>(i * 7);
    }
    const std::string path = Path(std::string(249, 'W') + "ä.VRB");  // no name can be longer
    for (const std::string& content : {std::string(), std::string("\r\n\0x", 4), bytes}) {
        ASSERT_EQ(WriteFile(path, content), std::nullopt);
        EXPECT_EQ(Read(path), content);
    }
    EXPECT_EQ(Count(), 1U);  // nothing temporary is left
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0644));
    std::string start;
    ASSERT_EQ(ReadFile(path, start, 70000), std::nullopt);
    EXPECT_EQ(start, bytes.substr(0, 70000));
}

// A file of each kind that is written to keeps its nature, and nothing comes beside it.
TEST_F(Files, StaysWhatItIs) {
    const std::function<std::string()> kinds[] = {
        [&] {
            std::string path = Made("ordinary", 0640);
            setxattr(path.c_str(), "user.note", "keep", 4, 0);  // where the disk has attributes
            return path;
        },
        [&] {
            fs::create_hard_link(Made("one name", 0600), Path("other name"));
            return Path("other name");
        },
        [&] {
            fs::create_directory(Path("closed"));
            std::string path = Made("closed/file", 0644);
            EXPECT_EQ(chmod(Path("closed").c_str(), 0555), 0);
            return path;
        },
        [&] {
            fs::create_symlink("ordinary", Path("link"));
            return Path("link");
        },
        [&] {
            fs::create_symlink("made", Path("link to nothing"));
            return Path("link to nothing");
        },
    };
    for (const auto& make : kinds) {
        const std::string path = make();
        const std::string nature = Nature(path);
        for (const rlim_t room : {0UL, 1UL, 4095UL, 4999UL, 5001UL, 8008UL}) {
            const std::string held = Read(path);
            const std::size_t count = Count();
            LeaveRoom(room);
            const Error error = WriteFile(path, New);
            LeaveRoom(RLIM_INFINITY);
            EXPECT_TRUE(error) << path << " " << room;
            EXPECT_EQ(Read(path), held) << path << " " << room;
            EXPECT_EQ(Count(), count) << path << " " << room;
        }
        for (const std::string& content : {New, std::string("short")}) {
            EXPECT_EQ(WriteFile(path, content), std::nullopt) << path;
            EXPECT_EQ(Read(path), content) << path;
        }
        EXPECT_EQ(Nature(path), nature) << path;
    }
    EXPECT_EQ(Read(Path("one name")), "short");
    EXPECT_EQ(Read(Path("made")), "short");
    chmod(Path("closed").c_str(), 0755);
}

TEST_F(Files, WritesDevicesAndPipesStraight) {
    const std::string pipe = Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    for (const std::string& path : {std::string("/dev/null"), pipe}) {
        const std::string nature = Nature(path);
        EXPECT_EQ(WriteFile(path, New), std::nullopt);
        EXPECT_EQ(Nature(path), nature);
    }
    std::string got(New.size() + 1, '\0');
    EXPECT_EQ(read(reader, got.data(), got.size()), std::ssize(New));
    EXPECT_TRUE(WriteFile("/dev/full", New));
    close(reader);
}

TEST_F(Files, SaysWhyNot) {
    const struct {
        std::string path;
        const char* notRead;
        const char* notWritten;
    } cases[] = {
        {Made("protected", 0444), nullptr, "this file is write-protected"},
        {Path(""), "this is a folder", "this is a folder"},
        {Path("missing/file"), "No such file or directory", "No such file or directory"},
        {"", "No such file or directory", "No such file or directory"},
        {Path("pipe"), "this is no ordinary file", "nobody reads from this pipe"},
        {"/dev/zero", "this is no ordinary file", nullptr},
    };
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    for (const auto& c : cases) {
        std::string bytes = "old";
        if (c.notRead != nullptr) {
            EXPECT_EQ(ReadFile(c.path, bytes), c.path + ": " + c.notRead);
            EXPECT_EQ(bytes, "old");
        }
        if (c.notWritten != nullptr) {
            EXPECT_EQ(WriteFile(c.path, New), c.path + ": " + c.notWritten);
        }
    }
    ASSERT_EQ(seteuid(getuid()), 0);
    EXPECT_TRUE(WriteFile(Path("protected"), New)) << "whoever we are";
    EXPECT_EQ(Read(Path("protected")), Old);
}

// What a killed save leaves is seen by nobody else, and gone after the next one.
TEST_F(Files, CleansUpAfterAKilledSave) {
    const std::string path = Made("Plant.VRB", 0600);
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_DFL);
        LeaveRoom(4096);
        (void)WriteFile(path, New);
        _exit(0);
    }
    int ending = 0;
    waitpid(child, &ending, 0);
    ASSERT_TRUE(WIFSIGNALED(ending));
    ASSERT_EQ(Count(), 2U);
    for (const auto& entry : fs::directory_iterator(Path(""))) {
        EXPECT_EQ(entry.status().permissions(), fs::perms(0600));
    }
    EXPECT_EQ(Read(path), Old);
    EXPECT_EQ(WriteFile(path, New), std::nullopt);
    EXPECT_EQ(Count(), 1U);
}

TEST_F(Files, FindsTheFileMeantWhateverItsCase) {
    Made("shop1.vrt", 0644);
    EXPECT_EQ(FileMeantBy(Path("shop1.VRT")), Path("shop1.vrt"));
    EXPECT_EQ(FileMeantBy(Path("shop1.vrt")), Path("shop1.vrt"));
    EXPECT_EQ(FileMeantBy(Path("shop2.VRT")), Path("shop2.VRT"));
    Made("SHOP1.vrt", 0644);
    EXPECT_EQ(FileMeantBy(Path("Shop1.VRT")), Path("Shop1.VRT"));  // two could be meant
    EXPECT_EQ(FileMeantBy(Path("no such folder/a.VRT")), Path("no such folder/a.VRT"));
}

}  // namespace
}  // namespace varno
