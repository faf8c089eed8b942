#include "host/basics.h"

#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

// Empty when the system does not tell.
fs::path running_program()
{
    constexpr DWORD longest = 4096;
    WCHAR path[longest];
    const DWORD length = GetModuleFileNameW(nullptr, path, longest);
    return length == 0 || length == longest ? fs::path() : fs::path(path, path + length);
}

// The icons lie beside the program; tests of a build are one folder deeper.
fs::path icons_of(const fs::path& program)
{
    const fs::path beside = program.parent_path() / "icons";
    const fs::path above = program.parent_path().parent_path() / "icons";
    std::error_code ignored;
    return !fs::is_directory(beside, ignored) && fs::is_directory(above, ignored) ? above : beside;
}

std::string icon_folder()
{
    const std::u8string folder = (icons_of(running_program()) / "").generic_u8string();
    return {folder.begin(), folder.end()};
}

const std::string folder = icon_folder();

}

const char* Prog_Name = folder.c_str();
