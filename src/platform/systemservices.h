#pragma once

// The real clock, process end and random generator, for the running program.

#include "platform/services.h"

#include <cstdint>

class SystemClock final : public Clock {
public:
    QDateTime now() const override;
};

class SystemProcessControl final : public ProcessControl {
public:
    [[noreturn]] void endProcess(int exitCode) override;
};

// A 64-bit generator whose state Randomize stirs with a reading of the
// processor's time-stamp counter. Randomize mixes the previous state, a fixed
// odd step and the reading, so a clock that reads the same twice still moves
// the generator on: the redraw loops of the forecast depend on that.
class SystemRandom final : public RandomSource {
public:
    SystemRandom();
    void Randomize() override;
    float Rnd() override;

private:
    std::uint64_t m_state;
};
