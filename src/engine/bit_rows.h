// The word loops behind the table of reachable sums. A row of bits holds sum s at bit s % 64 of
// word s / 64; adding pieces of a length to a row shifts it up by their length and joins the two.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace brennik {

// out = base | src shifted up by `part` bits (0 to 63), word by word, `carry` being the word
// below src[0]. Nothing that is read overlaps `out`.
void OrShifted(uint64_t* out, const uint64_t* base, const uint64_t* src, std::size_t n,
               unsigned part, uint64_t carry);

// out |= src shifted up by `part` bits, the same where a row grows in place.
void OrShiftedInPlace(uint64_t* out, const uint64_t* src, std::size_t n, unsigned part,
                      uint64_t carry);

// to = every sum of `from` with 0 to `most` pieces of `length` added, over `words` words, for a
// length of at least 64. It takes three passes over the row however large `most` is, where
// adding the counts in doubling chunks takes one for each binary digit of it. `scratch` is
// working memory, kept from call to call.
void AddUpToCount(const uint64_t* from, uint64_t* to, std::size_t words, int64_t length,
                  int64_t most, std::vector<uint64_t>& scratch);

}  // namespace brennik
