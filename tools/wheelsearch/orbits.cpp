#include "orbits.h"

#include "subsets.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace wheelsearch {

Group rotationGroup(int points, Rotation rotation)
{
    const int moving = points - rotation.fixed;
    const int cycle = rotation.cycle;
    if (cycle < 2 || rotation.fixed < 0 || moving < cycle || moving % cycle != 0)
        return {};
    Group group(static_cast<std::size_t>(cycle));
    for (int times = 0; times < cycle; ++times) {
        for (int point = 0; point < 32; ++point) {
            group[std::size_t(times)][std::size_t(point)] =
                std::int8_t(point < moving ? point / cycle * cycle + (point % cycle + times) % cycle : point);
        }
    }
    return group;
}

Group affineGroup(int points, int prime, int order)
{
    if (prime < 3 || prime > points || order < 1 || (prime - 1) % order != 0)
        return {};
    for (int divisor = 2; divisor * divisor <= prime; ++divisor) {
        if (prime % divisor == 0)
            return {};
    }
    // The powers of the first unit whose order is the one wanted.
    std::vector<int> multipliers{1};
    for (int unit = 2; unit < prime && int(multipliers.size()) != order; ++unit) {
        multipliers.assign(1, 1);
        for (int power = unit; power != 1; power = power * unit % prime)
            multipliers.push_back(power);
    }
    Group group;
    for (int multiplier : multipliers) {
        for (int shift = 0; shift < prime; ++shift) {
            Permutation map{};
            for (int point = 0; point < 32; ++point)
                map[std::size_t(point)] = std::int8_t(point < prime ? (multiplier * point + shift) % prime : point);
            group.push_back(map);
        }
    }
    return group;
}

OrbitAnnealer::OrbitAnnealer(int points, wheel::Guarantee guarantee, Group group, std::uint64_t seed)
    : SearchBase(seed * 0x9E3779B97F4A7C15ull + 0x2545F4914F6CDD1Dull),
      m_points(points),
      m_drawn(guarantee.drawn),
      m_held(guarantee.held),
      m_all((Block(1) << points) - 1)
{
    m_images.resize(group.size());
    for (std::size_t element = 0; element < group.size(); ++element) {
        for (int byte = 0; byte < 3; ++byte) {
            for (int value = 0; value < 256; ++value) {
                std::uint32_t image = 0;
                for (int bit = 0; bit < 8; ++bit) {
                    if (value & (1 << bit))
                        image |= std::uint32_t(1) << group[element][std::size_t(byte * 8 + bit)];
                }
                m_images[element][std::size_t(byte)][std::size_t(value)] = image;
            }
        }
    }
    // The orbits of the drawn sets.
    const std::size_t sets = m_binomial[points][m_drawn];
    m_orbitOf.assign(sets, -1);
    std::uint64_t set = (std::uint64_t(1) << m_drawn) - 1;
    for (std::size_t r = 0; r < sets; ++r) {
        if (m_orbitOf[r] < 0) {
            const auto orbit = std::int32_t(m_orbitSet.size());
            m_orbitSet.push_back(Block(set));
            for (std::size_t element = 0; element < m_images.size(); ++element)
                m_orbitOf[rank(image(element, Block(set)))] = orbit;
        }
        const std::uint64_t lowest = set & (~set + 1);
        const std::uint64_t ripple = set + lowest;
        set = (((ripple ^ set) >> 2) / lowest) | ripple;
    }
    m_count.assign(m_orbitSet.size(), 0);
    m_place.assign(m_orbitSet.size(), -1);
    for (std::int32_t orbit = 0; orbit < std::int32_t(m_orbitSet.size()); ++orbit) {
        m_place[std::size_t(orbit)] = std::int32_t(m_unserved.size());
        m_unserved.push_back(orbit);
    }
}

Block OrbitAnnealer::image(std::size_t element, Block set) const
{
    const auto& table = m_images[element];
    return table[0][set & 0xFF] | table[1][(set >> 8) & 0xFF] | table[2][(set >> 16) & 0xFF];
}

