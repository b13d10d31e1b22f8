// Memory for the rows of the table of reachable sums: tens of megabytes, written in long runs and
// read at scattered places. Where the system allows it, it comes in pages of 2 MiB, which spare
// the processor most of the address translations that small pages cost over so much memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace brennik {

struct FreeRowMemory {
    void operator()(uint64_t* words) const;
};
using RowMemory = std::unique_ptr<uint64_t[], FreeRowMemory>;

// Room for `words` words, not cleared.
RowMemory AllocateRowMemory(std::size_t words);

}  // namespace brennik
