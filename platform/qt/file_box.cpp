#include "platform/qt/file_box.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>

#include "platform/files.h"
#include "platform/qt/measures.h"
#include "platform/qt/message_box.h"

namespace varno {
namespace {

constexpr int SidebarWidth = 120;  // shows a user's name whole

}  // namespace

FileBox::FileBox(const FileDialog& description, AcceptMode mode, QWidget* parent)
    : QFileDialog(parent), pattern_(ToQt(description.filter).section(u'|', 1)) {
    setOption(DontUseNativeDialog);
    setOption(DontConfirmOverwrite);
    setAcceptMode(mode);
    setFileMode(AnyFile);
    setDefaultSuffix(ToQt(description.defaultExt));
    // Shows the description alone; files of the pattern are listed in either case of letters.
    setOption(HideNameFilterDetails);
    setNameFilter(ToQt(description.filter).section(u'|', 0, 0) + " (" + pattern_ + ")");
    const QString folder = ToQt(description.initDir);
    if (!folder.isEmpty() && QDir(folder).exists()) {
        setDirectory(folder);
    }
    QHeaderView* columns = findChild<QTreeView*>()->header();
    for (int column = 1; column < columns->count(); ++column) {  // the size and what follows it
        columns->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    }
    findChild<QSplitter*>()->setSizes({SidebarWidth, 4 * SidebarWidth});
    name_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    // While the name is set by something else than keys, QFileDialog selects the files it finds in
    // it, and puts their names in its place.
    disconnect(name_, &QLineEdit::textChanged, this, nullptr);
    connect(name_, &QLineEdit::textChanged, this, [this](const QString& name) {
        const auto button =
            acceptMode() == AcceptOpen ? QDialogButtonBox::Open : QDialogButtonBox::Save;
        findChild<QDialogButtonBox*>()->button(button)->setEnabled(!name.isEmpty());
    });
    name_->setText(ToQt(description.fileName));
    name_->selectAll();
}

std::optional<ChosenFile> FileBox::Ask() {
    if (exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return ChosenFile{.fileName = FromQt(QDir::toNativeSeparators(chosen_)),
                      .fileTitle = FromQt(QFileInfo(chosen_).fileName())};
}

// QFileDialog's own way of reading the field takes quotation marks for the borders between names.
QString FileBox::PathMeant() const {
    QString name = name_->text();
    if (name.startsWith(u"~/")) {
        name.replace(0, 1, QDir::homePath());
    }
    const bool whole = QDir::isAbsolutePath(name) && !name.startsWith(u':');
    const QString path = whole ? name : directory().absolutePath() + u'/' + name;
    if (QFileInfo(path).isDir()) {
        return QDir::cleanPath(path);
    }
    const bool typedWithout = !QFileInfo(path).fileName().contains(u'.');
    return typedWithout ? path + u'.' + defaultSuffix() : path;
}

void FileBox::accept() {
    if (name_->text().isEmpty() || name_->text() == pattern_) {
        return;
    }
    name_->completer()->popup()->hide();
    QString path = PathMeant();
    if (QFileInfo(path).isDir()) {
        setDirectory(path);
        name_->clear();
        return;
    }
    if (acceptMode() == AcceptOpen) {
        path = ToQt(FileMeantBy(FromQt(path)));
        if (!QFileInfo::exists(path)) {
            MessageBox(path + "\nThere is no such file.", windowTitle(), Buttons::Ok,
                       Icon::Exclamation, this)
                .Ask();
            return;
        }
    }
    chosen_ = path;
    done(QDialog::Accepted);
}

}  // namespace varno
