#include "bets/BetRows.h"

#include <algorithm>
#include <bit>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "base/combinations.h"

namespace ssq {

namespace {

constexpr int kFirstUpper = 4;
constexpr int kTripleSize = 3;
constexpr int kMostPlanes = 10;  // tolerances up to 999

using RowsByRed = std::array<BetRow, RedSet::kLargest + 1>;

RowsByRed MakeTriplesWith() {
    RowsByRed rows;
    std::size_t bit = FirstTriple(kFirstUpper - 1);
    for (int d = kFirstUpper; d <= RedSet::kLargest; ++d) {
        for (int e = d + 1; e <= RedSet::kLargest; ++e) {
            for (int f = e + 1; f <= RedSet::kLargest; ++f, ++bit) {
                for (const int red : {d, e, f}) {
                    rows[static_cast<std::size_t>(red)].words[bit / kBetWordBits] |=
                        BetWord{1} << bit % kBetWordBits;
                }
            }
        }
    }
    return rows;
}

// The triples that hold a red.
const BetRow& TriplesWith(int red) {
    static const RowsByRed rows = MakeTriplesWith();
    return rows[static_cast<std::size_t>(red)];
}

// One bit for each of 16 bytes: its highest.
unsigned HighBits(BetBytes bytes) {
#if defined(__SSE2__)
    return static_cast<unsigned>(_mm_movemask_epi8(reinterpret_cast<__m128i>(bytes)));
#else
    unsigned bits = 0;
    for (unsigned i = 0; i < sizeof bytes; ++i) bits |= (bytes[i] >> 7U & 1U) << i;
    return bits;
#endif
}

template <int kLanes>
struct Lanes {
    BetLane lane[kLanes];

    bool Full() const {
        BetLane all = lane[0];
        for (int i = 1; i < kLanes; ++i) all &= lane[i];
        return (all[0] & all[1]) == ~BetWord{0};
    }
};

// Counts failures in bit planes. The counter starts so high that the failure too many carries out.
template <int kPlanes, int kLanes>
class Adder {
  public:
    explicit Adder(int tolerance) {
        const unsigned start = (1U << kPlanes) - 1U - static_cast<unsigned>(tolerance);
        for (int p = 0; p < kPlanes; ++p) {
            for (BetLane& lane : planes_[p].lane) lane = BetLane{} - (start >> p & 1U);
        }
    }

    void Add(const Lanes<kLanes>& failing, Lanes<kLanes>& dead) {
        Lanes<kLanes> carry = failing;
        for (auto& plane : planes_) {
            for (int i = 0; i < kLanes; ++i) {
                const BetLane next = plane.lane[i] & carry.lane[i];
                plane.lane[i] ^= carry.lane[i];
                carry.lane[i] = next;
            }
        }
        for (int i = 0; i < kLanes; ++i) dead.lane[i] |= carry.lane[i];
    }

