#include "frame/version.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

char* version_for(std::string expected)
{
    return Get_Version_Strato_Tools(expected.data());
}

}

TEST(Version, NamesLibraryReleaseAndRevision)
{
    EXPECT_STREQ(Get_Version_Strato_Tools(nullptr), "Vetra_Tools.dll 6.0 (rev-6)");
}

TEST(Version, AnswersTheHostThatItWasMadeFor)
{
    EXPECT_STREQ(version_for("6.06"), "Vetra_Tools.dll 6.0 (rev-6)");
}

TEST(Version, RefusesEveryOtherHost)
{
    for (const char* other :
        {"6.0", "6.061", "", "6", "6.", "6.07", "5.06", "6.06 ", " 6.06", "Vetra_Tools.dll 6.0 (rev-6)"})
        EXPECT_EQ(version_for(other), nullptr) << '"' << other << '"';
}

TEST(Version, ReadsNothingBehindAShorterText)
{
    const auto one_byte = std::make_unique<char>('\0'); // the address checker watches its end
    EXPECT_EQ(Get_Version_Strato_Tools(one_byte.get()), nullptr);
}

TEST(Version, EveryCallWritesTheSameBufferAgain)
{
    char* const buffer = Get_Version_Strato_Tools(nullptr);
    buffer[0] = '?';
    EXPECT_EQ(version_for("6.06"), buffer);
    EXPECT_STREQ(buffer, "Vetra_Tools.dll 6.0 (rev-6)");
}

TEST(Version, ARefusalLeavesTheBufferAlone)
{
    const std::string before = Get_Version_Strato_Tools(nullptr);
    EXPECT_EQ(version_for("6.05"), nullptr);
    EXPECT_EQ(Get_Version_Strato_Tools(nullptr), before);
}
