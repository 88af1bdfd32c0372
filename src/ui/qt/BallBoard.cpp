#include "ui/qt/BallBoard.h"

#include <QGridLayout>
#include <QPushButton>
#include <utility>

namespace ssq {

namespace {

// Reds stand at the left in three rows, blues at the right.
constexpr int kRedsInRow = 11;
constexpr int kBluesInRow = 6;
constexpr int kBetween = 8;  // pixels

constexpr int kBallHeight = 34;  // pixels
constexpr int kBallWidth = 24;

const char* Colours(BallBoard::Look::Kind kind) {
    switch (kind) {
        case BallBoard::Look::kBanker:
            return "background:#C8321E;color:white;border-color:#8E1F10";
        case BallBoard::Look::kPool:
            return "background:#F6CFC6;color:#7A1A0C;border-color:#D99A8C";
        case BallBoard::Look::kKilled:
            return "background:#7F878C;color:#E8ECEE;border-color:#5C6367;"
                   "text-decoration:line-through";
        case BallBoard::Look::kBlue:
            return "background:#2B62B8;color:white;border-color:#1B4586";
        default:
            return "background:white;color:#30383C;border-color:#BCC9C4";
    }
}

}  // namespace

BallBoard::BallBoard(QWidget* parent) : QWidget(parent) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->setColumnMinimumWidth(kRedsInRow, kBetween);
    for (int red = 1; red <= kReds; ++red) {
        Ball& ball = reds_[At(red)];
        Add(ball, "hong", red, [this, red] {
            if (onRed) onRed(red);
        });
        layout->addWidget(ball.button, (red - 1) / kRedsInRow, (red - 1) % kRedsInRow);
    }
    for (int blue = 1; blue <= kBlues; ++blue) {
        Ball& ball = blues_[At(blue)];
        Add(ball, "lan", blue, [this, blue] {
            if (onBlue) onBlue(blue);
        });
        layout->addWidget(ball.button, (blue - 1) / kBluesInRow,
                          kRedsInRow + 1 + (blue - 1) % kBluesInRow);
    }
}

void BallBoard::Add(Ball& ball, const char* name, int number, std::function<void()> onPress) {
    ball.number = QStringLiteral("%1").arg(number, 2, 10, QChar(u'0'));
    ball.button = new QPushButton;
    ball.button->setObjectName(QString::fromUtf8(name) + ball.number);
    ball.button->setFocusPolicy(Qt::NoFocus);  // the plan keeps the keys
    ball.button->setFixedHeight(kBallHeight);
    ball.button->setMinimumWidth(kBallWidth);
    connect(ball.button, &QPushButton::clicked, this, std::move(onPress));
    Show(ball);
}

void BallBoard::Set(Ball& ball, const Look& look) {
    if (look == ball.look) return;
    ball.look = look;
    Show(ball);
}

void BallBoard::Show(const Ball& ball) {
    const QString note = ball.look.note;
    ball.button->setText(note.isEmpty() ? ball.number : ball.number + u'\n' + note);
    ball.button->setToolTip(ball.look.tip);
    ball.button->setStyleSheet(
        QStringLiteral(
            "QPushButton{padding:0;font-size:11px;border:1px solid;border-radius:4px;%1}")
            .arg(QString::fromUtf8(Colours(ball.look.kind))));
}

}  // namespace ssq
