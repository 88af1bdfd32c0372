// A board of the 33 reds and the 16 blues, each of which can be pressed.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "draws/Draw.h"

class QGridLayout;
class QPushButton;

namespace ssq {

class BallBoard final : public QWidget {
    Q_OBJECT

  public:
    explicit BallBoard(QWidget* parent = nullptr);

    struct Look {
        enum Kind { kPlain, kBanker, kPool, kKilled, kBlue };

        Kind kind = kPlain;
        QString note = {};  // a few characters under the number
        QString tip = {};

        bool operator==(const Look&) const = default;
    };

    // Numbers count from 1.
    void SetRed(int red, const Look& look) { Set(reds_[At(red)], look); }
    void SetBlue(int blue, const Look& look) { Set(blues_[At(blue)], look); }

    std::function<void(int red)> onRed;
    std::function<void(int blue)> onBlue;

  private:
    // The buttons are named "hong01" and "lan01" and so on.
    struct Ball {
        QPushButton* button = nullptr;
        QString number;
        Look look;
    };

    static std::size_t At(int number) { return static_cast<std::size_t>(number - 1); }
    static void Set(Ball& ball, const Look& look);
    static void Show(const Ball& ball);
    void Add(Ball& ball, const char* name, int number, std::function<void()> onPress);

    std::array<Ball, kReds> reds_;
    std::array<Ball, kBlues> blues_;
};

}  // namespace ssq
