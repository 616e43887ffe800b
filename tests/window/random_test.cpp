// Random work through the real window. After each step the block is compared with a model that
// knows no image, and a few truths have to hold. VARNO_RANDOM_STEPS and
// VARNO_RANDOM_SEED in the environment choose another run.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTextEdit>
#include <QTimer>
#include <algorithm>
#include <array>
#include <deque>
#include <random>

#include "block/image.h"
#include "codec/decoder.h"
#include "codec/encoder.h"
#include "codec/memory_editor.h"
#include "tests/codec/picture.h"
#include "tests/window/keys.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

struct Model {
    struct Ticket {
        int number;
        std::string record;
    };
    std::vector<Ticket> tickets;  // the newest first
    std::array<int, 4> keys{};

    const Ticket* Find(int number) const {
        const auto found = std::find_if(tickets.begin(), tickets.end(),
                                        [&](const Ticket& t) { return t.number == number; });
        return found == tickets.end() ? nullptr : &*found;
    }
    void Remove(int number) {
        std::erase_if(tickets, [&](const Ticket& t) { return t.number == number; });
        std::replace(keys.begin(), keys.end(), number, 0);
    }
    void Bind(int number, std::size_t key) {
        std::replace(keys.begin(), keys.end(), number, 0);
        if (key < keys.size()) {
            keys[key] = number;
        }
    }
    std::size_t Used() const {
        std::size_t digits = 0;
        for (const Ticket& ticket : tickets) {
            digits += ticket.record.size();
        }
        return digits;
    }
    std::string Image() const {
        std::string memory;
        for (const Ticket& ticket : tickets) {
            memory += ticket.record;
        }
        memory += "8000";
        for (const int key : keys) {
            memory += WordHex(static_cast<Word>(key));
        }
        memory.resize(8000, '0');
        return ":" + memory + "00" + BufferCrc(memory);
    }
    std::string Rows() const {
        std::vector<std::string> rows;
        for (const Ticket& ticket : tickets) {
            const auto key = std::find(keys.begin(), keys.end(), ticket.number) - keys.begin();
            rows.push_back(
                std::to_string(ticket.number) +
                std::array{"  P", "  S", "  I", "  O", ""}[static_cast<std::size_t>(key)]);
        }
        std::sort(rows.begin(), rows.end());
        std::string text;
        for (const std::string& row : rows) {
            text += (text.empty() ? "" : "|") + row;
        }
        return text;
    }
};

class RandomWork {
  public:
    explicit RandomWork(unsigned seed) : random_(seed) { window_.Start(); }

    void Step() {
        using Action = void (RandomWork::*)();
        static constexpr Action Actions[] = {
            &RandomWork::Put,  &RandomWork::Put,    &RandomWork::Edit, &RandomWork::Bind,
            &RandomWork::Bind, &RandomWork::Delete, &RandomWork::Pick, &RandomWork::Pick,
            &RandomWork::Pick, &RandomWork::Undo,   &RandomWork::Grow, &RandomWork::Click};
        if (Up(4) > 0) {
            return PressKeys();
        }
        (this->*Actions[Up(std::size(Actions))])();
    }

    void Check() {
        const WorkingState& state = window_.form.State();
        window_.platform.dialogs.ExpectNoMore();
        ASSERT_EQ(window_.Rows(), model_.Rows());
        ASSERT_EQ(state.block.KeyTicket, model_.keys);
        if (hasBlock_) {
            ASSERT_EQ(state.block.TicketBuffer, model_.Image());
        }
    }

    std::string Story() const {
        std::string story = "last steps:";
        for (const std::string& step : story_) {
            story += ' ' + step;
        }
        return story + "\n" + ToPicture(box_.Content());
    }
    int put = 0, refused = 0, edited = 0, picked = 0, undone = 0;

  private:
    template <class Integer>
    Integer Up(Integer limit) {
        return std::uniform_int_distribution<Integer>(0, limit - 1)(random_);
    }
    void Note(const std::string& step) {
        story_.push_back(step);
        if (story_.size() > 30) {
            story_.pop_front();
        }
    }
    void PressAll(std::string_view keys) {
        Note(std::string(keys));
        editor_->setFocus();
        for (const KeyStroke& stroke : ParseKeys(keys)) {
            Press(editor_, stroke);
            CheckCaret();
        }
    }

    // After a key or a click.
    void CheckCaret() {
        const int caret = box_.SelStart();
        const bool inside = box_.SelLength() == 0 && box_.CharAt(caret) == LineEndMarker &&
                            box_.CharAt(caret + 1) == u'\r';
        EXPECT_FALSE(inside) << "the caret stands inside a line end";
    }

