#pragma once

// The real clock, process end and random generator, for the running program.

#include "platform/services.h"

#include <cstdint>
#include <functional>

class SystemClock final : public Clock {
public:
    QDateTime now() const override;
};

class SystemProcessControl final : public ProcessControl {
public:
    // `beforeEnd` runs whenever the process ends, right before it goes: there
    // the running program hands its clipboard over to the desktop.
    explicit SystemProcessControl(std::function<void()> beforeEnd = {});
    [[noreturn]] void endProcess(int exitCode) override;

private:
    std::function<void()> m_beforeEnd;
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
