#pragma once

// The trend chart as table models for the view: TrendModel holds one row per
// shown draw, TrendFooterModel the statistics under it and the pick row. Both
// have the same columns, so that the footer stands under the number it
// counts. Every cell carries its text as display text (the number, the
// omission, the indicator), which is what a screen reader reads; the kind of
// cell tells the painter how to draw it.

#include "statistics/trendchart.h"
#include "statistics/trendpick.h"

#include <QAbstractTableModel>

namespace trendcolumns {

constexpr int issue = 0;
constexpr int firstRed = 1;
constexpr int firstBlue = firstRed + trendchart::redCount;
constexpr int firstIndicator = firstBlue + trendchart::blueCount;
constexpr int count = firstIndicator + trendchart::indicatorCount;

// The number of a red or blue column (1 to 33, 1 to 16), else 0.
int redOf(int column);
int blueOf(int column);
// The place of a number column in Draw::omission and the footer, else -1.
int numberIndexOf(int column);

// The groups of columns, left to right: the issue, the three red zones, the
// blues, the indicators. A line stands between two groups.
enum Group { IssueGroup, RedZone1, RedZone2, RedZone3, BlueGroup, IndicatorGroup };
Group groupOf(int column);
bool endsGroup(int column);
// The caption over the columns of a group ("红球一区"), empty for the issue
// and the indicators, whose column captions stand alone.
QString groupCaption(Group group);
int firstColumnOf(Group group);
int lastColumnOf(Group group);

} // namespace trendcolumns

namespace trendroles {
// The kind of cell, a TrendCell.
constexpr int CellKind = Qt::UserRole + 1;
} // namespace trendroles

// An issue number, a drawn number, an omission, an indicator, the caption
// of a footer line, a footer value, a number of the pick row.
enum class TrendCell { Issue, Ball, Omission, Indicator, LineCaption, Statistic, Pick };

class TrendModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit TrendModel(const trendchart::Chart& chart, QObject* parent = nullptr);

    // Shows draws[first] to draws[first + count - 1].
    void setShown(int first, int count);
    int firstShown() const { return m_first; }
    // Whether undrawn number cells show their omission or stay empty.
    void setShowOmission(bool show);
    bool showsOmission() const { return m_showOmission; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    const trendchart::Chart& m_chart;
    int m_first = 0;
    int m_count = 0;
    bool m_showOmission = true;
};

class TrendFooterModel : public QAbstractTableModel {
    Q_OBJECT

public:
    // The four statistics lines, then the pick row.
    static constexpr int pickRow = trendchart::footerLineCount;

    explicit TrendFooterModel(QObject* parent = nullptr);

    void setFooter(const trendchart::Footer& footer);
    const TrendPick& pick() const { return m_pick; }
    void clearPick();
    // Toggles the number of a pick cell; other cells are left alone.
    void togglePick(int column);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    // Qt::CheckStateRole on a pick cell picks or drops its number.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    void pickChanged();

private:
    bool picked(int column) const;

    trendchart::Footer m_footer;
    TrendPick m_pick;
};
