// The largest ticket decoded and encoded, a key at its end, and a picker opened: each against what
// Qt needs for the bare controls.
#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTimer>
#include <exception>
#include <fstream>
#include <functional>

#include "app/form1.h"
#include "benchmarks/measure.h"
#include "codec/catalogue.h"
#include "codec/encoder.h"
#include "codec/memory_editor.h"
#include "codec/word.h"
#include "editor/code_picker.h"
#include "platform/files.h"
#include "platform/qt/marked_cursor.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/rich_text_box.h"

namespace varno {
namespace {

constexpr int CatalogueLines = 1000;
constexpr int LargestTicket = 1995;  // words, header and end included
constexpr int KeyTicketLength = 34000;
constexpr int TicketNumber = 212;

std::string Line(int code) {
    char line[64];
    std::snprintf(line, sizeof line, "%03d print the value of field %03d\r\n", code, code);
    return line;
}

void WriteCatalogues(const std::string& folder) {
    std::string text;
    for (int code = 0; code < CatalogueLines; ++code) {
        text += Line(code);
    }
    for (const std::string_view name : {ControlCatalogueName, PrintCatalogueName}) {
        std::ofstream(folder + "/" + std::string(name), std::ios::binary) << text;
    }
}

// All codes, spread over the whole catalogue.
std::vector<Word> LargestRecord() {
    std::vector<Word> words{static_cast<Word>(TicketHeader + TicketNumber)};
    for (int i = 0; i < LargestTicket - 2; ++i) {
        words.push_back(static_cast<Word>((i % 2 == 0 ? ControlCode : PrintCode) +
                                          i % (CatalogueLines - 1) + 1));
    }
    words.push_back(TicketEnd);
    return words;
}

MarkedText Decode(const std::vector<Word>& words, const Catalogues& catalogues) {
    MemoryEditor editor;
    TicketDecoder decoder;
    decoder.DecodeTicket(words, TicketNumber, catalogues, editor);
    return editor.Content();
}

void BenchCodec(QtRichTextBox& ours, const Catalogues& catalogues) {
    const std::vector<Word> words = LargestRecord();
    const MarkedText ticket = Decode(words, catalogues);
    QTextEdit bare;  // shown as large as ours
    bare.setLineWrapMode(QTextEdit::NoWrap);
    bare.resize(ours.Get()->size());
    bare.show();
    QApplication::processEvents();
    const auto build = [&] {  // the same text, in one edit block
        QTextCursor cursor(bare.document());
        cursor.beginEditBlock();
        cursor.select(QTextCursor::Document);
        cursor.removeSelectedText();
        InsertMarked(cursor, ticket);
        cursor.endEditBlock();
    };
    const auto readOncePerCode = [&] {
        std::string bytes;
        for (std::size_t i = 0; i + 2 < words.size(); ++i) {
            (void)ReadFile(catalogues.controlCodes, bytes);
        }
    };
    Compare(
        "decode the largest ticket / build + read", 9, 2.0,
        [&] { ours.SetContent(Decode(words, catalogues)); },
        [&] {
            build();
            readOncePerCode();
        });
    Compare(
        "encode it / build", 9, 0.2,
        [&] {
            const std::string record = EncodeTicket(ours.Content(), TicketNumber);
            if (record.size() != words.size() * WordDigits) {
                std::printf("the record came back with another length\n");
            }
        },
        build);
}

void PressX(QWidget* widget) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        QApplication::sendEvent(widget, &event);
    }
    QApplication::processEvents();
}

void BenchKey(QtRichTextBox& ours) {
    MarkedText text;
    for (int i = 0; i < KeyTicketLength; i += 34) {
        text.Append(u"31 characters of ticket text....\u00AC\r\n", {});
    }
    ours.SetContent(text);
    QTextEdit bare;
    bare.setLineWrapMode(QTextEdit::NoWrap);
    bare.resize(ours.Get()->size());
    QTextCursor cursor(bare.document());
    InsertMarked(cursor, text);
    bare.show();
    for (QTextEdit* edit : {static_cast<QTextEdit*>(ours.Get()), &bare}) {
        edit->moveCursor(QTextCursor::End);
    }
    QApplication::processEvents();
    Compare(
        "key at the end of a 34,000-character ticket", 301, 3.0, [&] { PressX(ours.Get()); },
        [&] { PressX(&bare); });
}