bool OrbitAnnealer::fullOrbit(Block block) const
{
    for (std::size_t element = 1; element < m_images.size(); ++element) {
        if (image(element, block) == block)
            return false;
    }
    return true;
}

template <class Visit> void OrbitAnnealer::forServed(Block block, Visit&& visit) const
{
    for (int inside = m_held; inside <= m_drawn; ++inside) {
        forSubsets(block, inside, [&](std::uint32_t part) {
            forSubsets(m_all & ~block, m_drawn - inside,
                       [&](std::uint32_t others) { visit(m_orbitOf[rank(part | others)]); });
        });
    }
}

template <class Visit> void OrbitAnnealer::forChanged(Block block, Block out, Block in, Visit&& visit) const
{
    const Block rest = block & ~out;
    const Block outside = m_all & ~block & ~in;
    forSubsets(rest, m_held - 1, [&](std::uint32_t inside) {
        forSubsets(outside, m_drawn - m_held, [&](std::uint32_t others) {
            visit(m_orbitOf[rank(inside | out | others)], m_orbitOf[rank(inside | in | others)]);
        });
    });
}

void OrbitAnnealer::add(Block block, int by)
{
    forServed(block, [&](std::int32_t orbit) {
        const auto o = std::size_t(orbit);
        if (by > 0) {
            if (m_count[o]++ == 0) {
                const std::int32_t at = m_place[o];
                m_place[std::size_t(m_unserved.back())] = at;
                m_unserved[std::size_t(at)] = m_unserved.back();
                m_unserved.pop_back();
                m_place[o] = -1;
            }
        } else if (--m_count[o] == 0) {
            m_place[o] = std::int32_t(m_unserved.size());
            m_unserved.push_back(orbit);
        }
    });
}

Block OrbitAnnealer::randomFullBlock()
{
    while (true) {
        Block block = 0;
        while (std::popcount(block) < wheel::TicketReds)
            block |= Block(1) << (random() % std::uint64_t(m_points));
        if (fullOrbit(block))
            return block;
    }
}

void OrbitAnnealer::randomStart(int representatives)
{
    for (Block block : m_blocks)
        add(block, -1);
    m_blocks.clear();
    for (int i = 0; i < representatives; ++i) {
        m_blocks.push_back(randomFullBlock());
        add(m_blocks.back(), +1);
    }
}

bool OrbitAnnealer::startFrom(const std::vector<Block>& design)
{
    std::vector<Block> left = design;
    std::sort(left.begin(), left.end());
    std::vector<Block> representatives;
    while (!left.empty()) {
        const Block block = left.front();
        if (!fullOrbit(block))
            return false;
        for (std::size_t element = 0; element < m_images.size(); ++element) {
            const auto found = std::lower_bound(left.begin(), left.end(), image(element, block));
            if (found == left.end() || *found != image(element, block))
                return false;
            left.erase(found);
        }
        representatives.push_back(block);
    }
    for (Block block : m_blocks)
        add(block, -1);
    m_blocks = representatives;
    for (Block block : m_blocks)
        add(block, +1);
    return true;
}

