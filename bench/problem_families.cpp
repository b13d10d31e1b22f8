#include "problem_families.h"

#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <set>

namespace brennik::bench {

namespace {

// A value in hundredths as the box would show it.
std::string Hundredths(int64_t value) {
    std::string text = std::to_string(value / 100);
    const int64_t cents = value % 100;
    if (cents != 0) {
        text += '.';
        text += static_cast<char>('0' + cents / 10);
        if (cents % 10 != 0) {
            text += static_cast<char>('0' + cents % 10);
        }
    }
    return text;
}

class Generator {
public:
    Generator(uint32_t seed, Shape shape) : random_(seed), shape_(shape) {}

    int64_t Between(int64_t low, int64_t high) {
        return std::uniform_int_distribution<int64_t>(low, high)(random_);
    }

    // `count` different bar lengths in hundredths from `bar`, and prices near a rate per length.
    std::vector<std::pair<std::string, std::string>> Stock(const std::function<int64_t()>& bar,
                                                           bool priced, int count) {
        std::set<int64_t> lengths;
        while (lengths.size() < static_cast<std::size_t>(count)) {
            lengths.insert(bar());
        }
        const int64_t rate = Between(200, 900);  // hundredths of money per 100 length units
        std::vector<std::pair<std::string, std::string>> stock;
        for (auto it = lengths.rbegin(); it != lengths.rend(); ++it) {
            const int64_t price = std::max<int64_t>(1, *it * rate / 10000 + Between(-30, 30));
            stock.emplace_back(Hundredths(*it), priced ? Hundredths(price) : "");
        }
        return stock;
    }

    // Different cutting lengths from `piece`, none longer than `longest`.
    std::vector<std::pair<std::string, std::string>> Cuts(const std::function<int64_t()>& piece,
                                                          int64_t longest, int64_t maxQuantity) {
        std::set<int64_t> lengths;
        while (lengths.size() < static_cast<std::size_t>(shape_.cutLengths)) {
            const int64_t length = piece();
            if (length > 0 && length <= longest) {
                lengths.insert(length);
            }
        }
        std::vector<std::pair<std::string, std::string>> cuts;
        const int64_t most = shape_.maxQuantity > 0 ? shape_.maxQuantity : maxQuantity;
        for (int64_t length : lengths) {
            cuts.emplace_back(Hundredths(length), std::to_string(Between(1, most)));
        }
        std::shuffle(cuts.begin(), cuts.end(), random_);
        return cuts;
    }

