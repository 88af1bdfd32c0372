#include "ui/qt/Desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QUrl>

namespace ssq {

namespace {

// Longer texts would make a box higher than the screen.
constexpr qsizetype kLongestBoxText = 600;

// Puts the whole text into the folding part of the box and its beginning above.
void FoldLongText(QMessageBox& box, const QString& text) {
    box.setText(text.left(kLongestBoxText) + QStringLiteral("…"));
    box.setDetailedText(text);
    for (QAbstractButton* button : box.buttons()) {
        if (box.buttonRole(button) != QMessageBox::ActionRole) continue;
        button->setText(QStringLiteral("显示全文"));
        // The box renames its button on each click, before this runs.
        QObject::connect(button, &QAbstractButton::clicked, &box, [button, open = false]() mutable {
            open = !open;
            button->setText(open ? QStringLiteral("收起全文") : QStringLiteral("显示全文"));
        });
    }
}

int RunBox(const QString& title, const QString& text, QMessageBox::Icon icon, bool cancellable) {
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(icon);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    QPushButton* ok = box.addButton(QMessageBox::Ok);
    ok->setText(QStringLiteral("确定"));
    box.setDefaultButton(ok);
    if (cancellable) box.addButton(QMessageBox::Cancel)->setText(QStringLiteral("取消"));
    if (text.size() > kLongestBoxText) FoldLongText(box, text);
    return box.exec();
}

void TellCannotOpen(const QString& what) {
    RunBox(QStringLiteral("提示"), QStringLiteral("无法打开：") + what, QMessageBox::Information,
           false);
}

}  // namespace

void SystemDesktop::ShowBox(const QString& title, const QString& text) {
    RunBox(title, text, QMessageBox::Information, false);
}

bool SystemDesktop::Confirm(const QString& title, const QString& text) {
    return RunBox(title, text, QMessageBox::Question, true) == QMessageBox::Ok;
}

QString SystemDesktop::AskSaveFile(const QString& pattern) {
    return QFileDialog::getSaveFileName(QApplication::activeWindow(), QStringLiteral("保存文件"),
                                        QString(), pattern);
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
    if (!QProcess::startDetached(file, QProcess::splitCommand(arguments))) TellCannotOpen(file);
}

void SystemDesktop::RaisePopup(QMenu& menu, const QPoint& place) {
    menu.exec(place);
}

}  // namespace ssq
