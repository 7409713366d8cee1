#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace turnpost::lasting {

/// What the process uses, sampled while it does the same thing again and again.
class UsageTable {
  public:
    explicit UsageTable(const std::string& whatIsDone) : title(whatIsDone) {}

    /// Takes and prints a sample; `done` is how often it has been done.
    void sample(int done);

    /// Compares the medians of the first and the last quarter of the samples and prints the
    /// difference. True when nothing grew by more than its slack.
    bool isFlat() const;

  private:
    struct Usage {
        std::size_t heap;
        std::size_t resident;
        std::size_t descriptors;
    };

    long growthOf(std::size_t Usage::*figure) const;

    std::string title;
    std::vector<Usage> samples;
};

} // namespace turnpost::lasting
