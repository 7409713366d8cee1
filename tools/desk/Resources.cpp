#include "desk/Resources.h"

#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

namespace turnpost::desk {

std::size_t liveHeap() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

std::size_t residentMemory() {
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

std::size_t openDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    // One of them reads the folder.
    return static_cast<std::size_t>(std::distance(begin(all), end(all))) - 1;
}

} // namespace turnpost::desk
