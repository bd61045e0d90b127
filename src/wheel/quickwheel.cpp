#include "wheel/quickwheel.h"

#include <algorithm>
#include <bit>

namespace wheel {

namespace {

class Greedy {
public:
    Greedy(int points, Guarantee guarantee, quint64 seed)
        : m_points(points),
          m_all(points >= 32 ? ~quint32(0) : (quint32(1) << points) - 1),
          m_drawn(guarantee.drawn),
          m_held(guarantee.held),
          m_served(std::size_t(binomial(points, guarantee.drawn)), 0),
          m_state(seed * 0x9E3779B97F4A7C15ull + 1)
    {
    }

    std::vector<Block> run(std::vector<Block> blocks)
    {
        for (Block block : blocks)
            mark(block, +1);
        const quint64 end = quint64(1) << m_points;
        for (quint64 set = (quint64(1) << m_drawn) - 1; set < end; set = nextOfSize(set)) {
            if (m_served[colexRank(quint32(set))])
                continue;
            // Begin on `held` of the set's points, then fill up.
            quint32 block = 0;
            quint32 rest = quint32(set);
            for (int i = 0; i < m_held; ++i) {
                const int skip = int(random() % quint64(std::popcount(rest)));
                quint32 bit = rest;
                for (int j = 0; j < skip; ++j)
                    bit &= bit - 1;
                bit &= ~bit + 1;
                block |= bit;
                rest &= ~bit;
            }
            while (std::popcount(block) < TicketReds)
                block |= bestPoint(block);
            mark(block, +1);
            blocks.push_back(block);
        }
        dropSpare(blocks);
        return blocks;
    }

private:
    quint64 random()
    {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 7;
        m_state ^= m_state << 17;
        return m_state;
    }

    // The sets that a block holding `part` serves once `point` is added and
    // did not serve before: they hold the point and held - 1 points of part.
    int gain(quint32 part, quint32 point)
    {
        int gained = 0;
        const quint32 outside = m_all & ~part & ~point;
        forSubsets(part, m_held - 1, [&](quint32 inside) {
            forSubsets(outside, m_drawn - m_held, [&](quint32 others) {
                if (!m_served[colexRank(inside | point | others)])
                    ++gained;
            });
        });
        return gained;
    }

    quint32 bestPoint(quint32 part)
    {
        quint32 best = 0;
        int bestGain = -1;
        int ties = 0;
        for (quint32 rest = m_all & ~part; rest; rest &= rest - 1) {
            const quint32 point = rest & (~rest + 1);
            const int gained = gain(part, point);
            if (gained > bestGain) {
                best = point;
                bestGain = gained;
                ties = 1;
            } else if (gained == bestGain && random() % quint64(++ties) == 0) {
                best = point;
            }
        }
        return best;
    }

    // Every set a block serves: it holds at least `held` of the block's points.
    template <class Visit> void forServed(quint32 block, Visit&& visit)
    {
        for (int inside = m_held; inside <= m_drawn; ++inside) {
            forSubsets(block, inside, [&](quint32 part) {
                forSubsets(m_all & ~block, m_drawn - inside, [&](quint32 others) { visit(part | others); });
            });
        }
    }

    void mark(quint32 block, int by)
    {
        forServed(block, [&](quint32 set) { m_served[colexRank(set)] = quint16(m_served[colexRank(set)] + by); });
    }

    void dropSpare(std::vector<Block>& blocks)
    {
        for (std::size_t i = blocks.size(); i-- > 0;) {
            bool needed = false;
            forServed(blocks[i], [&](quint32 set) { needed = needed || m_served[colexRank(set)] == 1; });
            if (!needed) {
                mark(blocks[i], -1);
                blocks.erase(blocks.begin() + std::ptrdiff_t(i));
            }
        }
    }

    int m_points;
    quint32 m_all;
    int m_drawn;
    int m_held;
    std::vector<quint16> m_served; // how many blocks serve each set, by rank
    quint64 m_state;
};

} // namespace

Design greedyDesign(int points, Guarantee guarantee, quint64 seed, const std::vector<Block>& start)
{
    Design design{points, guarantee, {}};
    if (points < TicketReds || points > 26 || guarantee.held < 1 || guarantee.held > guarantee.drawn ||
        guarantee.drawn > TicketReds)
        return design;
    if (guarantee.drawn > points)
        return design;
    design.blocks = Greedy(points, guarantee, seed).run(start);
    return design;
}

Design withoutLastPoint(const Design& design)
{
    Design smaller{design.points - 1, design.guarantee, {}};
    const Block last = Block(1) << (design.points - 1);
    for (Block block : design.blocks) {
        if (block & last) {
            block &= ~last;
            block |= ~block & (block + 1); // the lowest point it lacks, below the last: it holds five
        }
        if (std::find(smaller.blocks.begin(), smaller.blocks.end(), block) == smaller.blocks.end())
            smaller.blocks.push_back(block);
    }
    return smaller;
}

bool serves(Guarantee given, Guarantee wanted)
{
    return given.drawn <= wanted.drawn && given.held >= wanted.held;
}

} // namespace wheel
