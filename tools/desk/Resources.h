#pragma once

#include <cstddef>

namespace turnpost::desk {

/// Bytes in use on the heap. Stands still under the sanitizers, which have a heap of their own and
/// look for leaks at the program's end.
std::size_t liveHeap();

/// Bytes of memory that the process has in the machine.
std::size_t residentMemory();

/// Open file descriptors of the process.
std::size_t openDescriptors();

} // namespace turnpost::desk
