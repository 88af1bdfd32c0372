#include <gtest/gtest.h>

#include "panel_driver/ScriptDesktop.h"
#include "ui/qt/Application.h"

namespace ssq {

// Where the application tells its faults.
ScriptDesktop& TestDesktop() {
    static ScriptDesktop desktop;
    return desktop;
}

}  // namespace ssq

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const ssq::Application application(argc, argv, ssq::TestDesktop());
    return RUN_ALL_TESTS();
}
