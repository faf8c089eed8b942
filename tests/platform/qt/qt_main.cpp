#include <gtest/gtest.h>

#include <QApplication>

// A program that has an application before the first window, as the workbench has.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
#ifdef VETRA_TEST_SCALE
    qputenv("QT_SCALE_FACTOR", VETRA_TEST_SCALE);
#endif
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
