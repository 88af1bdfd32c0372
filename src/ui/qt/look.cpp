#include "ui/qt/look.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

namespace ssq {

namespace {

constexpr int kTextPoints = 10;

QPalette LightPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0xF4, 0xF6, 0xF6));
    palette.setColor(QPalette::WindowText, QColor(0x22, 0x2B, 0x2D));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xEC, 0xF1, 0xF1));
    palette.setColor(QPalette::Text, QColor(0x22, 0x2B, 0x2D));
    palette.setColor(QPalette::Button, QColor(0xE9, 0xEE, 0xEE));
    palette.setColor(QPalette::ButtonText, QColor(0x22, 0x2B, 0x2D));
    palette.setColor(QPalette::Highlight, QColor(0x2F, 0x7D, 0x8C));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

}  // namespace

void ApplyLook(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(LightPalette());
    QFont font = QApplication::font();
    font.setFamilies({QStringLiteral("Microsoft YaHei"), QStringLiteral("PingFang SC"),
                      QStringLiteral("Noto Sans CJK SC"), QStringLiteral("WenQuanYi Micro Hei")});
    font.setPointSize(kTextPoints);
    QApplication::setFont(font);
    application.setQuitOnLastWindowClosed(false);
}

}  // namespace ssq