bool OrbitAnnealer::anneal(std::int64_t moves, double hot, double cold, std::chrono::steady_clock::time_point deadline)
{
    if (m_unserved.empty())
        return true;
    if (m_blocks.empty())
        return false;
    Cooling cooling(moves, hot, cold, deadline);
    const int blocks = int(m_blocks.size());
    for (std::int64_t move = 0; move < moves; ++move) {
        if (!cooling.before(move))
            return false;
        // A block that holds one point too few of some image of an unserved set.
        Block set = m_orbitSet[std::size_t(m_unserved[random() % m_unserved.size()])];
        set = image(random() % m_images.size(), set);
        int index = -1;
        const int start = int(random() % std::uint64_t(blocks));
        for (int step = 0; step < blocks; ++step) {
            const int i = start + step < blocks ? start + step : start + step - blocks;
            if (std::popcount(m_blocks[std::size_t(i)] & set) == m_held - 1) {
                index = i;
                break;
            }
        }
        Block out = 0;
        Block in = 0;
        if (index >= 0) {
            out = randomBit(m_blocks[std::size_t(index)] & ~set, random());
            in = randomBit(set & ~m_blocks[std::size_t(index)], random());
        } else {
            index = int(random() % std::uint64_t(blocks));
            out = randomBit(m_blocks[std::size_t(index)], random());
            in = randomBit(m_all & ~m_blocks[std::size_t(index)], random());
        }
        const Block block = m_blocks[std::size_t(index)];
        const Block changed = (block & ~out) | in;
        if (!fullOrbit(changed))
            continue;
        m_lost.clear();
        m_gained.clear();
        forChanged(block, out, in, [&](std::int32_t lost, std::int32_t gained) {
            m_lost.push_back(lost);
            m_gained.push_back(gained);
        });
        m_zeroed.clear();
        m_revived.clear();
        for (std::int32_t orbit : m_lost) {
            if (--m_count[std::size_t(orbit)] == 0)
                m_zeroed.push_back(orbit);
        }
        for (std::int32_t orbit : m_gained) {
            if (m_count[std::size_t(orbit)]++ == 0)
                m_revived.push_back(orbit);
        }
        const int delta = int(m_zeroed.size()) - int(m_revived.size());
        if (!cooling.takes(delta, [this] { return std::uint32_t(random() >> 32); })) {
            for (std::int32_t orbit : m_gained)
                --m_count[std::size_t(orbit)];
            for (std::int32_t orbit : m_lost)
                ++m_count[std::size_t(orbit)];
            continue;
        }
        for (std::int32_t orbit : m_zeroed) {
            const auto o = std::size_t(orbit);
            if (m_count[o] == 0 && m_place[o] < 0) {
                m_place[o] = std::int32_t(m_unserved.size());
                m_unserved.push_back(orbit);
            }
        }
        for (std::int32_t orbit : m_revived) {
            const auto o = std::size_t(orbit);
            if (m_count[o] > 0 && m_place[o] >= 0) {
                const std::int32_t at = m_place[o];
                m_place[std::size_t(m_unserved.back())] = at;
                m_unserved[std::size_t(at)] = m_unserved.back();
                m_unserved.pop_back();
                m_place[o] = -1;
            }
        }
        m_blocks[std::size_t(index)] = changed;
        if (m_unserved.empty())
            return true;
    }
    return false;
}

void OrbitAnnealer::dropWeakest()
{
    if (m_blocks.empty())
        return;
    std::vector<std::uint32_t> hits(m_orbitSet.size(), 0);
    std::vector<std::int32_t> touched;
    int best = 0;
    int bestLoss = -1;
    for (int i = 0; i < int(m_blocks.size()); ++i) {
        touched.clear();
        forServed(m_blocks[std::size_t(i)], [&](std::int32_t orbit) {
            if (hits[std::size_t(orbit)]++ == 0)
                touched.push_back(orbit);
        });
        int loss = 0;
        for (std::int32_t orbit : touched) {
            loss += m_count[std::size_t(orbit)] == hits[std::size_t(orbit)];
            hits[std::size_t(orbit)] = 0;
        }
        if (bestLoss < 0 || loss < bestLoss || (loss == bestLoss && random() % 2 == 0)) {
            best = i;
            bestLoss = loss;
        }
    }
    add(m_blocks[std::size_t(best)], -1);
    m_blocks[std::size_t(best)] = m_blocks.back();
    m_blocks.pop_back();
}

std::vector<Block> OrbitAnnealer::design() const
{
    std::vector<Block> blocks;
    for (Block block : m_blocks) {
        for (std::size_t element = 0; element < m_images.size(); ++element)
            blocks.push_back(image(element, block));
    }
    std::sort(blocks.begin(), blocks.end());
    blocks.erase(std::unique(blocks.begin(), blocks.end()), blocks.end());
    return blocks;
}

} // namespace wheelsearch
