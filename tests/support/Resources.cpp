#include "support/Resources.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

namespace turnpost::desk {

namespace {

const std::map<std::string, std::size_t> slacks = {
    // The toolkit caches glyphs and icons, and drops them as it likes.
    {"heap", 16 << 10},
    // The system gives pages back late, and in strides.
    {"resident memory", 1 << 20},
    // Each thread of the toolkit holds one; it starts and ends them as it likes.
    {"descriptors", 2}};

std::size_t residentMemory() {
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

template <typename Iterator> std::size_t medianOf(Iterator begin, Iterator end) {
    std::vector<std::size_t> figures(begin, end);
    const auto middle = figures.begin() + std::ssize(figures) / 2;
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

} // namespace

std::size_t liveHeap() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

std::size_t openDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    // One of them reads the folder.
    return static_cast<std::size_t>(std::distance(begin(all), end(all))) - 1;
}

void Usage::sample() {
    samples["heap"].push_back(liveHeap());
    samples["resident memory"].push_back(residentMemory());
    samples["descriptors"].push_back(openDescriptors());
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
