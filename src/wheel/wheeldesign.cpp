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

// The ways to pick `size` of `count` positions, each as the ascending list of
// the positions picked.
std::vector<std::array<quint8, TicketReds>> picks(int count, int size)
{
    std::vector<std::array<quint8, TicketReds>> result;
    std::array<quint8, TicketReds> pick{};
    for (int i = 0; i < size; ++i)
        pick[i] = quint8(i);
    if (size > count)
        return result;
    while (true) {
        result.push_back(pick);
        int i = size - 1;
        while (i >= 0 && pick[i] == count - size + i)
            --i;
        if (i < 0)
            return result;
        ++pick[i];
        for (int j = i + 1; j < size; ++j)
            pick[j] = quint8(pick[j - 1] + 1);
    }
}

// The points of a set, ascending.
int pointsOf(quint32 set, std::array<quint8, MostBits>& points)
{
    int count = 0;
    while (set) {
        points[count++] = quint8(std::countr_zero(set));
        set &= set - 1;
    }
    return count;
}

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
    std::array<quint8, MostBits> at{};
    for (const auto& pick : picks(TicketReds, held)) {
        for (Block block : blocks) {
            pointsOf(block, at);
            quint32 rank = 0;
            for (int i = 0; i < held; ++i)
                rank += quint32(table.value[at[pick[i]]][i + 1]);
            marked[rank] = 1;
        }
    }
    const auto subsets = picks(drawn, held);
    quint64 set = (quint64(1) << drawn) - 1;
    while (set <= all) {
        pointsOf(quint32(set), at);
        bool served = false;
        for (const auto& pick : subsets) {
            quint32 rank = 0;
            for (int i = 0; i < held; ++i)
                rank += quint32(table.value[at[pick[i]]][i + 1]);
            if (marked[rank]) {
                served = true;
                break;
            }
        }
        if (!served) {
            if (firstFailure)
                *firstFailure = quint32(set);
            return false;
        }
        // The next set of the same size (Gosper).
        const quint64 lowest = set & (~set + 1);
        const quint64 ripple = set + lowest;
        set = (((ripple ^ set) >> 2) / lowest) | ripple;
    }
    return true;
}

} // namespace wheel
