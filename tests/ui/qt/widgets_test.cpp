// The small widgets and the application object.
#include <gtest/gtest.h>

#include <QChart>
#include <QImage>
#include <QTimer>
#include <csignal>
#include <stdexcept>

#include "panel_driver/ScriptDesktop.h"
#include "ui/qt/Application.h"
#include "ui/qt/ElidedGroup.h"
#include "ui/qt/LineChart.h"

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

TEST(ElidedGroup, ALongCaptionDoesNotWidenTheWindow) {
    ElidedGroup group(QStringLiteral("标题"));
    const int narrow = group.minimumSizeHint().width();
    group.setTitle(QString(32767, QLatin1Char('x')));
    EXPECT_GT(group.minimumSizeHint().width(), narrow);
    EXPECT_LT(group.minimumSizeHint().width(), 300);
    EXPECT_EQ(group.title().size(), 32767);
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
