#include "UsageTable.h"

#include "desk/Resources.h"

#include <algorithm>
#include <cstdio>

namespace turnpost::lasting {

namespace {

// The toolkit caches glyphs and icons, and drops them as it likes.
constexpr long heapSlack = 16 << 10;
// The system gives pages back late, and in strides.
constexpr long residentSlack = 1 << 20;
// Each thread of the toolkit holds one; it starts and ends them as it likes.
constexpr long descriptorSlack = 2;

std::size_t medianOf(std::vector<std::size_t> figures) {
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

} // namespace

void UsageTable::sample(int done) {
    if (samples.empty()) {
        std::printf("%s\n%10s %12s %14s %12s\n", title.c_str(), "done", "heap bytes",
                    "resident KiB", "descriptors");
    }
    const Usage& usage = samples.emplace_back(
        Usage{desk::liveHeap(), desk::residentMemory(), desk::openDescriptors()});
    std::printf("%10d %12zu %14zu %12zu\n", done, usage.heap, usage.resident >> 10,
                usage.descriptors);
    std::fflush(stdout);
}

bool UsageTable::isFlat() const {
    const long heap = growthOf(&Usage::heap);
    const long resident = growthOf(&Usage::resident);
    const long descriptors = growthOf(&Usage::descriptors);
    std::printf("%10s %12ld %14ld %12ld\n", "growth", heap, resident / 1024, descriptors);
    return heap <= heapSlack && resident <= residentSlack && descriptors <= descriptorSlack;
}

long UsageTable::growthOf(std::size_t Usage::*figure) const {
    const std::size_t quarter = std::max<std::size_t>(samples.size() / 4, 1);
    std::vector<std::size_t> first;
    std::vector<std::size_t> last;
    for (std::size_t i = 0; i < quarter; ++i) {
        first.push_back(samples[i].*figure);
        last.push_back(samples[samples.size() - 1 - i].*figure);
    }
    return static_cast<long>(medianOf(last)) - static_cast<long>(medianOf(first));
}

} // namespace turnpost::lasting
