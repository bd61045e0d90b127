#pragma once

// The ways the statistics open the chart window: the frequency of one ball in
// setting mode, shared by the main window's "频率统计" and the range window's
// "设置", and the other statistics with the ball panel hidden.

#include "statistics/charttable.h"

#include <QString>

#include <optional>

class AppContext;
class DrawHistory;
class QWidget;

namespace chartcommands {

// Shows the frequency chart of one ball (1 to 8) with its panel, modally. The
// history is left sorted by that ball, descending. Confirming the panel sets
// the ball's list positions and, for balls 1 to 6, its range.
void showBallChart(AppContext& context, DrawHistory& history, int ball, QWidget* parent);

// Shows a chart with the ball panel hidden, modally. `text1` is what the
// statistic leaves in the panel's ball field, which nobody reads then.
void showChart(AppContext& context, const ChartTable& table, const QString& caption,
               const std::optional<QString>& text1, QWidget* parent);

} // namespace chartcommands