    // `stdLengths` bars, or as many as the shape has.
    ProblemText Make(const std::function<int64_t()>& bar, const std::function<int64_t()>& piece,
                     int64_t maxQuantity, int stdLengths = 0) {
        ProblemText problem;
        problem.stock =
            Stock(bar, Between(0, 3) != 0,
                  stdLengths > 0 ? std::min(stdLengths, shape_.stdLengths) : shape_.stdLengths);
        int64_t longest = 0;
        for (const auto& [length, price] : problem.stock) {
            longest =
                std::max<int64_t>(longest, static_cast<int64_t>(std::stod(length) * 100 + 0.5));
        }
        problem.cuts = Cuts(piece, longest, maxQuantity);
        return problem;
    }

private:
    std::mt19937 random_;
    Shape shape_;
};

}  // namespace

std::vector<ProblemText> WorkedExamples() {
    return {
        {{{"6.1", "30.4"}, {"5.5", "27.5"}, {"4.6", "22.3"}, {"4.3", "20.1"}, {"3.7", "18.6"}},
         {{"1.7", "84"},
          {"2.3", "121"},
          {"1.5", "67"},
          {"0.8", "90"},
          {"1.1", "65"},
          {"1.3", "119"},
          {"3.1", "114"},
          {"0.6", "191"}}},
        {{{"6", "20"}, {"5.4", "18"}, {"4.8", "15"}, {"4.2", "14"}, {"3.6", "12"}, {"3", "11"}},
         {{"1.87", "98"},
          {"1.14", "65"},
          {"0.94", "67"},
          {"1.65", "87"},
          {"0.55", "32"},
          {"2.12", "51"},
          {"1.17", "42"},
          {"3.7", "78"},
          {"2.33", "53"},
          {"4.11", "81"},
          {"4.2", "62"},
          {"4.3", "27"},
          {"5.4", "27"}}},
        {{{"20", "21"}, {"18", "17.5"}, {"15", "14.5"}, {"14", "13.5"}, {"12", "13"}},
         {{"7.5", "98"},
          {"7.3", "65"},
          {"4.4", "67"},
          {"6.3", "87"},
          {"5.5", "32"},
          {"9.3", "51"},
          {"7.1", "43"},
          {"2.4", "47"},
          {"1.9", "56"},
          {"3.4", "18"}}},
        {{{"660", "46"}, {"600", "42"}, {"540", "38"}, {"480", "33"}, {"420", "29"}, {"360", "24"}},
         {{"330", "51"},
          {"325", "67"},
          {"455", "87"},
          {"186", "30"},
          {"210", "72"},
          {"135", "66"},
          {"175", "88"},
          {"145", "67"},
          {"245", "61"}}},
        {{{"6000", ""}, {"5400", ""}, {"4800", ""}, {"4000", ""}, {"3600", ""}, {"3000", ""}},
         {{"725", "44"},
          {"730", "63"},
          {"440", "51"},
          {"630", "23"},
          {"555", "71"},
          {"935", "26"},
          {"710", "19"},
          {"345", "31"},
          {"495", "51"},
          {"545", "78"}}},
    };
}

std::vector<Family> MakeFamilies(int perFamily, uint32_t seed, Shape shape) {
    Generator g(seed, shape);
    auto family = [&](std::string name, bool realistic, auto bar, auto piece, int64_t quantity) {
        Family f{std::move(name), realistic, {}};
        for (int k = 0; k < perFamily; ++k) {
            f.problems.push_back(g.Make(bar, piece, quantity));
        }
        return f;
    };
    std::vector<Family> families;
    if (shape.stdLengths == 6 && shape.cutLengths == 40) {
        families.push_back({"worked examples", true, WorkedExamples()});
    }
    families.push_back(family(
        "metric", true, [&] { return g.Between(30, 75) * 10; }, [&] { return g.Between(30, 350); },
        150));
    families.push_back(family(
        "millimetre", true, [&] { return g.Between(30, 120) * 10000; },
        [&] { return g.Between(150, 5000) * 100; }, 500));
    families.push_back(family(
        "feet", true, [&] { return g.Between(8, 24) * 100; },
        [&] { return g.Between(10, 99) * 10; }, 150));
    families.push_back(family(
        "small pieces", true, [&] { return g.Between(9, 15) * 100; },
        [&] { return g.Between(11, 150); }, 999));
    families.push_back(family(
        "awkward hundredths", true, [&] { return g.Between(400, 1200); },
        [&] { return g.Between(41, 290); }, 150));
    // Lengths all multiples of one grain (0.02 or 0.03), bars off that grain: no bar fills.
    families.push_back([&] {
        Family f{"no exact fill", false, {}};
        for (int k = 0; k < perFamily; ++k) {
            const int64_t grain = g.Between(2, 3);
            f.problems.push_back(g.Make([&] { return g.Between(300, 1200) / grain * grain + 1; },
                                        [&] { return g.Between(30 / grain, 350 / grain) * grain; },
                                        150));
        }
        return f;
    }());
    families.push_back(family(
        "long bars", false, [&] { return g.Between(20000, 99999) * 100 + g.Between(0, 9) * 10; },
        [&] { return g.Between(5000, 90000); }, 999));
    // Lengths crowded into a narrow band: many combinations come within a few hundredths of a
    // bar, which leaves a walk over the counts little to cut.
    families.push_back([&] {
        Family f{"close lengths", false, {}};
        for (int k = 0; k < perFamily; ++k) {
            const int64_t shortest = g.Between(100, 300);
            f.problems.push_back(g.Make([&] { return g.Between(7, 24) * 100; },
                                        [&] { return shortest + g.Between(0, 60); }, 99));
        }
        return f;
    }());
    // The longest bars, 55555 to 99999.9 (seven characters, as the boxes take), with 40 lengths
    // side by side within 0.4 of one value and quantities that fill hundreds of bars: nearly every
    // sum can be cut exactly, but the counts that do it are deep in a walk that takes the longest
    // lengths first.
    families.push_back([&] {
        Family f{"crowded on long bars", false, {}, true};
        for (int k = 0; k < perFamily; ++k) {
            const int64_t centre = g.Between(100, 300) * 100;
            f.problems.push_back(g.Make([&] { return g.Between(555550, 999999) * 10; },
                                        [&] { return centre + g.Between(-20, 19); }, 99999));
        }
        return f;
    }());
    // The same bars with lengths in arithmetic progression: 40 lengths a, a + d, ... a + 39 d.
    families.push_back([&] {
        Family f{"arithmetic progressions", false, {}, true};
        for (int k = 0; k < perFamily; ++k) {
            const int64_t first = g.Between(1000, 25000);
            const int64_t step = g.Between(1, 40);
            f.problems.push_back(g.Make([&] { return g.Between(555550, 999999) * 10; },
                                        [&] { return first + g.Between(0, 39) * step; }, 99999));
        }
        return f;
    }());
    // The same bars with lengths gathered round two or three values far apart: a bar mixes the
    // groups, and which count of each group fills it is deep in the walk, while the table of
    // reachable sums is as wide as one of the shortest lengths.
    families.push_back([&] {
        Family f{"clusters on long bars", false, {}, true};
        for (int k = 0; k < perFamily; ++k) {
            const int64_t groups = g.Between(2, 3);
            const std::array<int64_t, 3> centres{
                g.Between(300, 800) * 100, g.Between(300, 800) * 100, g.Between(80, 400) * 100};
            f.problems.push_back(g.Make(
                [&] { return g.Between(555550, 999999) * 10; },
                [&] { return centres[g.Between(0, groups - 1)] + g.Between(-30, 30); }, 99999));
        }
        return f;
    }());
    // The same bars with quantities that bound how many of a length go in one: a bar holds
    // hundreds of pieces, a length is wanted a few dozen times.
    families.push_back(family(
        "bounded on long bars", false, [&] { return g.Between(555550, 999999) * 10; },
        [&] { return g.Between(5000, 40000); }, 60));
    families.back().worstCase = true;
    // One to three bar lengths and pieces of 10 % to 60 % of the longest: a few pieces a bar,
    // where cutting bar after bar leaves the most behind.
    families.push_back([&] {
        Family f{"long pieces", true, {}};
        for (int k = 0; k < perFamily; ++k) {
            const int64_t longest = g.Between(30, 120) * 10;
            f.problems.push_back(g.Make([&] { return longest - g.Between(0, 3) * longest / 10; },
                                        [&] { return g.Between(longest / 10, longest * 6 / 10); },
                                        60, static_cast<int>(g.Between(1, 3))));
        }
        return f;
    }());
    // The longest bars with 40 lengths a + k d for k from 0 to 39, where a and d are typed with
    // more decimals than the boxes keep: rounded to hundredths, the steps differ by one here and
    // there. Few sums fill a bar, no common step helps, and the shortest lengths, used in every
    // bar, run short first.
    families.push_back([&] {
        Family f{"rounded progressions", false, {}, true};
        for (int k = 0; k < perFamily; ++k) {
            const int64_t first = g.Between(5000, 200000);
            const int64_t stepThousandths = g.Between(1000, 5000000);
            f.problems.push_back(g.Make(
                [&] { return g.Between(555550, 999999) * 10; },
                [&] { return first + (g.Between(0, 39) * stepThousandths + 500) / 1000; }, 99999));
        }
        return f;
    }());
    return families;
}

}  // namespace brennik::bench
