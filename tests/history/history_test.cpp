// Copies on a real disk: every one whole, none lost but by age and size, whatever happens
// meanwhile.
#include "history/history.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "block/ticket_block.h"
#include "codec/encoder.h"
#include "history/comparison.h"
#include "history/description.h"
#include "history/history_keeper.h"
#include "platform/files.h"

namespace varno {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr CopyTime Noon = std::chrono::sys_days(std::chrono::year(2026) / 11 / 23) + 12h;

class HistoryTest : public testing::Test {
  protected:
    HistoryTest() {
        std::string name = (fs::temp_directory_path() / "varno-history-XXXXXX").string();
        place_ = mkdtemp(name.data());
    }
    ~HistoryTest() override { fs::remove_all(place_); }

    std::string Folder() const { return (place_ / "state" / "history").string(); }
    History Open(HistoryLimits limits = {}) const { return History(Folder(), limits); }
    // Newest first: file name, "=", content.
    std::string Shown() const {
        std::string shown;
        for (const Copy& copy : Open().Copies()) {
            std::string content = "unreadable";
            EXPECT_EQ(Open().Read(copy, content), std::nullopt);
            shown += FileNameOf(copy) + "=" + content + "\n";
        }
        return shown;
    }
    // Oldest first: of each file name what follows the time.
    std::string Causes() const {
        std::string shown;
        for (const Copy& copy : Open().Copies()) {
            const std::string name = FileNameOf(copy);
            shown.insert(0, name.substr(name.find('_') + 1) + " ");
        }
        return shown;
    }