// A key at the end of the text with something that is switched on and off in turn.
void CompareKeys(const char* what, double allowed, QtRichTextBox& ours,
                 const std::function<void(bool)>& turn) {
    std::vector<double> times[2];  // without it, with it
    for (int round = 0; round < 200; ++round) {
        const bool with = round % 2 != 0;
        turn(with);
        for (int press = -3; press < 9; ++press) {
            const double time = Seconds([&] { PressX(ours.Get()); });
            if (press >= 0) {  // the window has settled
                times[with ? 1 : 0].push_back(time);
            }
        }
    }
    Report(what, Median(times[1]), Median(times[0]), allowed);
}

// Below a screen full of codes and comments.
void BenchMarks(QtRichTextBox& ours, const Catalogues& catalogues) {
    std::vector<Word> words = LargestRecord();
    words.erase(words.begin() + 60, words.end() - 1);
    const MarkedText ticket = Decode(words, catalogues);
    CompareKeys("key with the marks framed / without", 1.1, ours, [&](bool with) {
        ours.SetContent(ticket);
        ours.Get()->moveCursor(QTextCursor::End);
        ours.SetShowsMarks(with);
    });
    ours.SetShowsMarks(false);
}

// The ticket of BenchKey still stands in the editor. The preview follows only when the typing
// pauses: no key pays for it. What it then does is weighed against building the text.
void BenchPreview(Form1& form, QtRichTextBox& ours) {
    QTextEdit bare;
    bare.setLineWrapMode(QTextEdit::NoWrap);
    bare.resize(ours.Get()->size());
    bare.show();
    const MarkedText text = ours.Content();
    const auto build = [&] {
        QTextCursor cursor(bare.document());
        cursor.beginEditBlock();
        cursor.select(QTextCursor::Document);
        cursor.removeSelectedText();
        InsertMarked(cursor, text);
        cursor.endEditBlock();
    };
    auto& item = form.MainWindow().Get<MenuItem>("ShowPreview");
    item.OnClick();
    auto* preview = ours.Get()->window()->findChild<QWidget*>("Preview");
    CompareKeys("key with the preview open / without", 1.3, ours,
                [&](bool with) { preview->setVisible(with); });
    Compare(
        "preview of it shown anew / build", 9, 1.5,
        [&] {
            item.OnClick();
            QApplication::processEvents();
        },
        build);
    preview->hide();
}

void BenchPicker(QtPlatform& platform, const Catalogues& catalogues) {
    const auto open = [&] {
        CodePicker picker(platform, ControlCodesList(), catalogues.controlCodes);
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        picker.Pick();
    };
    const auto fill = [] {
        QWidget window;
        window.resize(442, 228);
        for (int list = 0; list < 3; ++list) {
            QStringList rows;
            for (int code = 0; code < CatalogueLines; ++code) {
                rows += QString::fromStdString(Line(code));
            }
            auto* widget = new QListWidget(&window);
            widget->addItems(rows);
        }
        window.setWindowModality(Qt::ApplicationModal);
        window.show();
        QApplication::processEvents();
        window.close();
    };
    Compare("open a picker of 1000 codes / fill three lists", 15, 2.0, open, fill);
}

}  // namespace
}  // namespace varno

int main(int argc, char** argv) try {
    QApplication application(argc, argv);
    varno::PrepareApplication();
    QTemporaryDir folder;
    const std::string path = folder.path().toStdString();
    varno::WriteCatalogues(path);
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    varno::QtPlatform platform(
        {.exeName = "bench", .folder = path, .portsFolder = path, .commandLine = ""});
    varno::Form1 form(platform);
    form.Form_Load();
    form.Show();
    auto& editor =
        dynamic_cast<varno::QtRichTextBox&>(form.MainWindow().Get<varno::RichTextBox>("RichText"));
    const varno::Catalogues catalogues = varno::CataloguesIn(path);
    varno::BenchCodec(editor, catalogues);
    varno::BenchKey(editor);
    varno::BenchPreview(form, editor);
    varno::BenchMarks(editor, catalogues);
    varno::BenchPicker(platform, catalogues);
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
