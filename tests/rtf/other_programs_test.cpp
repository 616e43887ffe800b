// Our rich text in LibreOffice and AbiWord, and theirs here. Each test is skipped, with a word
// about it, where its program is not installed.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>

#include "platform/files.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
#include "tests/rtf/flat_odt.h"
#include "tests/rtf/marked_text_picture.h"

namespace varno {
namespace {

// The format of a line break means nothing, and word processors do not keep it.
constexpr CharFormat Plain;

bool Execute(const std::string& command) {
    return std::system(command.c_str()) == 0;
}

bool Installed(const std::string& program) {
    return Execute("command -v " + program + " >/dev/null 2>&1");
}

// A folder of its own for each test, beside the one that is home to the programs it starts.
class RtfOtherPrograms : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        std::string pattern = testing::TempDir() + "varno-rtf-XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        home_ = pattern;
        ASSERT_EQ(setenv("HOME", pattern.c_str(), 1), 0);
    }
    static void TearDownTestSuite() { std::filesystem::remove_all(home_); }

    void SetUp() override {
        folder_ = home_ / testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::create_directories(folder_ / "out");
    }

    void Save(const std::string& name, const std::string& bytes) {
        ASSERT_EQ(WriteFile(folder_ / name, bytes), std::nullopt);
    }
    std::string Load(const std::string& name) {
        std::string bytes;
        EXPECT_EQ(ReadFile(folder_ / name, bytes), std::nullopt);
        return bytes;
    }
    MarkedText LoadRtf(const std::string& name) {
        MarkedText text;
        EXPECT_EQ(LoadMarkedText(Load(name), text), std::nullopt) << name;
        return text;
    }

    // All files of the folder of one kind, into the folder "out" as another.
    void ConvertByLibreOffice(const std::string& from, const std::string& to) {
        ExecuteInFolder("timeout 300 soffice -env:UserInstallation=file://\"$HOME\"/profile " +
                        ("--headless --convert-to " + to + " --outdir out *." + from));
    }
    void ConvertByAbiWord(const std::string& from, const std::string& to) {
        ExecuteInFolder("for f in *." + from + "; do timeout 60 abiword --to=" + to +
                        " -o out/\"${f%.*}\"." + to + " \"$f\" || exit 1; done");
    }
    void ExecuteInFolder(const std::string& command) {
        EXPECT_TRUE(Execute("cd '" + folder_.string() + "' && (" + command + ") >log 2>&1"))
            << Load("log");
    }

    void SaveTickets(std::u16string_view beyond = u"\U0001F600");
    void CompareTickets(const std::function<MarkedText(const std::string& name)>& load);

    static inline std::filesystem::path home_;
    std::filesystem::path folder_;
    std::vector<MarkedText> tickets_;
};

// Tickets of all that an operator can type, and Unicode beyond it.
void RtfOtherPrograms::SaveTickets(std::u16string_view beyond) {
    const std::u16string_view pieces[] = {u"Gross",
                                          u"\u00F7",
                                          u"\u00AC\r\n",
                                          u"C005",
                                          u"P012",
                                          u"A027",
                                          u" ",
                                          u"   ",
                                          u"\t",
                                          u"\\{}\\'80\\u",
                                          u"\r\n",
                                          u"\u20AC \u201EQ\u201C",
                                          u"\u00C4\u00FF",
                                          u"\u0416\u03B1",
                                          u"\u65E5\u672C",
                                          beyond,
                                          u"<&amp;\">",
                                          u"1,5-0*;?"};
    std::mt19937 random(5);
    for (int i = 0; i < 12; ++i) {
        tickets_.push_back(RandomText(random, pieces, 400));
        Save("ticket" + std::to_string(i) + ".rtf", WriteRtf(tickets_.back()));
    }
}

void RtfOtherPrograms::CompareTickets(
    const std::function<MarkedText(const std::string& name)>& load) {
    std::size_t characters = 0;
    std::size_t different = 0;
    for (std::size_t i = 0; i < tickets_.size(); ++i) {
        const MarkedText expected = WithBreaksIn(tickets_[i], &Plain);
        const MarkedText found = WithBreaksIn(load("out/ticket" + std::to_string(i)), &Plain);
        EXPECT_EQ(Picture(found), Picture(expected)) << "ticket " << i;
        characters += expected.Length();
        different += found == expected ? 0 : 1;
    }
    std::cout << tickets_.size() << " documents, " << characters << " characters, " << different
              << " documents differ\n";
}

TEST_F(RtfOtherPrograms, LibreOfficeShowsWhatWeWrite) {
    if (!Installed("soffice")) {
        GTEST_SKIP() << "LibreOffice is not installed";
    }
    SaveTickets();
    ConvertByLibreOffice("rtf", "fodt");
    CompareTickets([this](const std::string& name) { return ReadFlatOdt(Load(name + ".fodt")); });
}

TEST_F(RtfOtherPrograms, WeReadWhatLibreOfficeSaves) {
    if (!Installed("soffice")) {
        GTEST_SKIP() << "LibreOffice is not installed";
    }
    SaveTickets();
    ConvertByLibreOffice("rtf", "rtf");
    CompareTickets([this](const std::string& name) { return LoadRtf(name + ".rtf"); });
}

TEST_F(RtfOtherPrograms, WeReadWhatAbiWordSaves) {
    if (!Installed("abiword")) {
        GTEST_SKIP() << "AbiWord is not installed";
    }
    SaveTickets(u"x");  // AbiWord 3.0 moves surrogate pairs in front of the text before them
    ConvertByAbiWord("rtf", "rtf");
    CompareTickets([this](const std::string& name) { return LoadRtf(name + ".rtf"); });
}

// A document of each program's own making: named styles, lists, tables, notes, changes.
TEST_F(RtfOtherPrograms, WeReadADocumentOfLibreOffice) {
    if (!Installed("soffice")) {
        GTEST_SKIP() << "LibreOffice is not installed";
    }
    std::filesystem::copy_file(RTF_TEST_DATA "/own.fodt", folder_ / "own.fodt");
    ConvertByLibreOffice("fodt", "rtf");
    EXPECT_EQ(Picture(WithBreaksIn(LoadRtf("out/own.rtf"), &Plain)),
              "[ff0000 b]Head [0000ff biu]emph[ff0000 b] rest[]|Net÷¬|[s]struck[]<9>xyz|one|two|"
              "a|b<9>n1<9>n2|<9>[ff0000 b]d[]|[000080 u]link[] Жα€ “q” 1|");
}

TEST_F(RtfOtherPrograms, WeReadADocumentOfAbiWord) {
    if (!Installed("abiword")) {
        GTEST_SKIP() << "AbiWord is not installed";
    }
    std::filesystem::copy_file(RTF_TEST_DATA "/own.abw", folder_ / "own.abw");
    ConvertByAbiWord("abw", "rtf");
    EXPECT_EQ(Picture(WithBreaksIn(LoadRtf("out/own.rtf"), &Plain)),
              "[ff0000 b]Head [0000ff bi]emph[ff0000 b] rest[]|Net÷¬ [00ff00 us]struck[] Жα€ “q”|"
              "[b]one[]|two|a|b<9>[ff0000 b]c[]||end");
}

}  // namespace
}  // namespace varno