    fs::path place_;
};

template <class Condition>
bool Await(Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    while (!condition() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::yield();
    }
    return condition();
}

auto OpenFiles() {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

TEST_F(HistoryTest, FileNamesTellAll) {
    const std::string longName(119, 'a');
    const std::pair<Copy, std::string> names[] = {
        {{Noon, Cause::Uploaded, "COM3", "Shop1"}, "uploaded-COM3_Shop1.VRB"},
        {{Noon, Cause::Close, "", "", CopyKind::Ticket}, "close_.VRT"},
        {{Noon, Cause::Put, "", "../a_b%2F\n.VRT"}, "put_..%2Fa_b%252F%0A.VRT.VRB"},
        {{Noon, Cause::Save, "", longName + "ä"}, "save_" + longName + ".VRB"},
        {{Noon, Cause::Save, "", longName + "/"}, "save_" + longName + ".VRB"},
        {{Noon, Cause::Upload, "/dev/a_b-c", "d_e-f"}, "upload-%2Fdev%2Fa%5Fb-c_d_e-f.VRB"},
        {{Noon, Cause::Save, "", std::string(200, '\x80')}, "save_.VRB"}};  // no character begins
    for (const auto& [copy, end] : names) {
        EXPECT_EQ(FileNameOf(copy), "20261123T120000000Z_" + end);
        const std::optional<Copy> read = CopyOfName(FileNameOf(copy));
        ASSERT_TRUE(read) << end;
        EXPECT_TRUE(copy.name.starts_with(read->name)) << end;
        EXPECT_TRUE(*read == copy || copy.name.size() > 119) << end;
    }
    for (const char* foreign :
         {"", "notes.txt", "20261123T120000000Z_put_.txt", "20260230T120000000Z_put_.VRB",
          "20261123T120000000Z", "20261123T120000000Z_eaten_.VRB", "20261123T120000000Z_put.VRB",
          "20261123T120000000Z_put_%2f.VRB", "20261123T126000000Z_put_.VRB", ".varno-new-0"}) {
        EXPECT_FALSE(CopyOfName(foreign)) << foreign;
    }
}

TEST_F(HistoryTest, CopiesAreDescribed) {
    setenv("TZ", "XYZ-2", 1);
    const CopyHeading heading = HeadingOf({Noon, Cause::Uploaded, "COM3", "Shop"});
    EXPECT_EQ(heading.when + "|" + heading.what + "|" + heading.kind + "|" + heading.name,
              "2026-11-23 14:00:00|After an upload from COM3|block|Shop");
    EXPECT_EQ(HeadingOf({Noon, Cause::Download, "COM3"}).what, "Before a download to COM3");

    TicketBlock block;
    for (const int number : {205, 200}) {
        ASSERT_EQ(block.PutRecord(number, EncodeTicket({}, number)), PutResult::Put);
    }
    std::string damaged = block.TicketBuffer;
    damaged[100] = 'X';
    const auto shown = [](CopyKind kind, const std::string& content) {
        const CopyFindings findings = FindingsIn(kind, content);
        return TicketsText(kind, findings) + "|" + SoundnessText(findings);
    };
    EXPECT_EQ(shown(CopyKind::Block, block.TicketBuffer + "\r\n"), "200, 205|sound");
    EXPECT_EQ(shown(CopyKind::Block, damaged),
              "200, 205|It holds a character that is no hexadecimal digit (column 101).");
    EXPECT_EQ(shown(CopyKind::Block, NewTicketBuffer()), "none|sound");
    EXPECT_EQ(shown(CopyKind::Block, ""), "none|It has 0 characters; a block has 8007.");
    EXPECT_EQ(CompareBlocks("", "", {}).front(),  // no block is open
              "The copy is damaged: It has 0 characters; a block has 8007.");
    EXPECT_EQ(shown(CopyKind::Ticket, "{\\rtf1 A"), "|sound");
    EXPECT_EQ(shown(CopyKind::Ticket, ""), "|The file is not a rich text (RTF) document.");

    EXPECT_TRUE(Matches("After an upload from COM3 Shop", " shop  UPLOAD"));
    EXPECT_TRUE(Matches("", " "));
    EXPECT_FALSE(Matches("After an upload", "upload shop"));
}

// As long as the editor takes them, without a line end or of nothing else.
TEST(Comparison, CutsWhatNoBlockHolds) {
    MarkedText line;
    MarkedText lines;
    for (int i = 0; i < 500'000; ++i) {
        line.Append(u"\u00E9", {});
    }
    for (int i = 0; i < 20'000; ++i) {
        lines.Append(u"x\u00AC", {});
    }
    const std::vector<std::string> told = CompareTickets(line, lines, {});
    ASSERT_EQ(told.size(), MostSentences + 1);
    EXPECT_EQ(told[0].substr(told[0].size() - 35), "\u00E9\u00E9 ... and 499002 more characters");
    EXPECT_EQ(told.back(), "... and 15001 more lines");
    MarkedText longer = lines;  // what differs is found behind what is cut
    longer.Append(u"y", {});
    EXPECT_EQ(CompareTickets(lines, longer, {}), std::vector<std::string>{"  + y"});
}

TEST_F(HistoryTest, KeepsEachContentOnceAndPrivately) {
    History history = Open();
    Copy copy{.time = Noon, .cause = Cause::Delete, .name = "Shop1"};
    for (const char* content : {"A", "A", "B", "A"}) {
        EXPECT_EQ(history.Keep(copy, content), std::nullopt);  // all at the same millisecond
    }
    copy.name = "Shop2";
    copy.time -= 24h;  // the clock was put back
    EXPECT_EQ(history.Keep(copy, "A"), std::nullopt);
    EXPECT_EQ(Shown(),
              "20261123T120000002Z_delete_Shop1.VRB=A\n"
              "20261123T120000001Z_delete_Shop1.VRB=B\n"
              "20261123T120000000Z_delete_Shop1.VRB=A\n"
              "20261122T120000000Z_delete_Shop2.VRB=A\n");
    struct stat status {};
    ASSERT_EQ(stat(Folder().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    for (const auto& file : fs::directory_iterator(Folder())) {
        EXPECT_EQ(static_cast<unsigned>(file.status().permissions()), 0600U) << file.path();
    }
}

TEST_F(HistoryTest, RemovesTheOldestButNeverTheLastOfAName) {
    History history = Open({.age = std::chrono::days(10), .bytes = 10});
    const Copy once{.time = Noon - 9999h, .cause = Cause::Put, .name = "once"};
    ASSERT_EQ(history.Keep(once, "1234567890"), std::nullopt);
    History open = Open();
    ASSERT_EQ(open.Keep({.time = Noon - 9999h, .name = "often"}, "still open"), std::nullopt);
    ASSERT_EQ(WriteFile(Folder() + "/notes.txt", std::string(99, 'x')), std::nullopt);
    for (int day = 0; day < 12; ++day) {
        const Copy often{.time = Noon + day * 24h, .cause = Cause::Put, .name = "often"};
        ASSERT_EQ(history.Keep(often, std::to_string(day)), std::nullopt);
    }
    // Of two bytes each, the newest fit beside nothing else: "11", "10", "9" to "4".
    const std::string shown = Shown();
    EXPECT_TRUE(shown.starts_with("20261204T120000000Z_put_often.VRB=11\n")) << shown;
    EXPECT_NE(shown.find("often.VRB=4\n"), std::string::npos) << shown;
    EXPECT_EQ(shown.find("often.VRB=3\n"), std::string::npos) << shown;
    EXPECT_NE(shown.find("once.VRB=1234567890\n"), std::string::npos) << shown;
    EXPECT_NE(shown.find("often.VRB=still open\n"), std::string::npos) << shown;
    EXPECT_TRUE(FileExists(Folder() + "/notes.txt"));

    ASSERT_EQ(Open({.age = std::chrono::days(10), .newest = 1})
                  .Keep({.time = Noon + 9000h, .name = "new"}, "n"),
              std::nullopt);
    EXPECT_EQ(Open().Copies().size(), 4U) << Shown();
}

// A folder that others write into too, by hand, by mistake or on purpose.
TEST_F(HistoryTest, TakesNoForeignFileForACopy) {
    History history = Open({.bytes = 100});
    const Copy shop{.time = Noon, .name = "Shop"};
    ASSERT_EQ(history.Keep(shop, "1"), std::nullopt);
    ASSERT_EQ(history.Keep(shop, "2"), std::nullopt);
    const auto path = [&](CopyTime time) {
        return Folder() + "/" + FileNameOf({.time = time, .name = "Shop"});
    };
    fs::create_directory(path(Noon + 1h));
    fs::create_symlink(path(Noon), path(Noon + 2h));
    fs::create_symlink("nowhere", path(Noon + 3h));
    ASSERT_EQ(WriteFile(Folder() + "/20261123T120000000Z_put_Shop.vrb", "near"), std::nullopt);
    ASSERT_EQ(mkfifo(path(Noon + 4h).c_str(), 0600), 0);
    EXPECT_EQ(history.Copies().size(), 2U);

    // One that no program of ours wrote is not read as a whole, and takes no room from the others.
    ASSERT_EQ(WriteFile(path(Noon + 5h), ""), std::nullopt);
    fs::resize_file(path(Noon + 5h), std::uintmax_t{5} << 30);
    std::string content;
    EXPECT_NE(history.Read({.time = Noon + 5h, .name = "Shop"}, content), std::nullopt);
    ASSERT_EQ(Open({.bytes = 100}).Keep({.time = Noon + 6h, .name = "Shop"}, "3"), std::nullopt);
    EXPECT_EQ(history.Copies().size(), 4U);

    ASSERT_EQ(WriteFile(place_ / "file", ""), std::nullopt);
    for (const fs::path& folder : {place_ / "file", place_ / "file" / "history"}) {
        EXPECT_NE(History(folder).Keep(shop, "1"), std::nullopt) << folder;
        EXPECT_NE(History(folder).Obstacle(), std::nullopt);
    }
}

TEST_F(HistoryTest, LosesNothingToAWrongClock) {
    constexpr CopyTime firstDay = std::chrono::sys_days(std::chrono::year(2000) / 1 / 1);
    const HistoryLimits limits = {.bytes = 5};
    const auto keep = [&](CopyTime time, const char* content) {
        EXPECT_EQ(Open(limits).Keep({.time = time, .name = "Shop"}, content), std::nullopt);
    };
    keep(Noon + 99 * 24h, "A");  // the clock is wrong, and then right again
    keep(Noon + 98 * 24h, "B");
    keep(Noon, "A");
    keep(Noon + 1h, "B");
    keep(Noon + 2h, "C");
    keep(Noon + 3h, "D");  // no room any more
    EXPECT_EQ(Shown(),
              "20270302T120000000Z_unsaved_Shop.VRB=A\n"
              "20261123T150000000Z_unsaved_Shop.VRB=D\n"
              "20261123T140000000Z_unsaved_Shop.VRB=C\n"
              "20261123T130000000Z_unsaved_Shop.VRB=B\n"
              "20261123T120000000Z_unsaved_Shop.VRB=A\n");
    keep(firstDay, "E");  // a new battery is needed; E and F are not a quarter of a century old
    keep(firstDay + 1h, "F");
    keep(Noon + 4h, "G");
    EXPECT_EQ(Open().Copies().size(), 5U);
    EXPECT_NE(Shown().find('F'), std::string::npos) << Shown();
    ASSERT_EQ(Open().Keep({.time = Noon + 876'000h, .name = "Shop"}, "H"), std::nullopt);
    EXPECT_EQ(Open().Copies().size(), 6U);  // not a century old either
}

TEST_F(HistoryTest, IsWholeWhenProgramsAreKilledWhileTheyWrite) {
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        int running[2];
        ASSERT_EQ(pipe(running), 0);
        const pid_t child = fork();
        if (child == 0) {
            EXPECT_EQ(write(running[1], "!", 1), 1);
            for (char fill = 'a';; fill = fill == 'z' ? 'a' : static_cast<char>(fill + 1)) {
                (void)Open().Keep({.time = Noon + i * 1s, .name = "Shop"}, std::string(8009, fill));
            }
        }
        char sign = 0;
        EXPECT_EQ(read(running[0], &sign, 1), 1);
        close(running[0]);
        close(running[1]);
        usleep(static_cast<useconds_t>(random() % 4000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    ASSERT_EQ(Open().Keep({.time = Noon + 300s, .name = "Shop"}, std::string(8009, '.')),
              std::nullopt);
    const std::vector<Copy> copies = Open().Copies();
    EXPECT_GT(copies.size(), 1U);
    for (const Copy& copy : copies) {
        std::string content;
        ASSERT_EQ(Open().Read(copy, content), std::nullopt);
        EXPECT_EQ(content, std::string(8009, content.at(0))) << FileNameOf(copy);
    }
    // What the killed ones left half written has gone.
    EXPECT_EQ(FilesIn(Folder()).size(), copies.size());
}

TEST_F(HistoryTest, LosesNothingOfSeveralProgramsAtOnce) {
    for (int program = 0; program < 4; ++program) {
        if (fork() == 0) {
            bool failed = false;
            for (int i = 0; i < 10; ++i) {
                const std::string content = std::to_string(program) + " " + std::to_string(i);
                failed |= Open().Keep({.time = Noon, .name = "Shop"}, content).has_value();
            }
            _exit(failed ? 1 : 0);
        }
    }
    for (int status = 0; wait(&status) > 0;) {
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(Open().Copies().size(), 40U) << Shown();
}

TEST_F(HistoryTest, SaysWhatCouldNotBeKeptAndGoesOn) {
    SurviveFailedWrites();
    EXPECT_NE(History("").Keep({}, "x"), std::nullopt);
    EXPECT_NE(History("/proc/none/history").Keep({}, "x"), std::nullopt);

    HistoryKeeper keeper(Folder());
    rlimit whole{};
    getrlimit(RLIMIT_FSIZE, &whole);
    const rlimit full{4000, whole.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);  // the disk is full after so many bytes
    keeper.Keep({.name = "Shop"}, std::string(8009, 'x'));
    EXPECT_TRUE(Await([&] { return keeper.Trouble().has_value(); }));
    setrlimit(RLIMIT_FSIZE, &whole);
    EXPECT_TRUE(FilesIn(Folder()).empty());

    keeper.Keep({.name = "Shop"}, std::string(8009, 'y'));
    EXPECT_TRUE(Await([&] { return !keeper.Trouble(); }));
    EXPECT_EQ(Open().Copies().size(), 1U);
}

// Copies of unsaved work that no program has ended are those of a program that was killed.
TEST_F(HistoryTest, LostWorkIsWhatNoProgramEnded) {
    using enum CopyKind;
    const Copy ticket{.name = "T", .kind = Ticket};
    {
        HistoryKeeper keeper(Folder());
        for (const char* text : {"1", "1", "2", "3"}) {
            keeper.Keep(ticket, text);
        }
        keeper.Keep({.cause = Cause::Delete, .name = "B"}, "block");
        keeper.Keep({.name = "B"}, "block");  // though another copy holds the same
        keeper.EndWork(Ticket, Cause::Close);
        keeper.EndWork(Ticket, Cause::Open);
    }
    EXPECT_EQ(Causes(), "working_T.VRT working_T.VRT close_T.VRT delete_B.VRB unsaved_B.VRB ");
    {
        HistoryKeeper keeper(Folder());
        keeper.Resume(Open().Copies().front());
        keeper.Keep({.name = "B"}, "block");
        keeper.Keep({.name = "B"}, "block 2");
        keeper.EndWork(Block, Cause::Working);
    }
    EXPECT_EQ(Causes(),
              "working_T.VRT working_T.VRT close_T.VRT delete_B.VRB working_B.VRB working_B.VRB ");
}

TEST_F(HistoryTest, UnsavedWorkIsItsProgramsUntilThatIsKilled) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        HistoryKeeper keeper(Folder());
        keeper.Keep({.name = "B"}, "block");
        EXPECT_TRUE(Await([&] { return !keeper.IsBusy(); }));
        EXPECT_EQ(write(ready[1], "!", 1), 1);
        pause();
    }
    char sign = 0;
    ASSERT_EQ(read(ready[0], &sign, 1), 1);
    const Copy copy = Open().Copies().front();
    const Copy later{.time = copy.time + 1h, .cause = Cause::Put, .name = "B"};
    ASSERT_EQ(Open().Keep(later, "others go on with this name"), std::nullopt);
    const auto openAndClose = [&](int changes) {
        HistoryKeeper keeper(Folder());
        const auto openFiles = OpenFiles();
        keeper.Resume(copy);
        for (int i = 0; i < changes; ++i) {
            keeper.Keep({.name = "B"}, "block");
            keeper.Keep({.name = "T", .kind = CopyKind::Ticket}, std::to_string(i));
        }
        keeper.EndWork(CopyKind::Block, Cause::Close);
        keeper.EndWork(CopyKind::Ticket, Cause::Close);
        EXPECT_TRUE(Await([&] { return !keeper.IsBusy(); }));
        EXPECT_EQ(OpenFiles(), openFiles);
    };
    openAndClose(2);
    EXPECT_EQ(Causes(), "unsaved_B.VRB close_B.VRB working_T.VRT close_T.VRT put_B.VRB ");
    EXPECT_EQ(Open().IsInWork(copy), true);
    kill(other, SIGKILL);
    waitpid(other, nullptr, 0);
    EXPECT_TRUE(Await([&] { return Open().IsInWork(copy) == false; }));
    openAndClose(0);
    EXPECT_EQ(Causes(), "close_B.VRB close_B.VRB working_T.VRT close_T.VRT put_B.VRB ");
}

}  // namespace
}  // namespace varno
