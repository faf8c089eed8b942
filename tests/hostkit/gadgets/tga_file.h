#pragma once

#include <filesystem>
#include <fstream>
#include <string>

/// Small TGA files for tests.
namespace test {

/// The head of a file of colours; the pixels follow it. @param kind 2 plain, 10 run-length coded @param order 32: the
/// top row first
inline std::string tga_head(int width, int height, int depth, int kind = 2, int order = 32)
{
    const auto low = [](int number) { return static_cast<char>(number & 0xff); };
    const auto high = [](int number) { return static_cast<char>(number >> 8); };
    return {0, 0, low(kind), 0, 0, 0, 0, 0, 0, 0, 0, 0, low(width), high(width), low(height), high(height), low(depth),
        low(order)};
}

/// A square of one colour, blue first, then green, red, alpha.
inline std::string tga_square(int size, const std::string& pixel)
{
    std::string file = tga_head(size, size, 32);
    for (int i = 0; i < size * size; ++i)
        file += pixel;
    return file;
}

/// A folder that is empty at first and goes with the test.
class Icon_Folder {
public:
    Icon_Folder()
    {
        static int number = 0; // icons are kept by their paths: no two tests share one
        path_ =
            std::filesystem::temp_directory_path() /
            ("vetra icons " + std::to_string(std::filesystem::file_time_type::clock::now().time_since_epoch().count()) +
                " " + std::to_string(++number));
        std::filesystem::create_directories(path_ / "2x");
    }
    ~Icon_Folder() { std::filesystem::remove_all(path_); }
    Icon_Folder(const Icon_Folder&) = delete;
    Icon_Folder& operator=(const Icon_Folder&) = delete;

    std::string path() const { return path_.string(); }
    void write(const std::string& name, const std::string& content) const
    {
        std::ofstream(path_ / name, std::ios::binary) << content;
    }

private:
    std::filesystem::path path_;
};

}
