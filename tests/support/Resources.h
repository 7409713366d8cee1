#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

#ifndef _WIN32
#include <malloc.h>
#endif

namespace turnpost::automation {

#ifdef _WIN32
// Only measured on Linux.
inline size_t openDescriptors() {
    return 0;
}
inline size_t heapBytes() {
    return 0;
}
#else
/// The number of open file descriptors of the process.
inline size_t openDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    // One of them is open to read this folder.
    return static_cast<size_t>(std::distance(begin(all), end(all))) - 1;
}

/// The bytes that the process has allocated. Always the same under the sanitizers, which have a
/// heap of their own.
inline size_t heapBytes() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}
#endif

/// Compares the lowest figure of the first half with the lowest of the second, and prints both.
/// Fails the test when it grew by more than the slack.
inline void expectFlat(const char* what, const std::vector<size_t>& figures, size_t slack) {
    if (figures.size() < 2) {
        return;
    }
    const auto middle = figures.begin() + std::ssize(figures) / 2;
    const size_t first = *std::min_element(figures.begin(), middle);
    const size_t last = *std::min_element(middle, figures.end());
    std::cout << what << ": " << first << " at first, " << last << " at last\n";
    EXPECT_LE(last, first + slack) << what;
}

} // namespace turnpost::automation
