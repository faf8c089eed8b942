#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cwchar>
#include <string>
#include <thread>

TEST(CriticalSection, MayBeEnteredAgainByItsThread)
{
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    EnterCriticalSection(&section);
    EnterCriticalSection(&section);
    LeaveCriticalSection(&section);
    LeaveCriticalSection(&section);
    DeleteCriticalSection(&section);
}

TEST(CriticalSection, KeepsOtherThreadsOut)
{
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    int counter = 0;
    const auto count = [&] {
        for (int i = 0; i < 20000; ++i) {
            EnterCriticalSection(&section);
            counter = counter + 1;
            LeaveCriticalSection(&section);
        }
    };
    std::thread one(count);
    std::thread other(count);
    one.join();
    other.join();
    EXPECT_EQ(counter, 40000);
    DeleteCriticalSection(&section);
}

TEST(GlobalMemory, IsZeroWhenThatIsAskedForAndKeepsWhatIsWritten)
{
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 1024);
    ASSERT_NE(memory, nullptr);
    auto* bytes = static_cast<char*>(GlobalLock(memory));
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(std::count(bytes, bytes + 1024, '\0'), 1024);
    bytes[1023] = 'x';
    GlobalUnlock(memory);
    bytes = static_cast<char*>(GlobalLock(memory));
    EXPECT_EQ(bytes[1023], 'x');
    GlobalUnlock(memory);
    EXPECT_EQ(GlobalFree(memory), nullptr);
}

TEST(GlobalMemory, IsLockedAsOftenAsItIsUnlocked)
{
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 0x100);
    void* const address = GlobalLock(memory);
    EXPECT_EQ(GlobalLock(memory), address);
    EXPECT_TRUE(GlobalUnlock(memory));
    EXPECT_FALSE(GlobalUnlock(memory)) << "it is not locked any more";
    EXPECT_FALSE(GlobalUnlock(memory));
    GlobalFree(memory);
}

TEST(WideText, ComesBackAsItWas)
{
    const std::string text = "Höhe \xE2\x82\xAC \xF0\x9F\x98\x80";
    const auto converted = test::wide(text);
    EXPECT_EQ(converted.size(), 9u); // the last character takes two units
    const int units = static_cast<int>(converted.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, converted.data(), units, nullptr, 0, nullptr, nullptr);
    ASSERT_EQ(bytes, static_cast<int>(text.size()));
    std::string back(text.size(), '\0');
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, converted.data(), units, back.data(), bytes, nullptr, nullptr), bytes);
    EXPECT_EQ(back, text);
}

TEST(WideText, LengthMinusOneCountsTheTerminator)
{
    WCHAR converted[4] = {1, 1, 1, 1};
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", -1, nullptr, 0), 4);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", -1, converted, 4), 4);
    EXPECT_EQ(converted[3], WCHAR{0});
    char back[4] = "xxx";
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, converted, -1, back, 4, nullptr, nullptr), 4);
    EXPECT_STREQ(back, "abc");
}

TEST(WideText, IsRefusedWhereItDoesNotFit)
{
    WCHAR converted[2];
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 3, converted, 2), 0);
    char back[2];
    const auto text = test::wide("abc");
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, text.data(), 3, back, 2, nullptr, nullptr), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 0, converted, 2), 0);
}

TEST(WideText, KeepsAByteOrderMark)
{
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0,
                  "\xEF\xBB\xBF"
                  "a",
                  4, nullptr, 0),
        2);
}

TEST(WideText, BrokenBytesBecomeTheReplacementCharacter)
{
    const auto converted = test::wide("a\xFF"
                                      "b");
    ASSERT_EQ(converted.size(), 3u);
    EXPECT_EQ(static_cast<unsigned>(converted[1]), 0xFFFDu);
}

TEST(ErrorText, IsInEnglishAndStaysUntilTheNextCall)
{
    const wchar_t* text = _wcserror(ENOENT);
    EXPECT_EQ(std::wstring(text), L"No such file or directory");
    EXPECT_EQ(_wcserror(EACCES), text);
    EXPECT_EQ(std::wstring(text), L"Permission denied");
    EXPECT_NE(std::wstring(_wcserror(99999)), L"");
}

TEST(Words, AreTakenApartAndPutTogether)
{
    const LPARAM both = MAKELPARAM(-3, 7);
    EXPECT_EQ(static_cast<short>(LOWORD(both)), -3);
    EXPECT_EQ(static_cast<short>(HIWORD(both)), 7);
    const WPARAM wheel = MAKEWPARAM(0x0008, -120);
    EXPECT_EQ(LOWORD(wheel), 0x0008);
    EXPECT_EQ(static_cast<short>(HIWORD(wheel)), -120);
}

TEST(Color, HasRedInTheLowByte)
{
    EXPECT_EQ(RGB(0x12, 0x34, 0x56), 0x563412u);
    EXPECT_EQ(GetRValue(0x563412u), 0x12);
    EXPECT_EQ(GetGValue(0x563412u), 0x34);
    EXPECT_EQ(GetBValue(0x563412u), 0x56);
}

TEST(Screen, HasAnArea)
{
    const test::Test_Window window;
    EXPECT_GT(GetSystemMetrics(SM_CXSCREEN), 0);
    EXPECT_GT(GetSystemMetrics(SM_CYSCREEN), 0);
}

TEST(Program, HasOneModule)
{
    EXPECT_NE(GetModuleHandleA(nullptr), nullptr);
    EXPECT_EQ(GetModuleHandleA(nullptr), GetModuleHandleA(nullptr));
}

TEST(ProgramFile, IsThisProgram)
{
    WCHAR path[1024];
    const DWORD length = GetModuleFileNameW(nullptr, path, 1024);
    ASSERT_GT(length, 14u);
    ASSERT_LT(length, 1024u);
    EXPECT_EQ(path[length], 0);
    const std::basic_string<WCHAR> name(path, length);
    EXPECT_NE(name.find(test::wide("platform_tests")), name.npos);
}

TEST(ProgramFile, IsCutWhereThereIsNotEnoughRoom)
{
    WCHAR whole[1024], part[5];
    GetModuleFileNameW(nullptr, whole, 1024);
    EXPECT_EQ(GetModuleFileNameW(nullptr, part, 5), 5u);
    EXPECT_EQ(part[4], 0);
    EXPECT_EQ(std::basic_string<WCHAR>(part), std::basic_string<WCHAR>(whole, 4));
}
