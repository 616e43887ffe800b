// The pickers and the insert commands that show them, operated as an operator would.
#include <gtest/gtest.h>

#include <fstream>

#include "editor/code_picker.h"
#include "editor/insert_commands.h"
#include "tests/fakes/caret_picture.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/fake_rich_text.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

// A picker of codes while it is shown.
struct Codes {
    explicit Codes(FakeWindow& shown) : window(shown) {}

    FakeWindow& window;
    FakeSimpleCombo& code = window.Get<FakeSimpleCombo>("CodeComboBox");
    FakeSimpleCombo& unsorted = window.Get<FakeSimpleCombo>("UnsortedCommentComboBox");
    FakeSimpleCombo& sorted = window.Get<FakeSimpleCombo>("SortedCommentComboBox");
    FakeCheckBox& sort = window.Get<FakeCheckBox>("SortAlphabetically");
    FakeButton& ok = window.Get<FakeButton>("OkButton");

    std::string Boxes() const {
        return code.Text() + '/' + unsorted.Text() + '/' + sorted.Text() +
               (ok.Enabled() ? "/on" : "/off");
    }
};

class Pickers : public testing::Test {
  protected:
    Pickers() {
        WriteControlCodes("heading\r\n009 Tab\r\n005 Line feed\r\n007 Bell\r\n005 again\r\n");
        std::ofstream(catalogues_.printCodes) << "012 Net\r\n010 Gr\xF6\xDF\r\n";
    }
    void WriteControlCodes(const char* text) { std::ofstream(catalogues_.controlCodes) << text; }

    // Shows a picker over this content; what the editor shows afterwards.
    std::string Run(void (InsertCommands::*command)(), const std::string& before,
                    FakeWindow::Script script) {
        const CaretPicture content = FromCaretPicture(before);
        box_.SetContent(content.text);
        box_.Select(content.start, content.length);
        platform_.Operate(std::move(script));
        (commands_.*command)();
        const CaretPicture after{box_.Marked(), box_.SelStart(), 0, box_.TypingFormat()};
        if (after.text != content.text) {
            box_.Undo();
            EXPECT_EQ(ToPicture(box_.Marked()), ToPicture(content.text)) << "one step of undo";
        }
        return ToPicture(after);
    }
    std::string PickControl(const std::function<void(Codes&)>& script) {
        return Run(&InsertCommands::InsertControlCode, "|", [&](FakeWindow& window) {
            Codes codes(window);
            script(codes);
        });
    }

    ScratchFolder folder_;
    Catalogues catalogues_{folder_.Path() + "/control", folder_.Path() + "/print"};
    FakePlatform platform_;
    FakeRichTextBox box_;
    InsertCommands commands_{box_, platform_, catalogues_};
};

