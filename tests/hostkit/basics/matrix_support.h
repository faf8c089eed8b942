#pragma once

#include "host/basics.h"

#include <cstddef>
#include <random>
#include <vector>

/// Plain tables of numbers, to check matrices against.
namespace test {

using Table = std::vector<std::vector<double>>;

inline constexpr unsigned char element_size = sizeof(double);

inline Matrix_NxM Matrix_Of(const Table& table)
{
    const auto columns = table.empty() ? 0 : table[0].size();
    Matrix_NxM matrix(static_cast<unsigned>(columns), static_cast<unsigned>(table.size()), element_size);
    for (size_t y = 0; y < table.size(); ++y) {
        for (size_t x = 0; x < columns; ++x)
            matrix[static_cast<int>(y)][x] = table[y][x];
    }
    return matrix;
}

inline Table Table_Of(Matrix_NxM matrix, size_t columns, size_t rows)
{
    Table table;
    for (size_t y = 0; y < rows; ++y) {
        const double* row = matrix[static_cast<int>(y)];
        table.emplace_back(row, row + columns);
    }
    return table;
}

/// Numbers from -1 to 1, the same ones for the same seed.
inline Table Random_Table(size_t columns, size_t rows, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> number(-1, 1);
    Table table(rows, std::vector<double>(columns));
    for (auto& row : table) {
        for (double& element : row)
            element = number(random);
    }
    return table;
}

inline Vector_N Vector_Of(const std::vector<double>& numbers)
{
    Vector_N vector(static_cast<unsigned>(numbers.size()), element_size);
    for (size_t i = 0; i < numbers.size(); ++i)
        vector[static_cast<int>(i)] = numbers[i];
    return vector;
}

inline std::vector<double> Numbers_Of(const Vector_N& vector)
{
    std::vector<double> numbers;
    for (unsigned i = 0; i < vector.Size(); ++i)
        numbers.push_back(vector[static_cast<int>(i)]);
    return numbers;
}

}
