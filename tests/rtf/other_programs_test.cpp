// Our rich text in LibreOffice and AbiWord, and theirs here. Each test is skipped, with a word
// about it, where its program is not installed.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <vector>

#include "platform/files.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
#include "tests/link/scratch_folder.h"
#include "tests/rtf/marked_text_samples.h"

namespace varno {
namespace {

std::string LibreOfficeTo(const std::string& format, const std::string& files) {
    return "timeout 300 soffice -env:UserInstallation=file://$HOME/profile --headless "
           "--convert-to " +
           format + " --outdir out " + files;
}
std::string AbiWordToRtf(const std::string& files) {
    return "for f in " + files +
           "; do timeout 60 abiword --to=rtf -o out/$(basename \"${f%.*}\").rtf \"$f\" || exit 1; "
           "done";
}

// The format of a line break means nothing, and word processors do not keep it.
std::string PlainBreaksIn(const MarkedText& text) {
    constexpr CharFormat Plain;
    return ToPicture(WithBreaksIn(text, &Plain));
}

class RtfOtherPrograms : public testing::Test {
  protected:
    // False if the program is not installed; the test is then skipped.
    static bool Has(const char* program) {
        return std::system(("command -v " + std::string(program) + " >/dev/null").c_str()) == 0;
    }
    // In the scratch folder, which is also home to the programs.
    void Execute(const std::string& command) {
        const std::string line = "export HOME='" + folder_.Path() +
                                 "'; cd \"$HOME\" && mkdir -p out && (" + command + ") >log 2>&1";
        EXPECT_EQ(std::system(line.c_str()), 0) << Load("log");
    }
    std::string Load(const std::string& name) {
        std::string bytes;
        EXPECT_EQ(ReadFile(folder_.Path() + "/" + name, bytes), std::nullopt);
        return bytes;
    }
    std::string LoadRtf(const std::string& name) {
        MarkedText text;
        EXPECT_EQ(LoadMarkedText(Load(name), text), std::nullopt) << name;
        return PlainBreaksIn(text);
    }

    // Tickets of all that an operator can type, and Unicode beyond it.
    void SaveTickets(const char16_t* beyond = u"\U0001F600") {
        std::vector pieces = {u"Gross", u"÷",  u"¬\r\n", u"C005",      u"P012",         u"   ",
                              u" ",     u"\t", u"\r\n",  u"A027",      u"\\{}\\'80\\u", u"€ „Q“",
                              u"Äÿ",    u"Жα", u"日本",  u"<&amp;\">", u"1,5-0*;?"};
        pieces.push_back(beyond);
        std::mt19937 random(5);
        for (int i = 0; i < 12; ++i) {
            const MarkedText ticket = RandomText(random, pieces, 400);
            const std::string name = std::to_string(i) + ".rtf";
            ASSERT_EQ(WriteFile(folder_.Path() + "/" + name, WriteRtf(ticket)), std::nullopt);
            texts_[name] = PlainBreaksIn(ticket);
        }
    }
    // Texts as other editors write them, by hand.
    void CopyDialects() {
        Execute("cp " RTF_TESTS "/data/*.rtf .");
        for (const auto& file : std::filesystem::directory_iterator(RTF_TESTS "/data")) {
            const std::string name = file.path().filename();
            if (name.ends_with(".rtf")) {
                texts_[name] = LoadRtf(name);
            }
        }
    }
    void CompareTexts(const std::string& converted) {
        Execute(converted);
        for (const auto& [name, picture] : texts_) {
            EXPECT_EQ(LoadRtf("out/" + name), picture) << name;
        }
    }

    ScratchFolder folder_;
    std::map<std::string, std::string> texts_;  // as pictures, by the names of their files
};

TEST_F(RtfOtherPrograms, LibreOffice) {
    if (!Has("soffice")) {
        GTEST_SKIP() << "LibreOffice is not installed";
    }
    SaveTickets();
    CopyDialects();
    CompareTexts(LibreOfficeTo("rtf", "*.rtf"));

    Execute(LibreOfficeTo("fodt", "*.rtf"));
    for (const auto& [name, picture] : texts_) {
        const std::string file = "out/" + name.substr(0, name.size() - 3) + "fodt";
        Execute("/usr/bin/python3 -B " RTF_TESTS "/flat_odt.py " + file);
        EXPECT_EQ(Load("log"), picture + "\n") << name;
    }

    // A document of its own making: named styles, lists, tables, notes, changes, a box.
    Execute(LibreOfficeTo("rtf", RTF_TESTS "/data/own.fodt"));
    EXPECT_EQ(LoadRtf("out/own.rtf"),
              "{rB}Head {bBIU}emph{rB} rest{k}\nNet÷¬\n{kS}struck{k}\txyz\none\ntwo\n"
              "a\nb\tn1\tn2\n\t{rB}d{k}\n{x8388608U}link{k} Жα€ “q” 1\nin {kB}a{k} box\n"
              "{kB}א{k} x\n");
}

TEST_F(RtfOtherPrograms, AbiWord) {
    if (!Has("abiword")) {
        GTEST_SKIP() << "AbiWord is not installed";
    }
    SaveTickets(u"x");  // AbiWord 3.0 moves surrogate pairs in front of the text before them
    CompareTexts(AbiWordToRtf("*.rtf"));

    Execute(AbiWordToRtf(RTF_TESTS "/data/own.abw"));
    EXPECT_EQ(LoadRtf("out/own.rtf"),
              "{rB}Head {bBI}emph{rB} rest{k}\nNet÷¬ {x65280US}struck{k} Жα€ “q”\n"
              "{kB}one{k}\ntwo\na\nb\t{rB}c{k}\n\nend");
}

}  // namespace
}  // namespace varno
