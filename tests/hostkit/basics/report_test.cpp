#include "hostkit/basics/report.h"

#include "host/basics.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

namespace {

using hostkit::Report;

class Reporting : public ::testing::Test {
protected:
    Reporting() { Take_Reports(nullptr); }

    ~Reporting() override
    {
        hostkit::Set_Report_Sink({});
        Flag_Trace = -1;
    }

    void Take_Reports(std::function<bool(int)> also_wants)
    {
        hostkit::Set_Report_Sink({[this](const Report& report) {
                                      reports.push_back(report);
                                      return takes;
                                  },
            std::move(also_wants)});
    }

    std::vector<Report> reports;
    bool takes = true;
};

}

TEST(TraceLevel, StartsBelowEveryTrace)
{
    EXPECT_EQ(Flag_Trace, -1);
}

TEST_F(Reporting, LevelsBelowTenAreAlwaysShown)
{
    for (int level = 1; level < 10; ++level)
        EXPECT_EQ(Error_Fct(nullptr, level, "level %d", level), 1);
    ASSERT_EQ(reports.size(), 9u);
    EXPECT_EQ(reports[3].text, "level 4");
    EXPECT_EQ(reports[3].level, 4);
}

TEST_F(Reporting, TracesAreShownFromTheirTraceLevelUpward)
{
    for (int trace = -1; trace <= 8; ++trace) {
        Flag_Trace = static_cast<signed char>(trace);
        for (int level = 10; level <= 18; ++level)
            EXPECT_EQ(Error_Fct(nullptr, level, "trace"), trace >= level - 10) << trace << " " << level;
    }
}

TEST_F(Reporting, WhatIsNotShownIsNotFormatted)
{
    // Formatting would follow the address into nowhere.
    const auto* nowhere = reinterpret_cast<const char*>(1);
    EXPECT_EQ(Error_Fct(nullptr, 16, "%s", nowhere), 0);
    EXPECT_TRUE(reports.empty());
}

TEST_F(Reporting, SinkHasLevelsOfItsOwnWithoutRaisingTheTrace)
{
    Take_Reports([](int level) { return level == 11; });
    EXPECT_EQ(Error_Fct(nullptr, 11, "notice"), 1);
    EXPECT_EQ(Error_Fct(nullptr, 12, "detail"), 0);
    EXPECT_EQ(Error_Fct(nullptr, 2, "warning"), 1);
    EXPECT_EQ(reports.size(), 2u);
    EXPECT_EQ(Flag_Trace, -1);
}

TEST_F(Reporting, SinkThatShowsNothingMakesTheResultZero)
{
    takes = false;
    EXPECT_EQ(Error_Fct(nullptr, 2, "warning"), 0);
    EXPECT_EQ(reports.size(), 1u);
}

TEST_F(Reporting, SinkGetsWindowAndMarkup)
{
    const auto window = reinterpret_cast<HWND>(0x1230);
    Error_Fct(window, 2,
        "\xf1\x05"
        "WARNING:"
        "\x02"
        " %s",
        "no function");
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports[0].window, window);
    EXPECT_EQ(reports[0].text, "\xf1\x05"
                               "WARNING:"
                               "\x02"
                               " no function");
}

TEST_F(Reporting, TextsOfAnyLengthArriveWhole)
{
    const std::string text(100000, 'x');
    Error_Fct(nullptr, 2, "<%s>", text.c_str());
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports[0].text, "<" + text + ">");
}

TEST_F(Reporting, NullFormatIsNoReport)
{
    const char* volatile none = nullptr;
    EXPECT_EQ(Error_Fct(nullptr, 2, none), 0);
    EXPECT_TRUE(reports.empty());
}

TEST_F(Reporting, SettingASinkReturnsTheOneBefore)
{
    const hostkit::Report_Sink before = hostkit::Set_Report_Sink({});
    before.show({nullptr, 3, "to the old one"});
    EXPECT_EQ(reports.size(), 1u);
}

TEST_F(Reporting, WithoutASinkPlainTextGoesToStandardError)
{
    hostkit::Set_Report_Sink({});
    testing::internal::CaptureStderr();
    EXPECT_EQ(Error_Fct(nullptr, 2,
                  "\xf1\x05"
                  "WARNING:"
                  "\x02"
                  " %d",
                  7),
        1);
    EXPECT_EQ(Error_Fct(nullptr, 16, "in Tool_Tag::Draw()"), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "WARNING: 7\n");
}

TEST_F(Reporting, FailingSinkStillLeavesTheTextSomewhere)
{
    hostkit::Set_Report_Sink({[](const Report&) -> bool { throw std::bad_alloc(); }, nullptr});
    testing::internal::CaptureStderr();
    EXPECT_EQ(Error_Fct(nullptr, 1, "line %-4d of %s", 12, "here"), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "line 12   of here\n");
}

TEST(PlainText, LosesMarkupAndNothingElse)
{
    using hostkit::Plain_Text;
    EXPECT_EQ(Plain_Text("plain"), "plain");
    EXPECT_EQ(Plain_Text(""), "");
    EXPECT_EQ(Plain_Text("\x01"
                         "a"
                         "\x02"
                         "b"),
        "ab");
    EXPECT_EQ(Plain_Text("\xf1\x05"
                         "a\n"
                         "\xf1\x31"
                         "b"),
        "a\nb");
    EXPECT_EQ(Plain_Text("Gr\xc3\xbc\xc3\x9f"
                         "e \xe2\x82\xac"),
        "Gr\xc3\xbc\xc3\x9f"
        "e \xe2\x82\xac");
    EXPECT_EQ(Plain_Text("\xf1\x80\x80\x80"), "\xf1\x80\x80\x80") << "a UTF-8 character";
}

TEST_F(Reporting, WindowMessagesAreReportedByName)
{
    Flag_Trace = 8;
    EXPECT_EQ(SystMessage_Stool(18, "Procedure", nullptr, WM_PAINT), 1);
    EXPECT_EQ(SystMessage_Stool(18, "Procedure", nullptr, WM_POINTERUPDATE), 1);
    EXPECT_EQ(SystMessage_Stool(18, "Procedure", nullptr, WM_USER + 1), 1);
    EXPECT_EQ(SystMessage_Stool(4, nullptr, nullptr, WM_CLOSE), 1);
    ASSERT_EQ(reports.size(), 4u);
    EXPECT_EQ(reports[0].text, "Procedure: WM_PAINT");
    EXPECT_EQ(reports[0].level, 18);
    EXPECT_EQ(reports[1].text, "Procedure: WM_POINTERUPDATE");
    EXPECT_EQ(reports[2].text, "Procedure: 0x0401");
    EXPECT_EQ(reports[3].text, "---: WM_CLOSE");
}

TEST_F(Reporting, WindowMessagesAreReportedAtTheirLevelOnly)
{
    Flag_Trace = 7;
    EXPECT_EQ(SystMessage_Stool(18, "Procedure", nullptr, WM_PAINT), 0);
    EXPECT_TRUE(reports.empty());
}
