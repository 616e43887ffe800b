// The history's window with a year of work in it: from F6 to the painted window, and a key in its
// filter, against what an operator does not notice. The copies are in a folder of their own.
#include <unistd.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/form1.h"
#include "benchmarks/measure.h"
#include "block/block_file.h"
#include "codec/text_limits.h"
#include "history/history.h"
#include "platform/files.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_window.h"
#include "platform/rtf/rtf_writer.h"

namespace varno {
namespace {

constexpr int Copies = 10'000;
constexpr int Rounds = 9;
constexpr double OpensWithin = 0.3;  // seconds
constexpr double TypesWithin = 0.05;
constexpr double ChoosesWithin = 0.5;

void WriteCopies() {
    const std::string bytes = BlockFileBytes(NewTicketBuffer());
    const auto now =
        std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    for (int i = 0; i < Copies; ++i) {
        const Copy copy{.time = now - i * std::chrono::minutes(20),
                        .cause = i % 2 == 0 ? Cause::Delete : Cause::Download,
                        .port = i % 2 == 0 ? "" : "COM3",
                        .name = "Plant" + std::to_string(i % 50)};
        std::ofstream(HistoryFolder() + "/" + FileNameOf(copy), std::ios::binary) << bytes;
    }
}

// The longest that the editor takes: hundreds of thousands of codes in few lines.
void WriteLongestTicket() {
    MarkedText text;
    while (text.Length() + 8 < MostCharacters) {
        text.Append(u"C46", {.colour = ControlCodeColour});
        text.Append(u"a", {});
        text.Append(u"P15", {.colour = PrintCodeColour});
    }
    const Copy copy{.time = CopyTime() + std::chrono::days(20'000),
                    .cause = Cause::Save,
                    .name = "Longest",
                    .kind = CopyKind::Ticket};
    std::ofstream(HistoryFolder() + "/" + FileNameOf(copy), std::ios::binary) << WriteRtf(text);
}

double Slowest(const std::vector<double>& times) {
    return *std::max_element(times.begin(), times.end());
}

void MeasureWindow() {
    QtPlatform platform(ThisProgram());
    Form1 form(platform);
    form.Form_Load();
    form.Show();
    QWidget* shell = static_cast<QtWindow&>(form.MainWindow()).Widget();
    std::vector<double> opens;
    std::vector<double> types;
    std::vector<double> choices;
    for (int round = 0; round < Rounds; ++round) {
        opens.push_back(Seconds([&] {
            QTest::keyClick(shell, Qt::Key_F6);
            QWidget* history = shell->findChild<QWidget*>("History");
            history->repaint();
        }));
        auto* find = shell->findChild<QLineEdit*>("Find");
        find->clear();
        for (const char key : {'c', 'o', 'm', '3'}) {
            types.push_back(Seconds([&] {
                QTest::keyClick(find, key);
                find->window()->repaint();
            }));
            QApplication::processEvents();
        }
    }
    WriteLongestTicket();
    QTest::keyClick(shell, Qt::Key_F6);
    auto* find = shell->findChild<QLineEdit*>("Find");
    for (int round = 0; round < Rounds; ++round) {
        find->setText("plant");
        QApplication::processEvents();
        choices.push_back(Seconds([&] {
            find->setText("longest");
            QApplication::processEvents();
        }));
    }
    Report("slowest F6 with 10,000 copies / 0.3 s", Slowest(opens), OpensWithin, 1);
    Report("slowest key in its filter / 50 ms", Slowest(types), TypesWithin, 1);
    Report("slowest choice of the longest ticket / 0.5 s", Slowest(choices), ChoosesWithin, 1);
}

}  // namespace
}  // namespace varno

int main(int argc, char** argv) {
    std::string scratch = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
    if (mkdtemp(scratch.data()) == nullptr) {
        return 1;
    }
    setenv("XDG_STATE_HOME", scratch.c_str(), 1);
    {
        QApplication application(argc, argv);
        varno::PrepareApplication();
        if (varno::MakeFolder(varno::HistoryFolder())) {
            return 1;
        }
        varno::WriteCopies();
        varno::MeasureWindow();
    }
    std::filesystem::remove_all(scratch);
    return 0;
}