    void PressKeys() {
        static constexpr std::string_view Keys[] = {
            "a",        "b",         "A",        "C",        "P",          "x",         "é",
            ".",        "1",         "2",        "7",        "<Pad5>",     "1234",      " ",
            " ",        "<C-Space>", "<Enter>",  "<Enter>",  "<C-Enter>",  "<S-Enter>", "<BS>",
            "<BS>",     "<Del>",     "<Del>",    "<C-BS>",   "<C-Del>",    "<Left>",    "<Right>",
            "<Up>",     "<Down>",    "<Home>",   "<End>",    "<C-Home>",   "<C-End>",   "<PgUp>",
            "<S-Left>", "<S-Right>", "<S-Down>", "<S-Home>", "<C-S-Left>", "<C-C>",     "<C-X>",
            "<C-V>",    "<C-V>",     "<C-Z>",    "<C-Y>",    "<S-Del>",    "<A-X>",     "<Ins>",
            "<F5>"};
        PressAll(Keys[Up(std::size(Keys))]);
    }
    void Click() {
        Note("click");
        const QSize size = editor_->viewport()->size();
        const QPoint place(Up(size.width()), Up(size.height()));
        QTest::mouseClick(editor_->viewport(), Qt::LeftButton, {}, place);
        CheckCaret();
    }
    // Doubles a short ticket, empties a long one.
    void Grow() {
        PressAll(box_.Content().Length() < 900 ? "<C-A><C-C><Right><C-V>" : "<C-A><Del>");
    }

    // What was undone comes back.
    void Undo() {
        const MarkedText before = box_.Content();
        PressAll("<C-Z>");
        if (box_.Content() != before) {
            // Behind the last of several markers a key is lost, and moves the caret one back.
            while (box_.CharAt(box_.SelStart()) == LineEndMarker) {
                PressAll("<F5>");
            }
            PressAll("<C-Y>");
            EXPECT_EQ(ToPicture(box_.Content()), ToPicture(before)) << "not redone";
            ++undone;
        }
    }

    void Put() {
        static constexpr const char* Numbers[] = {"",    "7",   "199", "200", "201", "202", "203",
                                                  "204", "205", "206", "207", "208", "999"};
        const std::string number = Numbers[Up(std::size(Numbers))];
        Note("put" + number);
        window_.Get<TextBox>("TicketNumber").SetText(number);
        const bool byMouse = Up(2) == 0;
        if (byMouse ? window_.Get<Button>("PutButton").Enabled() : box_.HasText()) {
            ForeseePut(std::atoi(number.c_str()));
        }
        if (byMouse) {
            window_.Click("PutButton");
        } else {
            QTest::mouseDClick(editor_->viewport(), Qt::LeftButton);
            QTest::keyClick(editor_, Qt::Key_End);
        }
    }
    // Tells the script what will be asked, and the model what will be.
    void ForeseePut(int number) {
        ScriptedDialogs& dialogs = window_.platform.dialogs;
        if (number < 200 || number > 999) {
            return dialogs.Expect({"Enter a valid ticket number (200..999).", "Bad Ticket Number",
                                   Buttons::Ok, Icon::Exclamation},
                                  Answer::Ok);
        }
        if (model_.Find(number) != nullptr) {
            const Answer answer = Up(4) > 0 ? Answer::Yes : Answer::No;
            dialogs.Expect({"Overwrite Ticket #" + std::to_string(number) + "?",
                            "Existing Ticket Number", Buttons::YesNo, Icon::Question},
                           answer);
            if (answer == Answer::No) {
                return;
            }
        }
        hasBlock_ = true;
        const std::string record = EncodeTicket(box_.Content(), number);
        if (model_.Used() + record.size() > 7980) {
            ++refused;
            return dialogs.Expect({"too big", ApplicationTitle, Buttons::Ok, Icon::None},
                                  Answer::Ok);
        }
        ++put;
        model_.Remove(number);
        model_.tickets.insert(model_.tickets.begin(), {number, record});
        EXPECT_EQ(EncodeTicket(Decoded(number, record), number), record);
    }
    MarkedText Decoded(int number, const std::string& record) {
        static const std::string samples = VARNO_CATALOGUES;
        MemoryEditor decoded;
        TicketDecoder().DecodeTicket(WordsOf(":" + record), number, CataloguesIn(samples), decoded);
        return decoded.Content();
    }

