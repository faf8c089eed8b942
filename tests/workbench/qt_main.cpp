#include <gtest/gtest.h>
#include <QApplication>

// Tests with widgets need an application before the first of them.
int main(int count, char** arguments)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // no windows on anybody's screen
    QApplication application(count, arguments);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
