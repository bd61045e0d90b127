#pragma once

// What the benchmarks share: made-up draws and the median of repeated runs.

#include "history/drawhistory.h"

#include <QRandomGenerator>
#include <QString>

#include <algorithm>
#include <vector>

namespace benchsupport {

// A number group text of six distinct ascending reds, a blue and a second
// blue: "00", or now and then a second blue of its own when asked for.
inline QString randomGroup(QRandomGenerator& random, bool someSecondBlues = false)
{
    std::vector<int> reds;
    while (reds.size() < 6) {
        const int red = int(random.bounded(1, 34));
        if (std::find(reds.begin(), reds.end(), red) == reds.end())
            reds.push_back(red);
    }
    std::sort(reds.begin(), reds.end());
    QString group;
    for (int red : reds)
        group += QString::asprintf("%02d ", red);
    const int secondBlue = someSecondBlues && random.bounded(0, 4) == 0 ? int(random.bounded(1, 17)) : 0;
    return group + QString::asprintf("%02d %02d", int(random.bounded(1, 17)), secondBlue);
}

// Appends `count` made-up draws to the history, issues 2003001 on in order.
inline void addRandomDraws(DrawHistory& history, int count, QRandomGenerator& random)
{
    for (int i = 0; i < count; ++i) {
        const QString issue = QString::number(2003001 + i);
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, randomGroup(random));
    }
}

inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace benchsupport