  private:
    Lanes<kLanes> planes_[kPlanes];
};

template <int kLanes>
Lanes<kLanes> LanesOf(const BetRow& row, std::size_t first) {
    Lanes<kLanes> lanes;
    for (int i = 0; i < kLanes; ++i) lanes.lane[i] = row.Lane(first + static_cast<std::size_t>(i));
    return lanes;
}

template <int kLanes>
Lanes<kLanes> LanesOf(const BetByteTest& test, std::size_t first) {
    Lanes<kLanes> lanes;
    for (int i = 0; i < kLanes; ++i) {
        lanes.lane[i] = test.Failing(first + static_cast<std::size_t>(i));
    }
    return lanes;
}

// Calls `add` for each row and then for each test until no combination is left alive.
template <int kLanes, typename Add>
void AddAll(std::span<const BetRow* const> rows, std::span<const BetByteTest> bytes,
            std::size_t first, const Lanes<kLanes>& dead, Add add) {
    constexpr std::size_t kLook = 8;  // rows between two looks whether it is all over
    for (std::size_t i = 0; i < rows.size(); i += kLook) {
        if (dead.Full()) return;
        const std::size_t end = std::min(i + kLook, rows.size());
        for (std::size_t row = i; row < end; ++row) add(LanesOf<kLanes>(*rows[row], first));
    }
    for (const BetByteTest& test : bytes) {
        if (dead.Full()) return;
        add(LanesOf<kLanes>(test, first));
    }
}

template <int kPlanes, int kLanes>
void PassingBlock(const BetRowSum& sum, std::size_t first, BetLane* passing) {
    Lanes<kLanes> dead = LanesOf<kLanes>(*sum.outside, first);
    const auto orInto = [&](const Lanes<kLanes>& failing) {
        for (int i = 0; i < kLanes; ++i) dead.lane[i] |= failing.lane[i];
    };
    AddAll<kLanes>(sum.mustRows, sum.mustBytes, first, dead, orInto);
    if constexpr (kPlanes == 0) {
        AddAll<kLanes>(sum.rows, sum.bytes, first, dead, orInto);
    } else {
        Adder<kPlanes, kLanes> adder(sum.tolerance);
        AddAll<kLanes>(sum.rows, sum.bytes, first, dead,
                       [&](const Lanes<kLanes>& failing) { adder.Add(failing, dead); });
    }
    for (int i = 0; i < kLanes; ++i) passing[i] = ~dead.lane[i];
}

template <int kPlanes>
void PassingLanes(const BetRowSum& sum, std::size_t first, BetLane* passing) {
    constexpr int kBlock = 4;
    for (; first + kBlock <= kBetRowLanes; first += kBlock, passing += kBlock) {
        PassingBlock<kPlanes, kBlock>(sum, first, passing);
    }
    for (; first < kBetRowLanes; ++first, ++passing) PassingBlock<kPlanes, 1>(sum, first, passing);
}

template <int... kPlanes>
constexpr auto MakePassingByPlanes(std::integer_sequence<int, kPlanes...> /*planes*/) {
    return std::array{&PassingLanes<kPlanes>...};
}
constexpr auto kPassingByPlanes =
    MakePassingByPlanes(std::make_integer_sequence<int, kMostPlanes + 1>());

}  // namespace

std::size_t FirstTriple(int third) {
    const auto above = static_cast<std::size_t>(Choose(RedSet::kLargest - third, kTripleSize));
    return kBetRowWords * kBetWordBits - above;
}

// A triple holds a red at most once, so two bit planes count up to three.
std::array<BetRow, 4> TriplesByCount(RedSet reds) {
    BetRow ones;
    BetRow twos;
    for (int red = kFirstUpper; red <= RedSet::kLargest; ++red) {
        if (!reds.Has(red)) continue;
        const BetRow& with = TriplesWith(red);
        for (std::size_t i = 0; i < kBetRowWords; ++i) {
            twos.words[i] |= ones.words[i] & with.words[i];
            ones.words[i] ^= with.words[i];
        }
    }
    std::array<BetRow, 4> rows;
    for (std::size_t i = 0; i < kBetRowWords; ++i) {
        const BetWord one = ones.words[i];
        const BetWord two = twos.words[i];
        rows[0].words[i] = ~one & ~two;
        rows[1].words[i] = one & ~two;
        rows[2].words[i] = ~one & two;
        rows[3].words[i] = one & two;
    }
    return rows;
}

BetRow TriplesOutside(int third, RedSet usable, RedSet bankers) {
    BetRow row;
    const std::size_t first = FirstTriple(third);
    for (std::size_t i = 0; i < kBetRowWords; ++i) {
        const std::size_t bit = i * kBetWordBits;
        if (bit + kBetWordBits <= first) {
            row.words[i] = ~BetWord{0};
        } else if (bit < first) {
            row.words[i] = (BetWord{1} << (first - bit)) - 1;
        }
    }
    for (int red = third + 1; red <= RedSet::kLargest; ++red) {
        const BetWord lacking = bankers.Has(red) ? ~BetWord{0} : 0;
        if (usable.Has(red) && lacking == 0) continue;
        const BetRow& with = TriplesWith(red);
        for (std::size_t i = 0; i < kBetRowWords; ++i) row.words[i] |= with.words[i] ^ lacking;
    }
    return row;
}

BetLane BetByteTest::Failing(std::size_t lane) const {
    constexpr std::size_t kParts = kBetWordBits / sizeof(BetBytes);
    const std::uint8_t* from = bytes + (lane - firstLane) * kBetLaneBits;
    BetLane failing;
    for (int word = 0; word < 2; ++word, from += kBetWordBits) {
        BetBytes values[kParts];
        BetBytes passes[kParts] = {};
        std::memcpy(values, from, sizeof values);
        for (const Interval& interval : intervals) {
            for (std::size_t part = 0; part < kParts; ++part) {
                const auto inside = values[part] - interval.low <= interval.span;
                passes[part] |= reinterpret_cast<BetBytes>(inside);
            }
        }
        BetWord bits = 0;
        for (std::size_t part = 0; part < kParts; ++part) {
            bits |= BetWord{HighBits(passes[part])} << part * sizeof(BetBytes);
        }
        failing[word] = ~bits;
    }
    return failing;
}

void BetRowSum::Passing(std::size_t firstLane, BetLane* lanes) const {
    if (rows.size() + bytes.size() > static_cast<std::size_t>(tolerance)) {
        const auto planes =
            static_cast<std::size_t>(std::bit_width(static_cast<unsigned>(tolerance)));
        kPassingByPlanes[planes](*this, firstLane, lanes);
        return;
    }
    BetRowSum must = *this;  // the others cannot fail too often
    must.rows = {};
    must.bytes = {};
    PassingLanes<0>(must, firstLane, lanes);
}

}  // namespace ssq
