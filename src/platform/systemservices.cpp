#include "platform/systemservices.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <utility>

#if defined(__x86_64__) || defined(__i386__)
#include <x86intrin.h>
#endif

namespace {

constexpr std::uint64_t goldenStep = 0x9E3779B97F4A7C15ull;

// The finaliser of splitmix64: a bijection that spreads every input bit.
std::uint64_t mix(std::uint64_t z)
{
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

std::uint64_t clockReading()
{
#if defined(__x86_64__) || defined(__i386__)
    return __rdtsc();
#else
    return std::uint64_t(std::chrono::steady_clock::now().time_since_epoch().count());
#endif
}

} // namespace

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTime();
}

SystemProcessControl::SystemProcessControl(std::function<void()> beforeEnd) : m_beforeEnd(std::move(beforeEnd))
{
}

void SystemProcessControl::endProcess(int exitCode)
{
    if (m_beforeEnd)
        m_beforeEnd();
    std::fflush(nullptr);
    std::_Exit(exitCode);
}

SystemRandom::SystemRandom()
    : m_state(mix(clockReading()
                  ^ std::uint64_t(std::chrono::system_clock::now().time_since_epoch().count())))
{
}

void SystemRandom::Randomize()
{
    m_state = mix(m_state + goldenStep + clockReading());
}

float SystemRandom::Rnd()
{
    m_state += goldenStep;
    // The top 24 bits make a float in [0, 1) with every value exact.
    return float(mix(m_state) >> 40) * (1.0f / 16777216.0f);
}
