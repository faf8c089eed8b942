#include "host/basics.h"
#include "hostkit/structures/save_chooser.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <exception>
#include <string_view>
#include <utility>

namespace hostkit {

namespace {

constexpr size_t chosen_size = 1024;

Save_Chooser& present_chooser()
{
    static Save_Chooser& chooser = *new Save_Chooser;
    return chooser;
}

std::optional<std::string> ask(const Save_Question& question)
{
    const Save_Chooser& chooser = present_chooser();
    return chooser ? chooser(question) : Ask_With_System_Dialog(question);
}

int save_file_name(const Save_Question& question, char* chosen)
{
    const std::optional<std::string> path = ask(question);
    if (!path || path->empty())
        return 0;
    if (path->size() >= chosen_size) {
        Error_Fct(hwnd, 2, "The name of the file is too long:\n%s", path->c_str());
        return 0;
    }
    std::memcpy(chosen, path->c_str(), path->size() + 1);
    return 1;
}

const char* or_empty(const char* text)
{
    return text ? text : "";
}

}

Save_Chooser Set_Save_Chooser(Save_Chooser chooser)
{
    return std::exchange(present_chooser(), std::move(chooser));
}

std::optional<std::string> Ask_With_System_Dialog(const Save_Question& question)
{
    char path[4 * chosen_size];
    path[std::string_view(question.offered).copy(path, sizeof path - 1)] = '\0';
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = GetActiveWindow();
    dialog.lpstrFilter = question.filter;
    dialog.lpstrFile = path;
    dialog.nMaxFile = sizeof path;
    dialog.lpstrTitle = question.title;
    dialog.lpstrDefExt = question.extension;
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
    return GetSaveFileNameA(&dialog) ? std::optional<std::string>(path) : std::nullopt;
}

}

int Fct_Save_FileName(
    const char* title, const char* filter, const char* offered, const char* extension, char* chosen, int)
{
    using hostkit::or_empty;
    if (!chosen)
        return 0;
    try {
        return hostkit::save_file_name(
            {or_empty(title), or_empty(filter), or_empty(offered), or_empty(extension)}, chosen);
    } catch (const std::exception& error) {
        Error_Fct(hwnd, 2, "The dialog for the name of a file could not be shown: %s", error.what());
        return 0;
    }
}

namespace {

std::string_view patterns_of(const char* variable)
{
    if (const void* patterns = Fct_Variable_Value(variable, nullptr, nullptr, nullptr))
        return static_cast<const char*>(patterns);
    return std::string_view(variable) == "$FILE_EXTENSION_EXCEL" ? "*.csv" : "*";
}

}

// A pair that has no room is left out, and so are those behind it.
char* Fct_Create_szFilter(int count, ...)
{
    static char filter[1024];
    constexpr size_t end = sizeof filter - 1; // the last zero's place
    size_t length = 0;
    va_list pairs;
    va_start(pairs, count);
    for (int pair = 0; pair < count; ++pair) {
        const std::string_view text = va_arg(pairs, const char*);
        const std::string_view patterns = patterns_of(va_arg(pairs, const char*));
        if (length + text.size() + patterns.size() + 2 > end)
            break;
        for (const std::string_view part : {text, patterns}) {
            length += part.copy(filter + length, part.size());
            filter[length++] = '\0';
        }
    }
    va_end(pairs);
    filter[length] = '\0';
    return filter;
}
