// The small widgets and the application object.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QChart>
#include <QCompleter>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <csignal>
#include <stdexcept>

#include "banker/frmxxjl.h"
#include "panel_driver/ScriptDesktop.h"
#include "support/TestDatabase.h"
#include "ui/qt/Application.h"
#include "ui/qt/ElidedGroup.h"
#include "ui/qt/GridView.h"
#include "ui/qt/IssueCombo.h"
#include "ui/qt/LineChart.h"
#include "ui/qt/Panel.h"
#include "ui/qt/form.h"
#include "ui/qt/placing.h"

namespace ssq {

ScriptDesktop& TestDesktop();  // main.cpp

namespace {

TEST(LineChart, DrawsEachPointAtItsValue) {
    LineChart chart;
    chart.resize(600, 400);
    chart.Show({"t", {"1", "2", "3", "4"}, {10, 90, 50, 70}, 10, 90, 4, "s"});
    chart.show();
    const QImage picture = chart.viewport()->grab().toImage();
    const QRectF plot = chart.chart()->plotArea();
    const QColor line(0x2F, 0x7D, 0x8C);
    for (const auto& [place, height] :
         std::vector<std::pair<double, double>>{{0, 0}, {1, 1}, {2, 0.5}, {3, 0.75}}) {
        const QPointF point(plot.left() + plot.width() * (place + 0.5) / 4,
                            plot.bottom() - plot.height() * height);
        EXPECT_EQ(picture.pixelColor(point.toPoint()), line) << place;
    }
}

TEST(LineChart, ScrollsWherePointsAreManyAndTellsTheNearest) {
    LineChart chart;
    chart.resize(600, 400);
    LineChartData data{"t", {}, {}, 0, 10, 1, "s"};
    for (int point = 0; point < 300; ++point) {
        data.labels.push_back(std::to_string(1000 + point));
        data.values.push_back(point % 10);
    }
    chart.Show(data);
    chart.show();
    const QRectF plot = chart.chart()->plotArea();
    const auto tipAt = [&](const QPointF& place) {
        QTest::mouseMove(chart.viewport(), place.toPoint());
        QCoreApplication::processEvents();
        return QToolTip::text().toStdString();
    };
    const int seen = static_cast<int>(plot.width() / 12);
    EXPECT_EQ(tipAt(plot.bottomRight() + QPointF(-5, -60)), "1299: 9");
    EXPECT_EQ(tipAt(plot.topLeft() + QPointF(5, 30)),
              std::to_string(1300 - seen) + ": " + std::to_string((300 - seen) % 10));
    QTest::keyClick(&chart, Qt::Key_Home);
    EXPECT_EQ(tipAt(plot.topLeft() + QPointF(5, 90)), "1000: 0");
    EXPECT_EQ(chart.Picture().width(), 600);
}

TEST(WrappingRow, KeepsControlsApartAndLabelsWithTheirs) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    QHBoxLayout* row = AddRow(column);
    const QWidget* first = AddTextBox(row, "first", QStringLiteral("一"));
    const QWidget* second = AddTextBox(row, "second", QStringLiteral("二"));
    column->addStretch();
    window.resize(800, 200);
    window.show();
    EXPECT_EQ(first->y(), second->y());
    window.resize(window.minimumSizeHint().width(), 200);
    QApplication::processEvents();
    EXPECT_GE(second->y(), first->geometry().bottom());
    EXPECT_EQ(second->x(), first->x());  // each behind its label, at the begin of its line
    EXPECT_LE(second->geometry().right(), window.width());
}

TEST(ElidedGroup, ALongCaptionDoesNotWidenTheWindow) {
    ElidedGroup group(QStringLiteral("标题"));
    const int narrow = group.minimumSizeHint().width();
    group.setTitle(QString(32767, QLatin1Char('x')));
    EXPECT_GT(group.minimumSizeHint().width(), narrow);
    EXPECT_LT(group.minimumSizeHint().width(), 300);
    EXPECT_EQ(group.title().size(), 32767);
}

TEST(IssueCombos, TakeTheNewestDrawsAndLeaveTheWheelToTheirPanel) {
    QWidget window;
    QHBoxLayout* row = AddRow(new QVBoxLayout(&window));
    IssueCombo* start = AddIssueCombo(row, "cboSdate", {});
    IssueCombo* end = AddIssueCombo(row, "cboEdate", {});
    QStringList issues;
    for (int number = 60; number > 0; --number) issues.append(QString::number(2026000 + number));
    for (IssueCombo* combo : {start, end}) combo->Fill(issues);
    const QList<QAction*> spans = AddPeriodMenu(row, *start, *end)->menu()->actions();
    const auto range = [&](int span) {
        spans[span]->trigger();
        return start->issue() + "-" + end->issue();
    };
    EXPECT_EQ(range(0), "2026031-2026060");
    EXPECT_EQ(range(1), "2026011-2026060");
    EXPECT_EQ(range(2), "2026001-2026060");  // there are no 100
    EXPECT_EQ(range(3), "2026001-2026060");

    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto turnWheel = [](QWidget* over) {
        QWheelEvent turn({5, 5}, over->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(over, &turn);
    };
    start->setFocus();
    turnWheel(end);
    turnWheel(end->lineEdit());
    EXPECT_EQ(end->issue(), "2026060");
    EXPECT_TRUE(start->hasFocus());
    end->setFocus();
    turnWheel(end);
    EXPECT_EQ(end->issue(), "2026059");

    // The list proposes what begins so; with the last digit Enter is the panel's again.
    end->lineEdit()->selectAll();
    QTest::keyClicks(end->lineEdit(), QStringLiteral("202603"));
    EXPECT_TRUE(end->completer()->popup()->isVisible());
    QTest::keyClicks(end->lineEdit(), QStringLiteral("1"));
    EXPECT_FALSE(end->completer()->popup()->isVisible());
}

TEST(Panels, OpenWithinTheScreenAndPressTheButtonOfTheInput) {
    struct TwoInputs final : Panel {
        TwoInputs(const PanelContext& context, QWidget* parent, int side)
            : Panel(context, parent, {"two", "", side, 200}) {
            QBoxLayout* row = AddRow(new QVBoxLayout(this));
            first = AddTextBox(row, "first", {});
            second = AddTextBox(row, "second", {});
            other = AddButton(row, "other", {}, [this] { pressed += "o"; });
            SetMainButton(AddButton(row, "main", {}, [this] { pressed += "m"; }));
            SetMainButtonOf(second, AddButton(row, "part", {}, [this] { pressed += "p"; }));
        }
        QWidget *first, *second, *other;
        std::string pressed;
    };
    const TempFolder folder;
    std::filesystem::create_directory(folder.path() / "manual");
    folder.Write("manual/two.html", "page");
    TestHost host;
    Session session{host, folder.path()};
    QWidget owner;
    owner.setGeometry(100, 100, 500, 400);
    owner.show();
    const auto open = [&](int width) {
        auto* panel = new TwoInputs({session, TestDesktop()}, &owner, width);
        BringUp(*panel);
        return panel;
    };
    TwoInputs* below = open(400);
    const QPoint off = below->geometry().center() - owner.geometry().center();
    EXPECT_LT(off.manhattanLength(), 50);
    EXPECT_GT(open(400)->y(), below->y());
    EXPECT_TRUE(open(5000)->isMaximized());

    const std::pair<QWidget*, Qt::Key> keys[] = {{below->first, Qt::Key_Return},
                                                 {below->second, Qt::Key_Enter},
                                                 {below->other, Qt::Key_Return},
                                                 {below->other, Qt::Key_F5}};
    for (const auto& [input, key] : keys) {
        input->setFocus();
        QTest::keyClick(input, key);
    }
    EXPECT_EQ(below->pressed, "mpom");
    QTest::keyClick(below->first, Qt::Key_F1);
    EXPECT_EQ(TestDesktop().TakeOpened(),
              Json::array({(folder.path() / "manual" / "two.html").string()}));
    QTest::keyClick(below->first, Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(below->isClosed());
}

TEST(LearningLog, TellsOfARestoreAtOnce) {
    TestDatabase database;
    database.Run(
        "insert into xxjl(rqs,r1gs,r2gs,r3gs,r1mz,r2mz,r3mz) "
        "values(20,'1,2','2,3','3,4',50,40,30)");
    int told = 0;
    PanelContext context{database.session(), TestDesktop()};
    context.onBankerSettings = [&told] { ++told; };
    frmxxjl log(context);
    auto* restore = log.findChild<QPushButton*>(QStringLiteral("Command1"));
    log.findChild<GridView*>()->Edit([](ResultGrid& grid) { grid.Select(0, 0, 0, 0); });
    restore->click();
    EXPECT_EQ(told, 0);
    log.findChild<GridView*>()->Edit([](ResultGrid& grid) { grid.Select(1, 0, 1, 0); });
    restore->click();
    EXPECT_EQ(told, 1);
}

TEST(Application, TellsEscapedExceptionsAndEndsWhenTheSystemAsks) {
    bool asked = false;
    static_cast<Application*>(qApp)->onTerminate = [&] { asked = true; };
    QTimer::singleShot(0, qApp, [] { throw std::runtime_error("broken"); });
    QTimer::singleShot(1, qApp, [] { std::raise(SIGTERM); });
    while (!asked) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const auto boxes = TestDesktop().TakeMessages();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].value("note", ""), "broken");
}

}  // namespace
}  // namespace ssq
