#pragma once

#include <string>
#include <vector>

namespace brinmoor {

/// One line of the table: a benchmark beside a floor or a peer of the same run, both by their full
/// names.
struct Comparison {
    std::string work;   ///< what is done, for the reader
    std::string name;   ///< our own way
    std::string beside; ///< what the other one is, for the reader
    std::string other;
};

/// Runs the program's benchmarks in random order, nine times each unless the command line says
/// otherwise, and prints the medians and their ratios. Gives the exit status.
int runComparisons(int argc, char** argv, const std::vector<Comparison>& comparisons);

} // namespace brinmoor
