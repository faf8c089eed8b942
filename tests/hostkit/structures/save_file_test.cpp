#include "hostkit/structures/save_chooser.h"

#include "hostkit/structures/registry.h"
#include "tests/support/reports.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

using namespace hostkit;

namespace {

// What the filter holds, one text behind the other.
std::vector<std::string> parts(const char* filter)
{
    std::vector<std::string> result;
    for (; *filter; filter += result.back().size() + 1)
        result.push_back(filter);
    return result;
}

using Parts = std::vector<std::string>;

class SaveFile : public ::testing::Test {
protected:
    SaveFile()
    {
        Registry_Reset();
        Set_Save_Chooser([this](const Save_Question& question) {
            asked = {question.title, question.filter, question.offered, question.extension};
            return answer;
        });
    }
    ~SaveFile() override { Set_Save_Chooser({}); }

    int Ask(const char* offered = "/data/histogram")
    {
        return Fct_Save_FileName("Write", "Tables\0*.csv\0", offered, "csv", chosen, 0);
    }

    std::vector<std::string> asked;
    std::optional<std::string> answer;
    char chosen[1024] = "as before";
    test::Reports reports;
};

}

TEST_F(SaveFile, TellsTheChooserWhatIsAsked)
{
    Ask();
    EXPECT_EQ(asked, (Parts{"Write", "Tables", "/data/histogram", "csv"}));
    Fct_Save_FileName(nullptr, nullptr, nullptr, nullptr, chosen, 0);
    EXPECT_EQ(asked, (Parts{"", "", "", ""}));
}

TEST_F(SaveFile, GivesTheNameThatWasConfirmed)
{
    answer = "/elsewhere/peaks.csv";
    EXPECT_EQ(Ask(), 1);
    EXPECT_STREQ(chosen, "/elsewhere/peaks.csv");
}

TEST_F(SaveFile, ChosenNameMayReplaceTheOfferedOne)
{
    std::strcpy(chosen, "/data/histogram");
    answer = "/data/histogram-2.csv";
    EXPECT_EQ(Ask(chosen), 1);
    EXPECT_EQ(asked[2], "/data/histogram");
    EXPECT_STREQ(chosen, "/data/histogram-2.csv");
}

TEST_F(SaveFile, DismissedChangesNothing)
{
    EXPECT_EQ(Ask(), 0);
    EXPECT_STREQ(chosen, "as before");
    answer = "";
    EXPECT_EQ(Ask(), 0);
    EXPECT_STREQ(chosen, "as before");
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(SaveFile, NameOfMoreBytesThanThereAreIsRefused)
{
    answer = std::string(1023, 'x');
    EXPECT_EQ(Ask(), 1);
    EXPECT_EQ(std::strlen(chosen), 1023u);
    std::strcpy(chosen, "as before");
    answer = std::string(1024, 'x');
    EXPECT_EQ(Ask(), 0);
    EXPECT_STREQ(chosen, "as before");
    EXPECT_EQ(reports.texts(2).size(), 1u);
}

TEST_F(SaveFile, WithoutAPlaceForTheNameIsNotAsked)
{
    EXPECT_EQ(Fct_Save_FileName("Write", "", "", "csv", nullptr, 0), 0);
    EXPECT_TRUE(asked.empty());
}

TEST_F(SaveFile, ChooserThatFailsIsReportedAndChoosesNothing)
{
    Set_Save_Chooser([](const Save_Question&) -> std::optional<std::string> { throw std::runtime_error("no dialog"); });
    EXPECT_EQ(Ask(), 0);
    ASSERT_EQ(reports.texts(2).size(), 1u);
    EXPECT_NE(reports.texts(2).front().find("no dialog"), std::string::npos);
}

TEST_F(SaveFile, ChooserGivesWayToAnother)
{
    const Save_Chooser first = Set_Save_Chooser([](const Save_Question&) { return std::string("/other"); });
    ASSERT_TRUE(first);
    EXPECT_EQ(Ask(), 1);
    EXPECT_STREQ(chosen, "/other");
    EXPECT_TRUE(asked.empty());
    Set_Save_Chooser(first);
    Ask();
    EXPECT_FALSE(asked.empty());
}

TEST_F(SaveFile, FilterHasTextsAndPatternsInTurn)
{
    EXPECT_EQ(parts(Fct_Create_szFilter(2, "DB Files", "$FILE_EXTENSION_EXCEL", "All Files", "$FILE_EXTENSION_ALL")),
        (Parts{"DB Files", "*.csv", "All Files", "*"}));
    char patterns[] = "*.csv;*.txt";
    String_Variable("$FILE_EXTENSION_EXCEL") = patterns;
    EXPECT_EQ(parts(Fct_Create_szFilter(1, "Tables", "$FILE_EXTENSION_EXCEL")), (Parts{"Tables", "*.csv;*.txt"}));
}

TEST_F(SaveFile, FilterHasTheUsualPatternsForVariablesWithoutValue)
{
    String_Variable("$FILE_EXTENSION_EXCEL") = nullptr;
    String_Variable("$FILE_EXTENSION_ALL") = nullptr;
    EXPECT_EQ(parts(Fct_Create_szFilter(
                  3, "Tables", "$FILE_EXTENSION_EXCEL", "All", "$FILE_EXTENSION_ALL", "Others", "$NO_SUCH_THING")),
        (Parts{"Tables", "*.csv", "All", "*", "Others", "*"}));
}

TEST_F(SaveFile, FilterOfNoPairsIsEmpty)
{
    Fct_Create_szFilter(1, "All", "$FILE_EXTENSION_ALL");
    EXPECT_EQ(parts(Fct_Create_szFilter(0)), Parts{});
}

TEST_F(SaveFile, FilterTakesWholePairsOnly)
{
    const std::string longest(1024 - 1 - 2 - 1, 'x');
    EXPECT_EQ(parts(Fct_Create_szFilter(1, longest.c_str(), "$FILE_EXTENSION_ALL")), (Parts{longest, "*"}));
    EXPECT_EQ(parts(Fct_Create_szFilter(1, (longest + 'x').c_str(), "$FILE_EXTENSION_ALL")), Parts{});
}

TEST_F(SaveFile, VariablesHaveTheirUsualValues)
{
    EXPECT_STREQ(String_Variable("$FILE_EXTENSION_EXCEL"), "*.csv");
    EXPECT_STREQ(String_Variable("$FILE_EXTENSION_ALL"), "*");
    EXPECT_STREQ(String_Variable("$DEFAULT_FILE_PATH"), "");
}
