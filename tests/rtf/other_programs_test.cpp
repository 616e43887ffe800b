// Our rich text in LibreOffice and AbiWord, and theirs here. Each test is skipped, with a word
// about it, where its program is not installed.
#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/files.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
#include "tests/link/scratch_folder.h"
#include "tests/rtf/marked_text_picture.h"

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
    return Picture(WithBreaksIn(text, &Plain));
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
    void SaveTickets(std::u16string_view beyond = u"\U0001F600") {
        const std::u16string_view pieces[] = {u"Gross",
                                              u"\u00F7",
                                              u"\u00AC\r\n",
                                              u"C005",
                                              u"P012",
                                              u"   ",
                                              u" ",
                                              u"\t",
                                              u"\r\n",
                                              u"A027",
                                              u"\\{}\\'80\\u",
                                              u"\u20AC \u201EQ\u201C",
                                              u"\u00C4\u00FF",
                                              u"\u0416\u03B1",
                                              u"\u65E5\u672C",
                                              u"<&amp;\">",
                                              u"1,5-0*;?",
                                              beyond};
        std::mt19937 random(5);
        for (int i = 0; i < 12; ++i) {
            const MarkedText ticket = RandomText(random, pieces, 400);
            tickets_.push_back(PlainBreaksIn(ticket));
            const std::string name = folder_.Path() + "/" + std::to_string(i) + ".rtf";
            ASSERT_EQ(WriteFile(name, WriteRtf(ticket)), std::nullopt);
        }
    }
    void CompareTickets(const std::string& converted) {
        Execute(converted);
        for (std::size_t i = 0; i < tickets_.size(); ++i) {
            EXPECT_EQ(LoadRtf("out/" + std::to_string(i) + ".rtf"), tickets_[i]) << "ticket " << i;
        }
    }

    ScratchFolder folder_;
    std::vector<std::string> tickets_;  // as pictures
};

TEST_F(RtfOtherPrograms, LibreOffice) {
    if (!Has("soffice")) {
        GTEST_SKIP() << "LibreOffice is not installed";
    }
    SaveTickets();
    CompareTickets(LibreOfficeTo("rtf", "*.rtf"));

    Execute(LibreOfficeTo("fodt", "*.rtf"));
    for (std::size_t i = 0; i < tickets_.size(); ++i) {
        Execute("/usr/bin/python3 -B " RTF_TESTS "/flat_odt.py out/" + std::to_string(i) + ".fodt");
        EXPECT_EQ(Load("log"), tickets_[i] + "\n") << "ticket " << i;
    }

    // A document of its own making: named styles, lists, tables, notes, changes.
    Execute(LibreOfficeTo("rtf", RTF_TESTS "/data/own.fodt"));
    EXPECT_EQ(LoadRtf("out/own.rtf"),
              "[ff0000 b]Head [0000ff biu]emph[ff0000 b] rest[]|Net÷¬|[s]struck[]<9>xyz|one|two|"
              "a|b<9>n1<9>n2|<9>[ff0000 b]d[]|[000080 u]link[] Жα€ “q” 1|");
}

TEST_F(RtfOtherPrograms, AbiWord) {
    if (!Has("abiword")) {
        GTEST_SKIP() << "AbiWord is not installed";
    }
    SaveTickets(u"x");  // AbiWord 3.0 moves surrogate pairs in front of the text before them
    CompareTickets(AbiWordToRtf("*.rtf"));

    Execute(AbiWordToRtf(RTF_TESTS "/data/own.abw"));
    EXPECT_EQ(LoadRtf("out/own.rtf"),
              "[ff0000 b]Head [0000ff bi]emph[ff0000 b] rest[]|Net÷¬ [00ff00 us]struck[] Жα€ “q”|"
              "[b]one[]|two|a|b<9>[ff0000 b]c[]||end");
}

}  // namespace
}  // namespace varno
