// What the fuzz targets share: a broken property stops the run with a message saying which,
// and libFuzzer keeps the input that broke it as a crash file.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace brennik::fuzzing {

inline void Require(bool holds, std::string_view property) {
    if (!holds) {
        std::fprintf(stderr, "Broken property: %.*s\n", static_cast<int>(property.size()),
                     property.data());
        std::abort();
    }
}

}  // namespace brennik::fuzzing
