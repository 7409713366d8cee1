#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace turnpost::desk {

/// Bytes in use on the heap. Stands still under the sanitizers, which have a heap of their own and
/// look for leaks at the program's end.
std::size_t liveHeap();

/// Open file descriptors of the process.
std::size_t openDescriptors();

/// What the process uses, sampled while it does the same thing again and again.
class Usage {
  public:
    void sample();

    /// Compares the medians of the first and the last quarter of the samples and prints both. Fails
    /// the test when heap, resident memory or descriptors grew by more than their slack.
    void expectFlat() const;

  private:
    /// By what they count.
    std::map<std::string, std::vector<std::size_t>> samples;
};

} // namespace turnpost::desk
