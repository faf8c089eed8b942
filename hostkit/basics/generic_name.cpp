#include "host/basics.h"

#include <filesystem>
#include <string_view>

namespace {

size_t length_of_directory(std::string_view path)
{
    constexpr char separators[] = {'/', static_cast<char>(std::filesystem::path::preferred_separator), '\0'};
    return path.find_last_of(separators) + 1;
}

size_t length_of_base_name(std::string_view name)
{
    const size_t begin = name.find_first_not_of('.');
    const size_t dot = name.rfind('.');
    return dot == name.npos || begin == name.npos || dot < begin ? name.size() : dot;
}

void copy(std::string_view text, char* target)
{
    target[text.copy(target, text.size())] = '\0';
}

}

void Get_Generic_Name(const char* path, char* directory, char* base_name, char* extension)
{
    const std::string_view whole(path ? path : "");
    const std::string_view name = whole.substr(length_of_directory(whole));
    const size_t base_length = length_of_base_name(name);
    copy(whole.substr(0, whole.size() - name.size()), directory);
    copy(name.substr(0, base_length), base_name);
    copy(name.substr(base_length), extension);
}
