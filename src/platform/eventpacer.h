#pragma once

// Lets pending window events run while a long computation goes on, on the
// thread of the windows. The computation counts its work in steps; events
// run after every `stepsBetween` steps, or sooner once the work has taken
// the thread 30 ms of processor time (work that first touches memory, or
// gives it back, may take long for its steps).

#include <QtGlobal>

#include <functional>

class EventPacer {
public:
    using LetEventsRun = std::function<void()>;

    static constexpr qint64 MaximumPause = 30'000'000; // nanoseconds of processor time

    // `letEventsRun` must outlive the pacer; it may be empty.
    explicit EventPacer(const LetEventsRun& letEventsRun, qint64 stepsBetween = qint64(1) << 16);

    void worked(qint64 steps);

    // After work that isn't counted in steps (memory given back): events
    // run if their time has come.
    void tick();

private:
    void pause();
    // The processor time of this thread, in nanoseconds.
    static qint64 threadTime();

    const LetEventsRun& m_letEventsRun;
    const qint64 m_stepsBetween;
    // The clock is looked at after every so many steps: reading it costs.
    qint64 m_lookEvery;
    qint64 m_work = 0;
    qint64 m_sinceLook = 0;
    qint64 m_since;
};
