// Fixed-size tables addressed from row 1, as every table of the shared block is numbered.
// Rows<T, N> is a column of N rows; Table<T, R, C> a grid of R rows by C columns.
#pragma once

#include <array>
#include <cassert>

namespace brennik {

template <typename T, int N>
class Rows {
public:
    static constexpr int Count = N;

    T& operator()(int row) {
        assert(row >= 1 && row <= N);
        return cells_[row - 1];
    }
    const T& operator()(int row) const {
        assert(row >= 1 && row <= N);
        return cells_[row - 1];
    }
    void Fill(const T& value) { cells_.fill(value); }
    bool operator==(const Rows&) const = default;

private:
    std::array<T, N> cells_{};
};

template <typename T, int R, int C>
class Table {
public:
    T& operator()(int row, int column) {
        assert(row >= 1 && row <= R && column >= 1 && column <= C);
        return cells_[(row - 1) * C + (column - 1)];
    }
    const T& operator()(int row, int column) const {
        assert(row >= 1 && row <= R && column >= 1 && column <= C);
        return cells_[(row - 1) * C + (column - 1)];
    }
    void Fill(const T& value) { cells_.fill(value); }
    bool operator==(const Table&) const = default;

private:
    std::array<T, R * C> cells_{};
};

}  // namespace brennik
