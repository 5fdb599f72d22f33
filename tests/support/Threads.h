#pragma once

#include <functional>
#include <thread>
#include <vector>

/// Runs body(0), body(1), ... at the same time and waits for all of them.
inline void RunThreads(unsigned int count, std::function<void(unsigned int)> const& body) {
    std::vector<std::thread> threads;
    for (unsigned int i = 0; i < count; ++i)
        threads.emplace_back(body, i);
    for (std::thread& thread : threads)
        thread.join();
}
