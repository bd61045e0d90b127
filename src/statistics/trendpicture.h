#pragma once

// The whole trend chart as one picture: the column captions, every row of
// the chart and every row of its footer, not only what the window has
// scrolled into view. The picture is painted in strips and kept with a
// table of colours, one byte a pixel, so that all the draws of a long
// history fit in memory.

#include <QImage>

#include <functional>

class QAbstractItemModel;
struct TrendLook;

namespace trendpicture {

// A null image when the picture can't be held in memory. `pending` runs
// between strips, so that the window stays painted while a long chart is
// drawn.
QImage paint(const TrendLook& look, const QAbstractItemModel& chart, const QAbstractItemModel& footer,
             const std::function<void()>& pending = {});

// Writes the picture as PNG; the file is replaced only when all is written.
bool savePng(const QImage& picture, const QString& path);

} // namespace trendpicture
