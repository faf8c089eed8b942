#include "workbench/shell/application.h"

#include <gtest/gtest.h>

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    workbench::choosePlatform();
    const workbench::Application application(count, arguments);
    return RUN_ALL_TESTS();
}
