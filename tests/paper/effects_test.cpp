// Reading what codes do: each line, and whole files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "codec/catalogue.h"
#include "paper/effects_file.h"
#include "paper/effects_text.h"
#include "tests/link/scratch_folder.h"
#include "tests/paper/drawing.h"

namespace varno {
namespace {

std::string Joined(const std::vector<std::string>& faults) {
    std::string text;
    for (const std::string& fault : faults) {
        text += fault + "\n";
    }
    return text;
}

TEST(Effects, NameAWrongLineAndUseTheRest) {
    const std::string noCode =
        " is no code: write 017 (a control code), A027 or P012, at most 2047";
    const std::string noRoom = "a print code takes a width from 1 to 99 and a value in quotes";
    const std::string noQuotes = "the value stands in quotes, such as P012 8 \"12480\"";
    const std::pair<std::string, std::string> table[] = {
        {"", ""},
        {"# a remark", ""},
        {"\t 5   BOLD  On # \"", ""},
        {"c2047 feed 99, cut,align right", ""},
        {"A10 nothing", ""},
        {"p5 \"# no comment\" LEFT # one", ""},
        {"width 255", ""},
        {"align centre", ""},
        {"Printer codes", "\"Printer\"" + noCode},
        {"2048 cut", "\"2048\"" + noCode},
        {"-5 cut", "\"-5\"" + noCode},
        {"99999999999999999999 cut", "\"99999999999999999999\"" + noCode},
        {"\x01\xFF\"a#b\" \x02", "\"??\"a#b\"\"" + noCode},
        {"5", "\"\" is no effect"},
        {"5 bold", "\"bold\" is no effect"},
        {"5 cut,", "\"\" is no effect"},
        {"5 cut 1", "\"cut 1\" is no effect"},
        {"5 cut,cut,cut,cut,cut,cut,cut,cut,cut", "a code has at most 8 effects"},
        {"5 " + std::string(99, 'x'), "\"" + std::string(24, 'x') + "...\" is no effect"},
        {"5 feed", "feed takes a number from 1 to 99"},
        {"5 feed 100", "feed takes a number from 1 to 99"},
        {"5 tab 0", "tab takes a number from 1 to 255"},
        {"5 margin 5 5", "margin takes a number from 0 to 255"},
        {"width 0", "width takes a number of columns from 8 to 255"},
        {"width 10000", "width takes a number of columns from 8 to 255"},
        {"align", "\"align\" is no effect"},
        {"P5 bold on", noRoom},
        {"P5 0 \"\"", noRoom},
        {"P5 100 \"\"", noRoom},
        {"P5 8", noQuotes},
        {"P5 8 \"abc", noQuotes},
        {"P5 2 \"abc\"", "the value is longer than 2 columns"},
        {"P5 \"abc\" centre", "only left or right stands behind a value"},
    };
    for (const auto& [line, fault] : table) {
        Effects effects;
        const auto faults = ParseEffects(line + "\r\n7 cut", effects);
        EXPECT_EQ(Joined(faults), fault.empty() ? "" : "line 1: " + fault + "\n") << line;
        EXPECT_EQ(effects.codes.count(ControlCode + 7), 1U) << line;
    }
}

TEST(Effects, LetALaterLineWin) {
    Effects effects;
    ParseEffects("5 cut\n5 feed 2, cut\nP1 6 \"a\xE9\u20AC\"\nP1 4 \"\u00E9\u0416\" left", effects);
    using Kind = Effect::Kind;
    EXPECT_EQ(effects.codes[ControlCode + 5],
              (std::vector<Effect>{{Kind::Feed, 2}, {Kind::Cut, 0}}));
    EXPECT_EQ(effects.values[PrintCode + 1].Filled(), u"\u00E9?  ");
    ParseEffects("P2 4 \"\xE9\"", effects);
    EXPECT_EQ(effects.values[PrintCode + 2].Filled(), u"   \u00E9");
}

TEST(Effects, TakeOtherValues) {
    Effects effects;
    ParseEffects("P1 6 \"4711\" left\nP2 \"kg\"", effects);
    EXPECT_EQ(Joined(ParseValues("# other\n P1 = 12 \nP2=tonnes\r\nP3=a=b\nP1=1234567\n1=2\nP9",
                                 effects)),
              "line 5: the value is longer than 6 columns\n"
              "line 6: \"1=2\" gives no print code a value: write P012=9999\n"
              "line 7: \"P9\" gives no print code a value: write P012=9999\n");
    const std::pair<int, std::u16string> table[] = {{1, u"12    "}, {2, u"tonnes"}, {3, u"a=b"}};
    for (const auto& [number, value] : table) {
        EXPECT_EQ(effects.values[static_cast<Word>(PrintCode + number)].Filled(), value) << number;
    }
}

class EffectsFiles : public testing::Test {
  protected:
    EffectsFiles() {
        std::filesystem::create_directory(own_);
        Write(folder_.Path(), "5 cut\n6 cut\nwidth 0");
    }
    void Write(const std::string& folder, const std::string& bytes) {
        std::ofstream(folder + "/" + std::string(EffectsFileName), std::ios::binary) << bytes;
    }
    std::string Load(const std::string& folder) {
        std::string faults = Joined(LoadEffects(folder, own_, effects_));
        for (std::size_t at; (at = faults.find(folder_.Path())) != std::string::npos;) {
            faults.erase(at, folder_.Path().size());
        }
        return faults;
    }

