#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace turnpost::desk {

/// Open file descriptors of the process; on Windows its handles.
std::size_t openDescriptors();

/// What the process uses, sampled while it does the same thing again and again.
class Usage {
  public:
    void sample();

    /// Compares the medians of the first and the last quarter of the samples and prints both. Fails
    /// the test when descriptors, or the heap and resident memory elsewhere than on Windows, grew
    /// by more than their slack.
    void expectFlat() const;

  private:
    /// By what they count.
    std::map<std::string, std::vector<std::size_t>> samples;
};

} // namespace turnpost::desk
