#include "fakes.h"

float ScriptedRandom::Rnd()
{
    if (!queued.empty()) {
        const float value = queued.front();
        queued.pop_front();
        return value;
    }
    // splitmix64, top 24 bits
    quint64 z = (m_state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    z ^= z >> 31;
    return float(z >> 40) * (1.0f / 16777216.0f);
}
