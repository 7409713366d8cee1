#include "support/Resources.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
#else
#include <malloc.h>
#include <unistd.h>
#endif

namespace turnpost::desk {

namespace {

const std::map<std::string, std::size_t> slacks = {
    // The toolkit caches glyphs and icons, and drops them as it likes.
    {"heap", 16 << 10},
    // The system gives pages back late, and in strides.
    {"resident memory", 1 << 20},
    // Each thread of the toolkit holds one; it starts and ends them as it likes.
    {"descriptors", 2}};

template <typename Iterator> std::size_t medianOf(Iterator begin, Iterator end) {
    std::vector<std::size_t> figures(begin, end);
    const auto middle = figures.begin() + std::ssize(figures) / 2;
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

} // namespace

std::size_t openDescriptors() {
#ifdef _WIN32
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
#else
    const std::filesystem::directory_iterator all("/proc/self/fd");
    // One of them reads the folder.
    return static_cast<std::size_t>(std::distance(begin(all), end(all))) - 1;
#endif
}

void Usage::sample() {
    samples["descriptors"].push_back(openDescriptors());
#ifndef _WIN32
    // Stands still under the sanitizers, which have a heap of their own.
    const auto heap = mallinfo2();
    samples["heap"].push_back(heap.uordblks + heap.hblkhd);
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    samples["resident memory"].push_back(resident * page);
#endif
}

void Usage::expectFlat() const {
    for (const auto& [what, figures] : samples) {
        const auto quarter = std::max<std::ptrdiff_t>(std::ssize(figures) / 4, 1);
        const std::size_t first = medianOf(figures.begin(), figures.begin() + quarter);
        const std::size_t last = medianOf(figures.end() - quarter, figures.end());
        std::cout << what << ": " << first << " at first, " << last << " at last\n";
        EXPECT_LE(last, first + slacks.at(what)) << what;
    }
}

} // namespace turnpost::desk
