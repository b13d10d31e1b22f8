// One press of Find Solution with the Advanced option on a fresh form, as a user would make it
// after typing a generated problem, for the benchmarks.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "problem_families.h"
#include "state/module1.h"

namespace brennik::bench {

// A fresh folder for the work files of presses, in memory where there is a memory file system:
// on a disk's file system, creating and deleting them thousands of times a second makes the
// search for a free inode part of every press, which a user pressing now and then never meets.
std::string MakeWorkFolder();

// The block as the press left it; the work files and last.sol go to `folder`. Aborts when the
// problem is refused: a generated problem never should be.
std::unique_ptr<Module1> Press(const ProblemText& problem, bool methodB, const std::string& folder);

// Calls `visit` for every problem of the families in both Methods, with the name of that press,
// "family/problem/A" or "family/problem/B", problems counted from 1.
void ForEveryPress(const std::vector<Family>& families,
                   const std::function<void(const std::string& name, const Family& family,
                                            const ProblemText& problem, bool methodB)>& visit);

}  // namespace brennik::bench
