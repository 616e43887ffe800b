// The pickers and the insert commands that show them, operated as an operator would.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "editor/code_picker.h"
#include "editor/insert_commands.h"
#include "tests/fakes/caret_picture.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/fake_rich_text.h"

namespace varno {
namespace {

class Pickers : public testing::Test {
  protected:
    Pickers()
        : folder_(std::filesystem::temp_directory_path() / ("pickers" + std::to_string(getpid()))),
          catalogues_{folder_ / "control", folder_ / "print"} {
        std::filesystem::create_directories(folder_);
        WriteCatalogue("heading\r\n009 Tab\r\n005 Line feed\r\n007 Bell\r\n005 again\r\n");
        std::ofstream(catalogues_.printCodes) << "012 Net\r\n010 Gr\xF6\xDF"
                                                 "e\r\n";
    }
    ~Pickers() override { std::filesystem::remove_all(folder_); }

    void WriteCatalogue(const std::string& text) {
        std::ofstream(catalogues_.controlCodes, std::ios::binary) << text;
    }
    void Edit(std::string_view picture) {
        const CaretPicture content = FromCaretPicture(picture);
        box_.SetContent(content.text);
        box_.Select(content.start, content.length);
    }
    std::string Shown() const {
        return ToPicture(CaretPicture{box_.Marked(), box_.SelStart(), 0, box_.TypingFormat()});
    }

    // The picker of control codes, shown once and operated by `script`.
    struct ControlPicker {
        explicit ControlPicker(FakeWindow& window)
            : code(window.Get<FakeSimpleCombo>("CodeComboBox")),
              unsorted(window.Get<FakeSimpleCombo>("UnsortedCommentComboBox")),
              sorted(window.Get<FakeSimpleCombo>("SortedCommentComboBox")),
              sortAlphabetically(window.Get<FakeCheckBox>("SortAlphabetically")),
              ok(window.Get<FakeButton>("OkButton")),
              cancel(window.Get<FakeButton>("CancelButton")) {}

        std::string Boxes() const {
            return code.Text() + '/' + unsorted.Text() + '/' + sorted.Text() + '/' +
                   (ok.Enabled() ? "on" : "off");
        }

        FakeSimpleCombo& code;
        FakeSimpleCombo& unsorted;
        FakeSimpleCombo& sorted;
        FakeCheckBox& sortAlphabetically;
        FakeButton& ok;
        FakeButton& cancel;
    };
    std::u16string PickControl(const std::function<void(ControlPicker&)>& script) {
        platform_.Operate([&](FakeWindow& window) {
            ControlPicker picker(window);
            script(picker);
            if (window.IsShown()) picker.cancel.Click();
        });
        return control_.Pick();
    }

