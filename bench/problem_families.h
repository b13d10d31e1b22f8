// Seeded generators of whole problems, as typed into the entry boxes, for the benchmark: the
// worked examples and families of shop problems, each with 6 standard and 40 cutting lengths.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace brennik::bench {

struct ProblemText {
    std::vector<std::pair<std::string, std::string>> stock;  // length, price ("" for none)
    std::vector<std::pair<std::string, std::string>> cuts;   // length, quantity
};

struct Family {
    std::string name;
    bool realistic;  // held to the tightest time target
    std::vector<ProblemText> problems;
};

// Every family, `perFamily` problems each (the worked examples are fixed), from one seed.
std::vector<Family> MakeFamilies(int perFamily, uint32_t seed);

}  // namespace brennik::bench