TEST_F(Pickers, KeepTheBoxesInStep) {
    struct {
        const char* what;
        std::function<void(Codes&)> act;
        const char* boxes;
        const char* inserted;  // a code and its comment
    } const cases[] = {
        {"code typed", [](Codes& p) { p.code.Type("007"); }, "007/BELL/BELL/on", "007 BELL"},
        {"too long", [](Codes& p) { p.code.Type("0071"); }, "007/BELL/BELL/on", "007 BELL"},
        {"two bytes each", [](Codes& p) { p.code.SetText("äöüx"); }, "äöü///off", ""},
        {"without its zeros", [](Codes& p) { p.code.Type("5"); }, "5///off", ""},
        {"spoilt again", [](Codes& p) { p.code.Type("007"), p.code.SetText("00"); },
         "00/BELL/BELL/off", ""},
        {"code clicked", [](Codes& p) { p.code.ClickEntry(2); }, "007/BELL/BELL/on", "007 BELL"},
        {"comment typed", [](Codes& p) { p.unsorted.Type("TAB"); }, "009/TAB/TAB/on", "009 TAB"},
        {"lower case", [](Codes& p) { p.unsorted.Type("tab"); }, "/tab//off", ""},
        {"part of it", [](Codes& p) { p.sorted.Type("LINE"); }, "//LINE/off", ""},
        {"file order", [](Codes& p) { p.unsorted.ClickEntry(0); }, "009/TAB/TAB/on", "009 TAB"},
        {"sorted", [](Codes& p) { p.sorted.ClickEntry(1); }, "007/BELL/BELL/on", "007 BELL"},
        {"second comment", [](Codes& p) { p.sorted.ClickEntry(0); }, "005/LINE FEED/LINE FEED/on",
         "005 AGAIN"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        const std::string shown = PickControl([&](Codes& p) {
            row.act(p);
            EXPECT_EQ(p.Boxes(), row.boxes);
            p.ok.Click();
            if (*row.inserted == '\0') p.window.Hide();
        });
        const std::string inserted = row.inserted;
        EXPECT_EQ(shown, inserted.empty() ? "|"
                                          : "{r}C" + inserted.substr(0, 3) + "{g}" +
                                                inserted.substr(3) + "{k}\n|");
        // Closed by its box the picker forgets, so that each case starts afresh.
        EXPECT_EQ(PickControl([](Codes& p) { p.window.Close(); }), "|");
    }
}

TEST_F(Pickers, AreHiddenAndComeBackAsTheyWere) {
    using Entries = std::vector<std::string>;
    PickControl([](Codes& p) {
        EXPECT_EQ(p.code.Entries(), (Entries{"005", "005", "007", "009"}));
        EXPECT_EQ(p.unsorted.Entries(), (Entries{"TAB", "LINE FEED", "BELL", "AGAIN"}));
        EXPECT_EQ(p.sorted.Entries(), (Entries{"AGAIN", "BELL", "LINE FEED", "TAB"}));
        EXPECT_TRUE(p.code.HasFocus());
        EXPECT_TRUE(p.unsorted.Visible() && !p.sorted.Visible());
        p.sort.Click();
        EXPECT_TRUE(p.sorted.Visible() && !p.unsorted.Visible());
        p.unsorted.DoubleClickEntry(2);
    });
    WriteControlCodes("001 new\r\n");
    EXPECT_EQ(PickControl([](Codes& p) {
                  EXPECT_EQ(p.Boxes(), "007/BELL/BELL/on");
                  EXPECT_TRUE(p.sorted.Visible() && p.code.HasFocus());
                  p.window.Get<FakeButton>("CancelButton").Click();
              }),
              "|");
    EXPECT_EQ(PickControl([](Codes& p) { p.ok.Click(); }), "{r}C007{g} BELL{k}\n|");
    PickControl([](Codes& p) { p.window.Close(); });
    PickControl([](Codes& p) {
        EXPECT_EQ(p.Boxes(), "///off");
        EXPECT_EQ(p.code.Entries(), Entries{"001"});
        p.window.Hide();
    });
    EXPECT_EQ(platform_.windowsCreated, 2);
}

TEST_F(Pickers, SayOnceThatTheCatalogueIsMissingAndStayEmpty) {
    std::filesystem::remove(catalogues_.controlCodes);
    platform_.dialogs.Expect({"No such file or directory", "", Buttons::Ok, Icon::Critical},
                             Answer::Ok);
    for (int showing = 0; showing < 2; ++showing) {
        PickControl([](Codes& p) {
            EXPECT_EQ(p.code.ListCount(), 0);
            p.window.Hide();
        });
    }
}

TEST_F(Pickers, TakeANumberUpTo999) {
    struct {
        const char* typed;
        const char* text;
        const char* inserted;
    } const cases[] = {
        {"", "", ""},
        {"1000", "100", "d|"},
        {"0001", "000", "{m}A000{g} {k}|"},
        {"7", "7", "{m}A7{g} {k}|"},
        {"31", "31", "{m}A31{g} {k}|"},
        {"032", "032", "÷|"},
        {"33", "33", "!|"},
        {"126", "126", "~|"},
        {"127", "127", "{m}A127{g} {k}|"},
        {"9999", "999", "{m}A999{g} {k}|"},
        {"a1-b 2", "12", "{m}A12{g} {k}|"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.typed);
        const auto shown = Run(&InsertCommands::InsertAsciiCode, "a|", [&](FakeWindow& window) {
            auto& text = window.Get<FakeTextBox>("Text1");
            EXPECT_EQ(text.Text(), "");
            EXPECT_TRUE(text.HasFocus());
            text.Type(row.typed);
            EXPECT_EQ(text.Text(), row.text);
            window.Get<FakeButton>("Command1").Click();
            if (*row.typed == '\0') window.Get<FakeButton>("Command2").Click();
        });
        EXPECT_EQ(shown, *row.typed == '\0' ? "a|" : std::string("a") + row.inserted);
    }
}

TEST_F(Pickers, InsertACodeOnALineOfItsOwn) {
    const std::pair<const char*, const char*> cases[] = {
        {"|", "{b}P010{g} GRÖß{k}\n|"},
        {"|ab", "{b}P010{g} GRÖß{k}\n|ab"},
        {"a|b", "a\n{b}P010{g} GRÖß{k}\n|b"},
        {"ab¬\n|cd", "ab¬\n{b}P010{g} GRÖß{k}\n|cd"},
        {"ab|¬\ncd", "ab\n{b}P010{g} GRÖß{k}\n|¬\ncd"},
        {"a[xy]b", "a\n{b}P010{g} GRÖß{k}\n|b"},
        {"[xy]b", "{b}P010{g} GRÖß{k}\n|b"},
    };
    for (const auto& [before, after] : cases) {
        EXPECT_EQ(Run(&InsertCommands::InsertPrintCode, before,
                      [](FakeWindow& window) {
                          EXPECT_EQ(window.Caption(), "Varno Print Codes");
                          Codes(window).sorted.DoubleClickEntry(0);
                      }),
                  after);
    }
}

}  // namespace
}  // namespace varno
