#include "hostkit/basics/report.h"

#include "host/basics.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <clocale>
#include <string>

namespace {

/// What a sink is given for a format and its arguments.
template <class... Arguments>
std::string reported(const char* format, Arguments... arguments)
{
    std::string text;
    hostkit::Set_Report_Sink({[&](const hostkit::Report& report) {
                                  text = report.text;
                                  return true;
                              },
        nullptr});
    EXPECT_EQ(Error_Fct(nullptr, 2, format, arguments...), 1);
    hostkit::Set_Report_Sink({});
    return text;
}

std::wstring error_text(int error)
{
    return Error_Perror(error);
}

}

TEST(ErrorText, IsTheCLibrarysInEnglish)
{
    EXPECT_EQ(error_text(ENOENT), L"No such file or directory");
    EXPECT_EQ(error_text(EACCES), L"Permission denied");
    EXPECT_EQ(error_text(ENOSPC), L"No space left on device");
}

TEST(ErrorText, OfAnUnknownErrorIsAsciiAndNotEmpty)
{
    for (const int error : {-1, 99999}) {
        const std::wstring text = error_text(error);
        EXPECT_FALSE(text.empty()) << error;
        for (const wchar_t character : text)
            EXPECT_TRUE(character >= L' ' && character <= L'~') << error;
    }
}

TEST(ErrorText, IsNotTranslated)
{
    std::setlocale(LC_ALL, "");
    EXPECT_EQ(error_text(ENOENT), L"No such file or directory");
    std::setlocale(LC_ALL, "C");
}

TEST(ErrorText, AskingForItLeavesErrnoAlone)
{
    errno = EACCES;
    Error_Perror(99999);
    EXPECT_EQ(errno, EACCES);
}

TEST(ErrorText, FillsAReport)
{
    EXPECT_EQ(reported("\xf1\t %ls", Error_Perror(ENOENT)), "\xf1\t No such file or directory");
}

TEST(WideText, IsReportedAsUtf8InTheCLocale)
{
    EXPECT_EQ(reported("<%ls>", L"Gr\u00fc\u00dfe \u20ac"), "<Gr\xc3\xbc\xc3\x9f"
                                                            "e \xe2\x82\xac>");
    EXPECT_EQ(reported("%ls", L"\U0001f600"), "\xf0\x9f\x98\x80");
    EXPECT_EQ(reported("%ls", L""), "");
}

TEST(WideText, OfAnyLengthArrivesWhole)
{
    const std::wstring text(100000, L'\u00e9');
    std::string expected;
    for (int i = 0; i < 100000; ++i)
        expected += "\xc3\xa9";
    EXPECT_EQ(reported("%ls!", text.c_str()), expected + "!");
}

TEST(WideText, NullIsSaidToBeNull)
{
    const wchar_t* none = nullptr;
    EXPECT_EQ(reported("%ls", none), "(null)");
}

TEST(WideText, TakesWidthAndPrecision)
{
    EXPECT_EQ(reported("[%8ls][%-8ls]", L"wide", L"text"), "[    wide][text    ]");
    EXPECT_EQ(reported("[%*ls][%*ls]", 6, L"wide", -6, L"text"), "[  wide][text  ]");
    EXPECT_EQ(reported("[%.3ls][%.*ls][%.*ls]", L"wide", 2, L"wide", -1, L"wide"), "[wid][wi][wide]");
    EXPECT_EQ(reported("[%.ls][%.0ls]", L"wide", L"wide"), "[][]");
}

TEST(WideText, IsCutBetweenCharacters)
{
    EXPECT_EQ(reported("%.3ls", L"\u00e9\u00e9"), "\xc3\xa9");
    EXPECT_EQ(reported("%.4ls", L"\u00e9\u00e9"), "\xc3\xa9\xc3\xa9");
    EXPECT_EQ(reported("%.2ls", L"\u20ac"), "");
}

TEST(WideText, IsReadNoFurtherThanItsPrecision)
{
    const wchar_t unterminated[] = {L'a', L'b'};
    EXPECT_EQ(reported("%.2ls", unterminated), "ab");
}

TEST(WideText, StandsBesideEveryOtherArgument)
{
    EXPECT_EQ(reported("%s %ls %5d|%-4u|%c%% %.2f %10.3e|%x %p", "narrow", L"wide", -12, 34u, 'c', 1.005, 12345.678,
                  0xbeefu, static_cast<void*>(nullptr)),
        reported("narrow wide %5d|%-4u|%c%% %.2f %10.3e|%x %p", -12, 34u, 'c', 1.005, 12345.678, 0xbeefu,
            static_cast<void*>(nullptr)));
    EXPECT_EQ(reported("%ls %ld %lld %zu %hhd %.1Lf %016llx", L"w", -5L, 1LL << 40, sizeof(int), 300, 2.5L, 0xabcULL),
        "w -5 1099511627776 4 44 2.5 0000000000000abc");
    EXPECT_EQ(reported("%*d %-*d|%.*f %ls", 4, 7, 4, 7, 1, 2.25, L"w"), "   7 7   |2.2 w");
    EXPECT_EQ(reported("%.*f %ls", -1, 2.25, L"w"), "2.250000 w");
    EXPECT_EQ(reported("%ls%%%ls %%ls", L"a", L"b"), "a%b %ls");
}

TEST(WideText, MarksOfTheFormatStay)
{
    EXPECT_EQ(reported("\xf1\x05"
                       "WARNING:"
                       "\x02"
                       " \x01%ls",
                  L"here"),
        "\xf1\x05"
        "WARNING:"
        "\x02"
        " \x01"
        "here");
}
