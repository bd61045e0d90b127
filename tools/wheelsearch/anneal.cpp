#include "anneal.h"

#include "subsets.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace wheelsearch {

Annealer::Annealer(int points, wheel::Guarantee guarantee, std::vector<Block> blocks, std::uint64_t seed)
    : SearchBase(seed * 0x9E3779B97F4A7C15ull + 0x632BE59BD9B4E019ull),
      m_points(points),
      m_drawn(guarantee.drawn),
      m_held(guarantee.held),
      m_all((Block(1) << points) - 1),
      m_blocks(std::move(blocks))
{
    const std::size_t sets = m_binomial[points][m_drawn];
    m_count.assign(sets, 0);
    m_setOf.resize(sets);
    m_place.assign(sets, -1);
    std::uint64_t set = (std::uint64_t(1) << m_drawn) - 1;
    for (std::size_t rank = 0; rank < sets; ++rank) {
        m_setOf[rank] = std::uint32_t(set);
        const std::uint64_t lowest = set & (~set + 1);
        const std::uint64_t ripple = set + lowest;
        set = (((ripple ^ set) >> 2) / lowest) | ripple;
    }
    for (std::uint32_t rank = 0; rank < sets; ++rank)
        unserved(rank);
    for (Block block : m_blocks)
        add(block, +1);
}

template <class Visit> void Annealer::forServed(Block block, Visit&& visit) const
{
    for (int inside = m_held; inside <= m_drawn; ++inside) {
        forSubsets(block, inside, [&](std::uint32_t part) {
            forSubsets(m_all & ~block, m_drawn - inside, [&](std::uint32_t others) { visit(rank(part | others)); });
        });
    }
}

// The sets that `block` serves and block - out + in does not, each paired with
// one that the new block serves and the old did not: they share all but the
// point taken out and the point put in.
template <class Visit> void Annealer::forChanged(Block block, Block out, Block in, Visit&& visit) const
{
    const Block rest = block & ~out;
    const Block outside = m_all & ~block & ~in;
    forSubsets(rest, m_held - 1, [&](std::uint32_t inside) {
        forSubsets(outside, m_drawn - m_held,
                   [&](std::uint32_t others) { visit(rank(inside | out | others), rank(inside | in | others)); });
    });
}

void Annealer::unserved(std::uint32_t r)
{
    m_place[r] = std::int32_t(m_unserved.size());
    m_unserved.push_back(r);
}

void Annealer::served(std::uint32_t r)
{
    const std::int32_t at = m_place[r];
    m_place[m_unserved.back()] = at;
    m_unserved[std::size_t(at)] = m_unserved.back();
    m_unserved.pop_back();
    m_place[r] = -1;
}

void Annealer::add(Block block, int by)
{
    forServed(block, [&](std::uint32_t r) {
        if (by > 0) {
            if (m_count[r]++ == 0)
                served(r);
        } else if (--m_count[r] == 0) {
            unserved(r);
        }
    });
}

void Annealer::pickMove(int& index, Block& out, Block& in)
{
    const int blocks = int(m_blocks.size());
    if (!m_unserved.empty()) {
        const std::uint32_t set = m_setOf[m_unserved[random() % m_unserved.size()]];
        const int start = int(random() % std::uint64_t(blocks));
        for (int step = 0; step < blocks; ++step) {
            int i = start + step;
            if (i >= blocks)
                i -= blocks;
            if (std::popcount(m_blocks[std::size_t(i)] & set) == m_held - 1) {
                index = i;
                const Block block = m_blocks[std::size_t(i)];
                out = randomBit(block & ~set, random());
                in = randomBit(set & ~block, random());
                return;
            }
        }
    }
    index = int(random() % std::uint64_t(blocks));
    const Block block = m_blocks[std::size_t(index)];
    out = randomBit(block, random());
    in = randomBit(m_all & ~block, random());
}

bool Annealer::anneal(std::int64_t moves, double hot, double cold, std::chrono::steady_clock::time_point deadline)
{
    if (m_unserved.empty())
        return true;
    if (m_blocks.empty())
        return false;
    Cooling cooling(moves, hot, cold, deadline);
    for (std::int64_t move = 0; move < moves; ++move) {
        if (!cooling.before(move))
            return false;
        int index = 0;
        Block out = 0;
        Block in = 0;
        pickMove(index, out, in);
        const Block block = m_blocks[std::size_t(index)];
        m_lost.clear();
        m_gained.clear();
        int delta = 0;
        forChanged(block, out, in, [&](std::uint32_t lost, std::uint32_t gained) {
            m_lost.push_back(lost);
            m_gained.push_back(gained);
            delta += (m_count[lost] == 1) - (m_count[gained] == 0);
        });
        if (!cooling.takes(delta, [this] { return std::uint32_t(random() >> 32); }))
            continue;
        for (std::uint32_t r : m_lost) {
            if (--m_count[r] == 0)
                unserved(r);
        }
        for (std::uint32_t r : m_gained) {
            if (m_count[r]++ == 0)
                served(r);
        }
        m_blocks[std::size_t(index)] = (block & ~out) | in;
        if (m_unserved.empty())
            return true;
    }
    return false;
}

