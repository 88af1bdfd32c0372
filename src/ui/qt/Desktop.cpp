#include "ui/qt/Desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <memory>

namespace ssq {

namespace {

// Longer texts would make a box higher than the screen.
constexpr qsizetype kLongestBoxText = 600;

// What the folding part of a box shows at most, in bytes of UTF-8; more would take long to lay out.
constexpr qsizetype kLongestDetails = 100'000;

// Lets the lines of a box break inside words that would make it wide, such as the path of a file.
QString Breakable(const QString& text) {
    constexpr int kLongestWord = 40;
    constexpr QChar kMayBreak(0x200B);
    QString result;
    int length = 0;
    for (const QChar c : text) {
        length = c.isSpace() ? 0 : length + 1;
        if (length > kLongestWord && !c.isLowSurrogate()) result += kMayBreak;
        result += c;
    }
    return result;
}

// The beginning of a text that takes no more than `bytes` bytes, whole characters only.
QString Beginning(const QString& text, qsizetype bytes) {
    const QByteArray utf8 = text.left(bytes).toUtf8();
    qsizetype end = std::min(bytes, utf8.size());
    const auto isContinuation = [](char byte) { return (byte & 0xC0) == 0x80; };
    while (end < utf8.size() && isContinuation(utf8[end])) --end;
    return QString::fromUtf8(utf8.first(end));
}

// Puts the text into the folding part of the box and its beginning above.
void FoldLongText(QMessageBox& box, const QString& text) {
    const QString details = Beginning(text, kLongestDetails);
    box.setText(Breakable(text.left(kLongestBoxText)) + QStringLiteral("…"));
    box.setDetailedText(details);
    if (details.size() < text.size()) {
        box.setInformativeText(QStringLiteral("全文共 %1 字节，只能显示前 %2 字节。")
                                   .arg(text.toUtf8().size())
                                   .arg(details.toUtf8().size()));
    }
    for (QAbstractButton* button : box.buttons()) {
        if (box.buttonRole(button) != QMessageBox::ActionRole) continue;
        button->setText(QStringLiteral("显示全文"));
        // The box renames its button on each click; this has the last word.
        const auto rename = [button, open = false]() mutable {
            open = !open;
            button->setText(open ? QStringLiteral("收起全文") : QStringLiteral("显示全文"));
        };
        QObject::connect(button, &QAbstractButton::clicked, &box, rename, Qt::QueuedConnection);
    }
}

std::unique_ptr<QMessageBox> MakeBox(const QString& title, const QString& text,
                                     QMessageBox::Icon icon) {
    auto box = std::make_unique<QMessageBox>(QApplication::activeWindow());
    box->setIcon(icon);
    // The window system would put the program's name where there is no title at all.
    box->setWindowTitle(title.isEmpty() ? QStringLiteral(" ") : title);
    box->setTextFormat(Qt::PlainText);
    box->setText(Breakable(text.left(kLongestBoxText)));
    QPushButton* ok = box->addButton(QMessageBox::Ok);
    ok->setText(QStringLiteral("确定"));
    box->setDefaultButton(ok);
    if (text.size() > kLongestBoxText) FoldLongText(*box, text);
    return box;
}

void TellCannotOpen(const QString& what) {
    MakeBox(QStringLiteral("提示"), QStringLiteral("无法打开：") + what, QMessageBox::Information)
        ->exec();
}

}  // namespace

void SystemDesktop::ShowBox(const QString& title, const QString& text, const QString& note) {
    const auto box = MakeBox(title, text, QMessageBox::Information);
    if (!note.isEmpty()) box->setInformativeText(Breakable(note));
    box->exec();
}

bool SystemDesktop::Confirm(const QString& title, const QString& text) {
    const auto box = MakeBox(title, text, QMessageBox::Question);
    box->addButton(QMessageBox::Cancel)->setText(QStringLiteral("取消"));
    return box->exec() == QMessageBox::Ok;
}

QString SystemDesktop::AskSaveFile(const QString& pattern, const QString& proposed) {
    if (lastFolder_.isEmpty()) {
        lastFolder_ = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    }
    QString file = QFileDialog::getSaveFileName(
        QApplication::activeWindow(), QStringLiteral("保存文件"),
        QDir(lastFolder_).filePath(proposed), pattern, nullptr, QFileDialog::DontConfirmOverwrite);
    if (!file.isEmpty()) lastFolder_ = QFileInfo(file).absolutePath();
    return file;
}

QString SystemDesktop::AskOpenFile(const QString& title, const QString& folder,
                                   const QString& pattern) {
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), title, folder, pattern);
}

void SystemDesktop::Open(const QString& urlOrFile) {
    const QUrl url = QUrl::fromUserInput(urlOrFile, QDir::currentPath(), QUrl::AssumeLocalFile);
    if (!QDesktopServices::openUrl(url)) TellCannotOpen(urlOrFile);
}

void SystemDesktop::StartProgram(const QString& file, const QString& arguments) {
    // As one argument: words taken apart would lose the blanks between and behind them.
    if (!QProcess::startDetached(file, {arguments})) TellCannotOpen(file);
}

bool SystemDesktop::AskPrinter(QPrinter& printer) {
    return QPrintDialog(&printer, QApplication::activeWindow()).exec() == QDialog::Accepted;
}

void SystemDesktop::RaisePopup(QMenu& menu, const QPoint& place) {
    menu.exec(place);
}

}  // namespace ssq