    std::filesystem::path folder_;
    Catalogues catalogues_;
    FakePlatform platform_;
    FakeRichTextBox box_;
    InsertCommands commands_{box_, platform_, catalogues_};
    Picker control_{[this] {
        return std::make_unique<CodePicker>(platform_, ControlCodesList(),
                                            catalogues_.controlCodes);
    }};
};

TEST_F(Pickers, KeepTheBoxesInStep) {
    struct Case {
        const char* name;
        std::function<void(ControlPicker&)> act;
        const char* boxes;
        std::u16string pickResult;
    };
    using P = ControlPicker&;
    const Case cases[] = {
        {"a code typed", [](P p) { p.code.Type("007"); }, "007/BELL/BELL/on", u"007 BELL"},
        {"too many characters", [](P p) { p.code.Type("0051"); }, "005/LINE FEED/LINE FEED/on",
         u"005 LINE FEED"},
        {"pasted characters of two units", [](P p) { p.code.SetText("äöüx"); }, "äöü///off", u""},
        {"half a code", [](P p) { p.code.Type("00"); }, "00///off", u""},
        {"a code without its zeros", [](P p) { p.code.Type("5"); }, "5///off", u""},
        {"a code spoilt again", [](P p) { p.code.Type("007"), p.code.SetText("00"); },
         "00/BELL/BELL/off", u""},
        {"a code clicked", [](P p) { p.code.ClickEntry(2); }, "007/BELL/BELL/on", u"007 BELL"},
        {"a comment typed", [](P p) { p.unsorted.Type("TAB"); }, "009/TAB/TAB/on", u"009 TAB"},
        {"a comment in lower case", [](P p) { p.unsorted.Type("tab"); }, "/tab//off", u""},
        {"part of a comment", [](P p) { p.sorted.Type("LINE"); }, "//LINE/off", u""},
        {"a comment in file order", [](P p) { p.unsorted.ClickEntry(1); },
         "005/LINE FEED/LINE FEED/on", u"005 LINE FEED"},
        {"the same in the sorted list",
         [](P p) { p.sortAlphabetically.Click(), p.sorted.ClickEntry(2); },
         "005/LINE FEED/LINE FEED/on", u"005 LINE FEED"},
        {"the second comment of a code", [](P p) { p.sorted.ClickEntry(0); },
         "005/LINE FEED/LINE FEED/on", u"005 AGAIN"},
    };
    for (const Case& row : cases) {
        std::string boxes;
        const std::u16string result = PickControl([&](P picker) {
            row.act(picker);
            boxes = picker.Boxes();
            picker.ok.Click();
        });
        EXPECT_EQ(boxes, row.boxes) << row.name;
        EXPECT_EQ(ToUtf8(result), ToUtf8(row.pickResult)) << row.name;
        // Closed by its box the picker forgets, so that each case starts afresh.
        platform_.Operate([](FakeWindow& window) { window.Close(); });
        EXPECT_EQ(control_.Pick(), u"") << row.name;
    }
}

TEST_F(Pickers, ShowTheCatalogueInTheirOrders) {
    using Entries = std::vector<std::string>;
    PickControl([](ControlPicker& picker) {
        EXPECT_EQ(picker.code.Entries(), (Entries{"005", "005", "007", "009"}));
        EXPECT_EQ(picker.unsorted.Entries(), (Entries{"TAB", "LINE FEED", "BELL", "AGAIN"}));
        EXPECT_EQ(picker.sorted.Entries(), (Entries{"AGAIN", "BELL", "LINE FEED", "TAB"}));
        EXPECT_TRUE(picker.code.HasFocus());
        for (const bool sorted : {false, true, false}) {
            if (picker.sortAlphabetically.Value() != sorted) picker.sortAlphabetically.Click();
            EXPECT_EQ(picker.sorted.Visible(), sorted);
            EXPECT_EQ(picker.unsorted.Visible(), !sorted);
        }
    });
}

TEST_F(Pickers, AreHiddenAndComeBackAsTheyWere) {
    EXPECT_EQ(PickControl([](ControlPicker& p) { p.unsorted.DoubleClickEntry(2); }), u"007 BELL");
    WriteCatalogue("001 new\r\n");
    EXPECT_EQ(PickControl([](ControlPicker& p) {
                  EXPECT_EQ(p.Boxes(), "007/BELL/BELL/on");
                  p.sortAlphabetically.Click();
                  p.cancel.Click();
              }),
              u"");
    EXPECT_EQ(PickControl([](ControlPicker& p) {
                  EXPECT_TRUE(p.sorted.Visible());
                  EXPECT_TRUE(p.code.HasFocus());
                  p.ok.Click();
              }),
              u"007 BELL");
    EXPECT_EQ(platform_.windowsCreated, 1);

    platform_.Operate([](FakeWindow& window) { window.Close(); });
    EXPECT_EQ(control_.Pick(), u"");
    PickControl([](ControlPicker& p) {
        EXPECT_EQ(p.Boxes(), "///off");
        EXPECT_FALSE(p.sorted.Visible());
        EXPECT_EQ(p.code.Entries(), std::vector<std::string>{"001"});
    });
    EXPECT_EQ(platform_.windowsCreated, 2);
}

TEST_F(Pickers, SayThatTheCatalogueIsMissingAndStayEmpty) {
    std::filesystem::remove(catalogues_.controlCodes);
    platform_.dialogs.Expect({"No such file or directory", "", Buttons::Ok, Icon::Critical},
                             Answer::Ok);
    for (int showing = 0; showing < 2; ++showing) {  // the message comes once
        EXPECT_EQ(PickControl([](ControlPicker& picker) {
                      EXPECT_EQ(picker.code.ListCount(), 0);
                      picker.code.Type("005");
                      picker.ok.Click();
                  }),
                  u"");
    }
}

TEST_F(Pickers, TakeANumberUpTo999) {
    struct Case {
        const char* typed;
        const char* text;
        const char* editor;
    };
    const Case cases[] = {
        {"1000", "100", "d|"},
        {"0001", "000", "{m}A000{g} {k}|"},
        {"7", "7", "{m}A7{g} {k}|"},
        {"007", "007", "{m}A007{g} {k}|"},
        {"31", "31", "{m}A31{g} {k}|"},
        {"32", "32", "÷|"},
        {"032", "032", "÷|"},
        {"33", "33", "!|"},
        {"65", "65", "A|"},
        {"126", "126", "~|"},
        {"127", "127", "{m}A127{g} {k}|"},
        {"9999", "999", "{m}A999{g} {k}|"},
        {"a1-b 2", "12", "{m}A12{g} {k}|"},
    };
    for (const Case& row : cases) {
        Edit("{r}C|");
        platform_.Operate([&](FakeWindow& window) {
            auto& text = window.Get<FakeTextBox>("Text1");
            auto& insert = window.Get<FakeButton>("Command1");
            EXPECT_EQ(text.Text(), "");
            EXPECT_TRUE(text.HasFocus());
            EXPECT_FALSE(insert.Enabled());
            text.Type(row.typed);
            EXPECT_EQ(text.Text(), row.text);
            insert.Click();
        });
        commands_.InsertAsciiCode();
        const std::string expected = row.editor;
        EXPECT_EQ(Shown(), "{r}C" + (expected.front() == '{' ? expected : "{k}" + expected));
        box_.Undo();
        EXPECT_EQ(ToPicture(box_.Marked()), "{r}C") << row.typed << " is one step of undo";
    }
}

TEST_F(Pickers, TakeANumberFromTheTable) {
    Edit("|");
    platform_.Operate([](FakeWindow& window) {
        auto& list = window.Get<FakeListBox>("List1");
        EXPECT_EQ(list.ListCount(), 32);
        list.ClickRow(0x1E);
        EXPECT_EQ(window.Get<FakeTextBox>("Text1").Text(), "30");
        list.DoubleClickRow(7);
    });
    commands_.InsertAsciiCode();
    EXPECT_EQ(Shown(), "{m}A7{g} {k}|");
}

TEST_F(Pickers, InsertACodeOnALineOfItsOwn) {
    struct Case {
        const char* before;
        const char* after;
    };
    const Case cases[] = {
        {"|", "{b}P012{g} NET{k}\n|"},
        {"|ab", "{b}P012{g} NET{k}\n|ab"},
        {"ab|", "ab\n{b}P012{g} NET{k}\n|"},
        {"a|b", "a\n{b}P012{g} NET{k}\n|b"},
        {"ab¬\n|cd", "ab¬\n{b}P012{g} NET{k}\n|cd"},
        {"ab|¬\ncd", "ab\n{b}P012{g} NET{k}\n|¬\ncd"},
        {"a[xy]b", "a\n{b}P012{g} NET{k}\n|b"},
        {"[xy]b", "{b}P012{g} NET{k}\n|b"},
    };
    for (const Case& row : cases) {
        Edit(row.before);
        const MarkedText before = box_.Marked();
        platform_.Operate([](FakeWindow& window) {
            window.Get<FakeSimpleCombo>("CodeComboBox").Type("012");
            window.Get<FakeButton>("OkButton").Click();
        });
        commands_.InsertPrintCode();
        EXPECT_EQ(Shown(), row.after) << row.before;
        box_.Undo();
        EXPECT_EQ(ToPicture(box_.Marked()), ToPicture(before)) << "one step of undo";
    }
}

TEST_F(Pickers, HaveTwinsWithACatalogueEach) {
    Edit("|");
    platform_.Operate([](FakeWindow& window) {
        EXPECT_EQ(window.Caption(), "Varno Control Codes");
        window.Get<FakeSimpleCombo>("UnsortedCommentComboBox").DoubleClickEntry(0);
    });
    commands_.InsertControlCode();
    platform_.Operate([](FakeWindow& window) {
        EXPECT_EQ(window.Caption(), "Varno Print Codes");
        window.Get<FakeSimpleCombo>("SortedCommentComboBox").DoubleClickEntry(0);
    });
    commands_.InsertPrintCode();
    EXPECT_EQ(Shown(), "{r}C009{g} TAB{k}\n{b}P010{g} GRÖßE{k}\n|");
}

TEST_F(Pickers, LeaveTheEditorAloneWithoutAnAnswer) {
    using Command = void (InsertCommands::*)();
    const Command commands[] = {&InsertCommands::InsertAsciiCode,
                                &InsertCommands::InsertControlCode,
                                &InsertCommands::InsertPrintCode};
    Edit("{r}C0|");
    box_.OnChange = [] { ADD_FAILURE() << "changed"; };
    for (const Command command : commands) {
        platform_.Operate([](FakeWindow& window) { window.Close(); });
        (commands_.*command)();
        EXPECT_EQ(Shown(), "{r}C0|");
    }
}

}  // namespace
}  // namespace varno
