#include "wheel/wheeldesign.h"

#include <bit>

namespace wheel {

namespace {

constexpr int MostBits = 32;

// Pascal's triangle up to 32, built once.
struct BinomialTable {
    quint64 value[MostBits + 1][MostBits + 1]{};
    constexpr BinomialTable()
    {
        for (int n = 0; n <= MostBits; ++n) {
            value[n][0] = 1;
            for (int k = 1; k <= n; ++k)
                value[n][k] = value[n - 1][k - 1] + (k <= n - 1 ? value[n - 1][k] : 0);
        }
    }
};

constexpr BinomialTable table;

} // namespace

const std::array<Guarantee, 7>& guarantees()
{
    static const std::array<Guarantee, 7> all{{{6, 5}, {6, 4}, {5, 5}, {5, 4}, {4, 4}, {4, 3}, {3, 3}}};
    return all;
}

QString guaranteeName(Guarantee guarantee)
{
    return QStringLiteral("中%1保%2").arg(guarantee.drawn).arg(guarantee.held);
}

std::optional<Guarantee> guaranteeNamed(const QString& name)
{
    for (const Guarantee& guarantee : guarantees()) {
        if (guaranteeName(guarantee) == name)
            return guarantee;
    }
    return std::nullopt;
}

quint64 binomial(int n, int k)
{
    if (n < 0 || k < 0 || k > n || n > MostBits)
        return 0;
    return table.value[n][k];
}

quint32 colexRank(quint32 set)
{
    quint32 rank = 0;
    for (int size = 1; set; ++size) {
        rank += quint32(table.value[std::countr_zero(set)][size]);
        set &= set - 1;
    }
    return rank;
}

bool guaranteeHolds(int points, Guarantee guarantee, std::span<const Block> blocks, quint32* firstFailure)
{
    const int drawn = guarantee.drawn;
    const int held = guarantee.held;
    if (points < 1 || points > MostBits || held < 1 || held > drawn || drawn > TicketReds)
        return false;
    const quint64 all = (quint64(1) << points) - 1;
    for (Block block : blocks) {
        if (std::popcount(block) != TicketReds || (quint64(block) & ~all) != 0) {
            if (firstFailure)
                *firstFailure = 0;
            return false;
        }
    }
    if (drawn > points)
        return true; // no draw can bring that many of the chosen reds

    // A block holds at least `held` of a drawn set exactly when it holds one
    // of the set's subsets of `held` points: mark every such subset of every
    // block, then look for a marked one in every drawn set.
    std::vector<quint8> marked(std::size_t(binomial(points, held)), 0);
    for (Block block : blocks)
        forSubsets(block, held, [&](quint32 subset) { marked[colexRank(subset)] = 1; });
    for (quint64 set = (quint64(1) << drawn) - 1; set <= all; set = nextOfSize(set)) {
        bool served = false;
        forSubsets(quint32(set), held, [&](quint32 subset) { served = served || marked[colexRank(subset)]; });
        if (!served) {
            if (firstFailure)
                *firstFailure = quint32(set);
            return false;
        }
    }
    return true;
}

} // namespace wheel
