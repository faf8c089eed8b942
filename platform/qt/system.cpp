#include "platform/windows_api.h"

#include <QString>
#include <QStringDecoder>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <locale.h>
#include <mutex>
#include <string.h>
#include <string_view>

// Critical sections, texts, the program.

void InitializeCriticalSection(CRITICAL_SECTION* section)
{
    section->DebugInfo = new std::recursive_mutex;
}

void EnterCriticalSection(CRITICAL_SECTION* section)
{
    static_cast<std::recursive_mutex*>(section->DebugInfo)->lock();
}

void LeaveCriticalSection(CRITICAL_SECTION* section)
{
    static_cast<std::recursive_mutex*>(section->DebugInfo)->unlock();
}

void DeleteCriticalSection(CRITICAL_SECTION* section)
{
    delete static_cast<std::recursive_mutex*>(section->DebugInfo);
    section->DebugInfo = nullptr;
}

int MultiByteToWideChar(UINT page, DWORD, const char* text, int bytes, WCHAR* wide, int units)
{
    if (page != CP_UTF8 || !text || bytes == 0)
        return 0;
    // A length of -1 takes the text up to its end, which is converted, too.
    const int length = bytes < 0 ? static_cast<int>(std::strlen(text)) + 1 : bytes;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    const QString converted = decoder(QByteArrayView(text, length));
    const int needed = static_cast<int>(converted.size());
    if (units == 0)
        return needed;
    if (units < needed)
        return 0;
    std::copy_n(reinterpret_cast<const WCHAR*>(converted.utf16()), needed, wide);
    return needed;
}

int WideCharToMultiByte(UINT page, DWORD, const WCHAR* wide, int units, char* text, int bytes, const char*, BOOL*)
{
    if (page != CP_UTF8 || !wide || units == 0)
        return 0;
    int length = units;
    if (units < 0)
        length = static_cast<int>(std::char_traits<WCHAR>::length(wide)) + 1;
    const QByteArray converted = QString(reinterpret_cast<const QChar*>(wide), length).toUtf8();
    const int needed = static_cast<int>(converted.size());
    if (bytes == 0)
        return needed;
    if (bytes < needed)
        return 0;
    std::copy_n(converted.constData(), needed, text);
    return needed;
}

// As the C runtime of Windows has it, whose texts no locale translates.
wchar_t* _wcserror(int error)
{
    static const locale_t untranslated = newlocale(LC_ALL_MASK, "C", nullptr);
    static wchar_t text[256];
    const std::string_view ascii(strerror_l(error, untranslated));
    *std::copy_n(ascii.begin(), std::min(ascii.size(), std::size(text) - 1), text) = L'\0';
    return text;
}

DWORD GetModuleFileNameW(HMODULE, WCHAR* path, DWORD size)
{
    std::error_code unknown;
    const std::u16string program = std::filesystem::read_symlink("/proc/self/exe", unknown).u16string();
    if (unknown || size == 0)
        return 0;
    const size_t copied = std::min<size_t>(program.size(), size - 1);
    std::copy_n(program.begin(), copied, path);
    path[copied] = 0;
    return copied < program.size() ? size : static_cast<DWORD>(copied);
}
