#pragma once

#include <array>
#include <cstdint>

namespace wheelsearch {

// Calls `visit` with every subset of `size` points of `set`.
template <class Visit> inline void forSubsets(std::uint32_t set, int size, Visit&& visit)
{
    std::array<std::uint32_t, 32> bits{};
    int count = 0;
    for (std::uint32_t rest = set; rest; rest &= rest - 1)
        bits[count++] = rest & (~rest + 1);
    if (size > count)
        return;
    if (size == 0) {
        visit(std::uint32_t(0));
        return;
    }
    std::array<int, 8> pick{};
    for (int i = 0; i < size; ++i)
        pick[i] = i;
    while (true) {
        std::uint32_t subset = 0;
        for (int i = 0; i < size; ++i)
            subset |= bits[pick[i]];
        visit(subset);
        int i = size - 1;
        while (i >= 0 && pick[i] == count - size + i)
            --i;
        if (i < 0)
            return;
        ++pick[i];
        for (int j = i + 1; j < size; ++j)
            pick[j] = pick[j - 1] + 1;
    }
}


} // namespace wheelsearch
