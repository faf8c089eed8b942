#pragma once

#include <array>
#include <random>

namespace test {

/// Random choices that are the same in each run.
class Choice {
public:
    explicit Choice(unsigned seed) : random_(seed) {}

    int from(int least, int most)
    {
        return least + static_cast<int>(random_() % static_cast<unsigned>(most - least + 1));
    }
    bool one_in(int many) { return from(1, many) == 1; }

    template <class T, size_t count>
    T of(const std::array<T, count>& things)
    {
        return things[static_cast<size_t>(from(0, static_cast<int>(count) - 1))];
    }

private:
    std::mt19937 random_;
};

}
