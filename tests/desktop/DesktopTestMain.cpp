// The desktop's tests run in one QApplication on Qt's offscreen platform: no display is needed, and the
// windows paint into memory where the tests read them back.
#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