bool Annealer::weightedSearch(std::int64_t steps, int tenure)
{
    if (m_unserved.empty())
        return true;
    if (m_blocks.empty())
        return false;
    m_weight.assign(m_count.size(), 1);
    m_changedAt.assign(m_blocks.size(), -(std::int64_t(1) << 40));
    const auto moveCost = [&](Block block, Block out, Block in) {
        std::int64_t cost = 0;
        forChanged(block, out, in, [&](std::uint32_t lost, std::uint32_t gained) {
            cost += (m_count[lost] == 1 ? m_weight[lost] : 0);
            cost -= (m_count[gained] == 0 ? m_weight[gained] : 0);
        });
        return cost;
    };
    for (std::int64_t step = 0; step < steps; ++step) {
        const std::uint32_t set = m_setOf[m_unserved[random() % m_unserved.size()]];
        // The cheapest change among those not made lately; among all when
        // every one was.
        int bestIndex = -1;
        Block bestOut = 0;
        Block bestIn = 0;
        std::int64_t bestCost = 0;
        bool bestTabu = true;
        int ties = 0;
        for (int i = 0; i < int(m_blocks.size()); ++i) {
            const Block block = m_blocks[std::size_t(i)];
            if (std::popcount(block & set) != m_held - 1)
                continue;
            const bool tabu = step - m_changedAt[std::size_t(i)] < tenure;
            if (tabu && !bestTabu)
                continue;
            for (Block outs = block & ~set; outs; outs &= outs - 1) {
                const Block out = outs & (~outs + 1);
                for (Block ins = set & ~block; ins; ins &= ins - 1) {
                    const Block in = ins & (~ins + 1);
                    const std::int64_t cost = moveCost(block, out, in);
                    const bool better = bestIndex < 0 || (bestTabu && !tabu) || cost < bestCost;
                    if (better) {
                        ties = 1;
                    } else if (cost != bestCost || random() % std::uint64_t(++ties) != 0) {
                        continue;
                    }
                    bestIndex = i;
                    bestOut = out;
                    bestIn = in;
                    bestCost = cost;
                    bestTabu = tabu;
                }
            }
        }
        if (bestIndex < 0) {
            // Every such change is barred: any block at all, any change.
            bestIndex = int(random() % m_blocks.size());
            bestOut = randomBit(m_blocks[std::size_t(bestIndex)], random());
            bestIn = randomBit(m_all & ~m_blocks[std::size_t(bestIndex)], random());
            bestCost = 1;
        }
        const Block block = m_blocks[std::size_t(bestIndex)];
        forChanged(block, bestOut, bestIn, [&](std::uint32_t lost, std::uint32_t gained) {
            if (--m_count[lost] == 0)
                unserved(lost);
            if (m_count[gained]++ == 0)
                served(gained);
        });
        m_blocks[std::size_t(bestIndex)] = (block & ~bestOut) | bestIn;
        m_changedAt[std::size_t(bestIndex)] = step;
        if (m_unserved.empty())
            return true;
        if (bestCost >= 0) {
            for (std::uint32_t r : m_unserved)
                ++m_weight[r];
        }
    }
    return false;
}

void Annealer::dropWeakest()
{
    if (m_blocks.empty())
        return;
    int best = 0;
    int bestLoss = -1;
    int ties = 0;
    for (int i = 0; i < int(m_blocks.size()); ++i) {
        int loss = 0;
        forServed(m_blocks[std::size_t(i)], [&](std::uint32_t r) { loss += m_count[r] == 1; });
        if (bestLoss < 0 || loss < bestLoss) {
            best = i;
            bestLoss = loss;
            ties = 1;
        } else if (loss == bestLoss && random() % std::uint64_t(++ties) == 0) {
            best = i;
        }
    }
    add(m_blocks[std::size_t(best)], -1);
    m_blocks[std::size_t(best)] = m_blocks.back();
    m_blocks.pop_back();
}

void Annealer::dropRandom()
{
    if (m_blocks.empty())
        return;
    const std::size_t i = random() % m_blocks.size();
    add(m_blocks[i], -1);
    m_blocks[i] = m_blocks.back();
    m_blocks.pop_back();
}

} // namespace wheelsearch
