#pragma once

// Small helpers shared by the forecast tests: histories made in the test and
// generator values that make the core draw a chosen group.

#include "fakes.h"
#include "history/drawhistory.h"
#include "settings/ballranges.h"

#include <QList>
#include <QStringList>

#include <algorithm>

namespace forecasttest {

inline BallRanges fullRanges()
{
    return {{1, 1, 1, 1, 1, 1}, {33, 33, 33, 33, 33, 33}};
}

// Rows with these number texts, issue numbers counting up from 2007001.
inline void addRows(DrawHistory& history, const QStringList& groups)
{
    for (const QString& group : groups) {
        const QString issue = QString::number(2007001 + history.count());
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, group);
    }
}

// The generator value that makes nearest(v * range) + 1 give `number`, where
// cutting off the fraction would give the number below.
inline float valueFor(int number, int range)
{
    return std::max(0.0f, float(number) - 1.4f) / float(range);
}

// Queues the values of one candidate: each red drawn in the order given with
// the shortest stir, then the blue when there is one.
inline void queueGroup(ScriptedRandom& random, const QList<int>& reds, int blue = 0)
{
    for (int red : reds)
        random.queued.insert(random.queued.end(), {0.0f, valueFor(red, 33)});
    if (blue > 0)
        random.queued.insert(random.queued.end(), {0.0f, valueFor(blue, 16)});
}

} // namespace forecasttest