    // Clicks a row; the number of its ticket, or 0 if there is none.
    int SelectRow() {
        auto& list = window_.Get<ListBox>("TicketList");
        if (list.ListCount() == 0) {
            return 0;
        }
        const int row = Up(list.ListCount());
        window_.ClickRow(row);
        return std::atoi(list.List(row).c_str());
    }
    // A ticket lost to Edit comes back with Ctrl+Z.
    void Edit() {
        const int number = SelectRow();
        if (number == 0) {
            return;
        }
        Note("edit" + std::to_string(number));
        const MarkedText before = box_.Content();
        const bool asks = box_.HasText() && window_.form.State().TicketChanged;
        const Answer answer = Up(4) > 0 ? Answer::No : Answer::Cancel;
        if (asks) {
            window_.platform.dialogs.Expect(EditQuestion, answer);
        }
        window_.Click("EditButton");
        if (asks && answer == Answer::Cancel) {
            EXPECT_EQ(ToPicture(box_.Content()), ToPicture(before));
            return;
        }
        ++edited;
        const MarkedText ticket = Decoded(number, model_.Find(number)->record);
        EXPECT_EQ(ToPicture(box_.Content()), ToPicture(ticket));
        EXPECT_FALSE(window_.form.State().TicketChanged);
        if (Up(3) == 0 && ticket != before) {
            PressAll("x<C-Z>");
            EXPECT_EQ(ToPicture(box_.Content()), ToPicture(ticket));
            PressAll("<C-Z>");
            EXPECT_EQ(ToPicture(box_.Content()), ToPicture(before)) << "the ticket is lost";
        }
    }
    void Bind() {
        const int number = SelectRow();
        if (number == 0) {
            return;
        }
        std::size_t key = Up(std::size_t{5});
        Note("bind" + std::to_string(number) + "PSIO "[key]);
        if (key == 4 || Up(2) == 0) {
            QTest::keyClick(window_.Widget<QWidget>("TicketList"), "PsIo "[key]);
        } else {
            const std::string button = "KeyAssignment(" + std::to_string(key) + ")";
            window_.Click(button.c_str());
            if (model_.keys[key] == number) {
                key = 4;  // it was pressed before
            }
        }
        model_.Bind(number, key);
    }
    void Delete() {
        const int number = SelectRow();
        if (number == 0) {
            return;
        }
        Note("delete" + std::to_string(number));
        if (Up(2) == 0) {
            window_.Click("DeleteButton");
        } else {
            QTest::keyClick(window_.Widget<QWidget>("TicketList"), Qt::Key_Delete);
        }
        model_.Remove(number);
    }

    void Pick() {
        static constexpr Qt::Key Letters[] = {Qt::Key_A, Qt::Key_C, Qt::Key_P};
        const Qt::Key letter = Letters[Up(std::size(Letters))];
        Note(std::string("pick") + static_cast<char>(letter));
        editor_->setFocus();
        // A selection may begin right behind a marker; every key but Backspace is lost there.
        const bool comes = box_.CharAt(box_.SelStart()) != LineEndMarker;
        bool shown = false;
        QTimer timer;
        timer.setSingleShot(true);
        timer.callOnTimeout([&] {
            shown = true;
            OperatePicker(QApplication::activeModalWidget());
        });
        timer.start(0);
        QTest::sendKeyEvent(QTest::Click, editor_, letter, QString(QChar(letter)).toLower(),
                            Qt::AltModifier);
        EXPECT_EQ(shown, comes);
        picked += shown ? 1 : 0;
    }
    void OperatePicker(QWidget* picker) {
        ASSERT_NE(picker, nullptr);
        static constexpr const char* Numbers[] = {"7",  "10",  "13", "32",   "65",
                                                  "99", "200", "",   "1000", "999"};
        static constexpr const char* Codes[] = {"001", "005", "010", "012", "0051", "7", ""};
        const bool ascii = picker->objectName() == u"AsciiCodesList";
        auto* field = picker->findChild<QLineEdit*>(ascii ? "Text1" : "CodeComboBox.Edit");
        ASSERT_NE(field, nullptr);
        field->clear();
        QTest::keyClicks(field,
                         ascii ? Numbers[Up(std::size(Numbers))] : Codes[Up(std::size(Codes))]);
        if (Up(4) > 0) {
            QTest::keyClick(field, Qt::Key_Return);
        }
        // Nothing was found, or the operator gives up.
        if (picker->isVisible() && Up(2) == 0) {
            QTest::keyClick(field, Qt::Key_Escape);
        } else if (picker->isVisible()) {
            picker->close();
        }
    }

    std::mt19937 random_;
    TestFolder folder_;
    RealWindow window_{folder_};
    QTextEdit* editor_ = window_.Widget<QTextEdit>("RichText");
    RichTextBox& box_ = window_.Get<RichTextBox>("RichText");
    Model model_;
    bool hasBlock_ = false;
    std::deque<std::string> story_;
};

int Setting(const char* variable, int byDefault) {
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : byDefault;
}

TEST(Window, RandomWorkAgreesWithAModel) {
    const int steps = Setting("VARNO_RANDOM_STEPS", 10000);
    RandomWork work(static_cast<unsigned>(Setting("VARNO_RANDOM_SEED", 20240229)));
    for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
        work.Step();
        work.Check();
        ASSERT_FALSE(testing::Test::HasFailure()) << "step " << step << ", " << work.Story();
    }
    for (const int count : {work.put, work.edited, work.picked, work.undone, work.refused}) {
        EXPECT_GT(count, steps / 1000);
    }
    RecordProperty("put", work.put);
    RecordProperty("refused", work.refused);
    RecordProperty("edited", work.edited);
    RecordProperty("picked", work.picked);
    RecordProperty("undone", work.undone);
}

}  // namespace
}  // namespace varno
