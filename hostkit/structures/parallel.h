#pragma once

#include <algorithm>
#include <atomic>
#include <future>
#include <system_error>
#include <thread>
#include <vector>

namespace hostkit {

/// Calls work(next) on several processors at once; next() gives each number below `count` once, then `count`. What the
/// work throws comes out here.
template <class Work>
void share_work(int count, const Work& work)
{
    std::atomic<int> taken{0};
    const auto next = [&] { return std::min(taken.fetch_add(1), count); };
    const int helpers = std::min(static_cast<int>(std::thread::hardware_concurrency()), count) - 1;
    std::vector<std::future<void>> running;
    for (int i = 0; i < helpers; ++i) {
        try {
            running.push_back(std::async(std::launch::async, [&] { work(next); }));
        } catch (const std::system_error&) {
            break; // fewer do as well
        }
    }
    work(next);
    for (auto& helper : running)
        helper.get();
}

}
