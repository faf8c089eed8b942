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

// Kept until the process ends.
const char* icon_folder()
{
    const std::u8string folder = (icons_of(running_program()) / "").generic_u8string();
    return (new std::string(folder.begin(), folder.end()))->c_str();
}

}

const char* Prog_Name = icon_folder();
