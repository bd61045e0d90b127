#include "platform/eventpacer.h"

#include <algorithm>
#include <ctime>

EventPacer::EventPacer(const LetEventsRun& letEventsRun, qint64 stepsBetween)
    : m_letEventsRun(letEventsRun),
      m_stepsBetween(stepsBetween),
      m_lookEvery(std::max<qint64>(1, stepsBetween / 64)),
      m_since(threadTime())
{
}

void EventPacer::worked(qint64 steps)
{
    m_work += steps;
    m_sinceLook += steps;
    if (m_work < m_stepsBetween) {
        if (m_sinceLook < m_lookEvery)
            return;
        m_sinceLook = 0;
        if (threadTime() - m_since < MaximumPause)
            return;
    }
    pause();
}

void EventPacer::tick()
{
    if (threadTime() - m_since >= MaximumPause)
        pause();
}

void EventPacer::pause()
{
    if (m_letEventsRun)
        m_letEventsRun();
    m_work = 0;
    m_sinceLook = 0;
    m_since = threadTime();
}

qint64 EventPacer::threadTime()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return qint64(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
}