    ScratchFolder folder_;
    std::string own_ = folder_.Path() + "/own";
    Effects effects_;
};

TEST_F(EffectsFiles, AreTheInstallationsAndTheUsers) {
    Write(own_, "6 reset\n?");
    EXPECT_EQ(Load(folder_.Path()),
              "/Varno Code Effects.txt: line 3: width takes a number of columns from 8 to 255\n"
              "/own/Varno Code Effects.txt: line 2: \"?\" is no code: write 017 (a control code), "
              "A027 or P012, at most 2047\n");
    EXPECT_EQ(effects_.codes[ControlCode + 5][0].kind, Effect::Kind::Cut);
    EXPECT_EQ(effects_.codes[ControlCode + 6][0].kind, Effect::Kind::Reset);
}

TEST_F(EffectsFiles, ThatCannotBeReadAreNamed) {
    const std::string file = "/" + std::string(EffectsFileName) + ": ";
    EXPECT_EQ(Load("/nowhere"), "/nowhere" + file + "No such file or directory\n");
    std::filesystem::create_directory(own_ + file.substr(0, file.size() - 2));
    EXPECT_EQ(Load(own_), "/own" + file + "this is no ordinary file\n/own" + file +
                              "this is no ordinary file\n");
}

// The time for this is a fraction of a second; without the limits it is many.
TEST_F(EffectsFiles, OfAnySizeAndContentAreRead) {
    std::string noise(10 << 20, 'x');
    for (std::size_t i = 0; i < noise.size(); i += 3) {
        noise[i] = static_cast<char>(i * i >> 7);
    }
    Write(folder_.Path(), "5 cut\n" + noise);
    const std::string faults = Load(folder_.Path());
    EXPECT_NE(faults.find("only the first 256 KB of the file are used\n"), std::string::npos);
    EXPECT_LE(std::count(faults.begin(), faults.end(), '\n'), 23);
    EXPECT_EQ(effects_.codes.count(ControlCode + 5), 1U);
}

// Every code of the samples is in the sample catalogues, and none of them is wrong.
TEST(Effects, OfTheSamplesAreRight) {
    Effects effects;
    const std::string samples = VARNO_SAMPLES;
    EXPECT_EQ(Joined(LoadEffects(samples, "/nowhere", effects)), "");
    std::vector<CatalogueRow> rows;
    LoadCatalogue(CataloguesIn(samples).printCodes, rows);
    EXPECT_EQ(effects.values.size(), rows.size());
    for (const auto& [word, list] : effects.codes) {
        EXPECT_TRUE(ClassOf(word) == CharacterClass ||
                    !FindCodeComment(CataloguesIn(samples), word).empty())
            << ValueOf(word);
    }
}

}  // namespace
}  // namespace varno
