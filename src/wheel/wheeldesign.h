#pragma once

// A wheel spreads the reds a player has chosen over tickets so that a
// guarantee holds whatever the draw. "中m保t": whenever m of the drawn reds
// are among the chosen ones, some ticket holds at least t of those m.
//
// A wheel is first a design on the points 1..v, v being the number of chosen
// reds; the points stand for the chosen reds in ascending order. A block of
// the design is one ticket's six reds, kept as a bit set: bit i is point i+1.

#include <QString>
#include <QtGlobal>

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace wheel {

constexpr int TicketReds = 6;
constexpr int FewestPoints = 7;
constexpr int MostPoints = 20;

using Block = quint32;

struct Guarantee {
    int drawn; // m: drawn reds among the chosen ones
    int held;  // t: of those, held by at least one ticket

    friend bool operator==(const Guarantee&, const Guarantee&) = default;
};

// The guarantees offered, in the order of the pick list: "中6保5" first.
const std::array<Guarantee, 7>& guarantees();
// "中5保4" for {5, 4}.
QString guaranteeName(Guarantee guarantee);
// The guarantee of a name of the pick list; nothing for any other text.
std::optional<Guarantee> guaranteeNamed(const QString& name);

struct Design {
    int points = 0;
    Guarantee guarantee{};
    std::vector<Block> blocks;
};

// Binomial coefficient for the small numbers of a wheel (n up to 32).
quint64 binomial(int n, int k);

// Colex rank of a set of points among all sets of its size: the sets of one
// size, taken in ascending order of their bit patterns, have the ranks 0, 1, 2...
quint32 colexRank(quint32 set);

// Calls `visit` with every subset of `size` points of `set`.
template <class Visit> void forSubsets(quint32 set, int size, Visit&& visit)
{
    std::array<quint32, 32> bits{};
    int count = 0;
    for (quint32 rest = set; rest; rest &= rest - 1)
        bits[std::size_t(count++)] = rest & (~rest + 1);
    if (size < 0 || size > count)
        return;
    std::array<int, 33> pick{}; // ascending positions in `bits`
    for (int i = 0; i < size; ++i)
        pick[std::size_t(i)] = i;
    while (true) {
        quint32 subset = 0;
        for (int i = 0; i < size; ++i)
            subset |= bits[std::size_t(pick[std::size_t(i)])];
        visit(subset);
        int i = size - 1;
        while (i >= 0 && pick[std::size_t(i)] == count - size + i)
            --i;
        if (i < 0)
            return;
        ++pick[std::size_t(i)];
        for (int j = i + 1; j < size; ++j)
            pick[std::size_t(j)] = pick[std::size_t(j - 1)] + 1;
    }
}

// The next set of the same size in ascending order of bit patterns.
inline quint64 nextOfSize(quint64 set)
{
    const quint64 lowest = set & (~set + 1);
    const quint64 ripple = set + lowest;
    return (((ripple ^ set) >> 2) / lowest) | ripple;
}

// Whether the blocks form a wheel with this guarantee on `points` points
// (1 to 32): every block holds exactly six points of 1..points, and for every
// set of `drawn` points some block holds at least `held` of them. Every such
// set is examined; the first that no block serves is reported through
// `firstFailure`, when it is given (nothing is written when the guarantee
// holds; a bad block fails at once and reports an empty set).
bool guaranteeHolds(int points, Guarantee guarantee, std::span<const Block> blocks, quint32* firstFailure = nullptr);

inline bool guaranteeHolds(const Design& design)
{
    return guaranteeHolds(design.points, design.guarantee, design.blocks);
}

} // namespace wheel
