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
    // At the edge of what is admissible, at its own quantities: a check that walks every
    // count of every search can never finish one.
    bool worstCase = false;
};

// How many rows a generated problem fills: the benchmark's are full; the tests take smaller
// ones, which the plain complete enumeration can still walk.
struct Shape {
    int stdLengths = 6;
    int cutLengths = 40;
    int maxQuantity = 0;  // 0: each family's own
};

// The five worked examples of the manual, in its order: the getting-started problem in metres,
// then examples 1 to 4 in metres, feet, centimetres and millimetres (the last without prices).
std::vector<ProblemText> WorkedExamples();

// Every family, `perFamily` problems each, from one seed. The worked examples, which are fixed,
// come first when the shape is full.
std::vector<Family> MakeFamilies(int perFamily, uint32_t seed, Shape shape = {});

}  // namespace brennik::bench
