#include "ui/qt/look.h"

#include <QApplication>
#include <QByteArrayView>
#include <QFont>
#include <QHash>
#include <QLibraryInfo>
#include <QLocale>
#include <QPainter>
#include <QStyleFactory>
#include <QSvgRenderer>
#include <QTranslator>

namespace ssq {

namespace {

constexpr int kTextPoints = 10;
constexpr int kMidGrey = 128;

// The colours that a palette is made of.
struct Shades {
    QRgb window;
    QRgb base;
    QRgb alternate;
    QRgb button;
    QRgb text;
    QRgb faint;  // texts that cannot be used now, hints in empty boxes
    QRgb light;
    QRgb midlight;
    QRgb mid;
    QRgb dark;
    QRgb shadow;
    QRgb highlight;
    QRgb faintHighlight;  // a selection in what is disabled
    QRgb link;
    QRgb visited;
    QRgb tip;
};

constexpr Shades kLight = {.window = 0xFFF4F6F6,
                           .base = 0xFFFFFFFF,
                           .alternate = 0xFFECF1F1,
                           .button = 0xFFE9EEEE,
                           .text = 0xFF222B2D,
                           .faint = 0xFF9AA4A6,
                           .light = 0xFFFFFFFF,
                           .midlight = 0xFFF7F9F9,
                           .mid = 0xFFBAC4C4,
                           .dark = 0xFF98A4A4,
                           .shadow = 0xFF5F6B6B,
                           .highlight = 0xFF2F7D8C,
                           .faintHighlight = 0xFFA9BDC1,
                           .link = 0xFF1B6B8F,
                           .visited = 0xFF6A4F8F,
                           .tip = 0xFFFFFBE6};

constexpr Shades kDark = {.window = 0xFF2F3538,
                          .base = 0xFF1D2123,
                          .alternate = 0xFF252B2D,
                          .button = 0xFF3F474A,
                          .text = 0xFFE6EBEC,
                          .faint = 0xFF7C878A,
                          .light = 0xFF566064,
                          .midlight = 0xFF464F52,
                          .mid = 0xFF24292B,
                          .dark = 0xFF16191B,
                          .shadow = 0xFF0B0D0E,
                          .highlight = 0xFF2F7D8C,
                          .faintHighlight = 0xFF3C5157,
                          .link = 0xFF6FC3DA,
                          .visited = 0xFFB79BDB,
                          .tip = 0xFF3A4144};

void SetGroup(QPalette& palette, QPalette::ColorGroup group, const Shades& shades) {
    const bool disabled = group == QPalette::Disabled;
    const QRgb text = disabled ? shades.faint : shades.text;
    const std::pair<QPalette::ColorRole, QRgb> roles[] = {
        {QPalette::WindowText, text},
        {QPalette::Button, disabled ? shades.window : shades.button},
        {QPalette::Light, shades.light},
        {QPalette::Midlight, shades.midlight},
        {QPalette::Dark, shades.dark},
        {QPalette::Mid, shades.mid},
        {QPalette::Text, text},
        {QPalette::BrightText, 0xFFFFFFFF},
        {QPalette::ButtonText, text},
        {QPalette::Base, disabled ? shades.window : shades.base},
        {QPalette::Window, shades.window},
        {QPalette::Shadow, shades.shadow},
        {QPalette::Highlight, disabled ? shades.faintHighlight : shades.highlight},
        {QPalette::HighlightedText, 0xFFFFFFFF},
        {QPalette::Link, shades.link},
        {QPalette::LinkVisited, shades.visited},
        {QPalette::AlternateBase, shades.alternate},
        {QPalette::ToolTipBase, shades.tip},
        {QPalette::ToolTipText, shades.text},
        {QPalette::PlaceholderText, shades.faint},
    };
    for (const auto& [role, colour] : roles) palette.setColor(group, role, QColor::fromRgb(colour));
}

QFont TextFont() {
    QFont font = QApplication::font();
    font.setFamilies({QStringLiteral("Microsoft YaHei"), QStringLiteral("PingFang SC"),
                      QStringLiteral("Noto Sans CJK SC"), QStringLiteral("WenQuanYi Micro Hei")});
    font.setPointSize(kTextPoints);
    return font;
}

// The toolkit's own texts from the system's package, and those that it lacks: the kinds of files in
// a file dialog.
class ChineseTexts final : public QTranslator {
  public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* text, const char* note,
                      int count) const override {
        static const QHash<QByteArrayView, QString> kMissing = {
            {"Drive", QStringLiteral("驱动器")},    {"File", QStringLiteral("文件")},
            {"%1 File", QStringLiteral("%1 文件")}, {"Folder", QStringLiteral("文件夹")},
            {"Unknown", QStringLiteral("未知")},
        };
        if (qstrcmp(context, "QAbstractFileIconProvider") == 0) return kMissing.value(text);
        return QTranslator::translate(context, text, note, count);
    }
};

void SpeakChinese(QApplication& application) {
    const QLocale chinese(QLocale::Chinese, QLocale::China);
    QLocale::setDefault(chinese);
    auto* texts = new ChineseTexts(&application);
    static_cast<void>(texts->load(chinese, QStringLiteral("qtbase"), QStringLiteral("_"),
                                  QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    QCoreApplication::installTranslator(texts);
}

}  // namespace

bool IsDark(const QPalette& palette) {
    return qGray(palette.color(QPalette::Window).rgb()) < kMidGrey;
}

QColor FaultInk(const QPalette& palette) {
    return IsDark(palette) ? QColor(0xFF, 0x9B, 0x8A) : QColor(0xB0, 0x2A, 0x1A);
}

QPalette ProgramPalette(bool dark) {
    QPalette palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        SetGroup(palette, group, dark ? kDark : kLight);
    }
    return palette;
}

QIcon ProgramIcon() {
    QSvgRenderer drawing(QStringLiteral(":/ssq.svg"));
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128}) {
        QPixmap picture(side, side);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

void SetLook(QApplication& application) {
    const bool dark = IsDark(QApplication::palette());
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(ProgramPalette(dark));
    QApplication::setFont(TextFont());
    QApplication::setWindowIcon(ProgramIcon());
    SpeakChinese(application);
}

}  // namespace ssq
