#include "statistics/trendmodel.h"

#include "platform/textrules.h"

namespace trendcolumns {

int redOf(int column)
{
    return column >= firstRed && column < firstBlue ? column - firstRed + 1 : 0;
}

int blueOf(int column)
{
    return column >= firstBlue && column < firstIndicator ? column - firstBlue + 1 : 0;
}

int numberIndexOf(int column)
{
    return column >= firstRed && column < firstIndicator ? column - firstRed : -1;
}

Group groupOf(int column)
{
    if (const int red = redOf(column))
        return Group(RedZone1 + (red - 1) / trendchart::zoneSize);
    if (blueOf(column))
        return BlueGroup;
    return column == issue ? IssueGroup : IndicatorGroup;
}

bool endsGroup(int column)
{
    return column == count - 1 || groupOf(column) != groupOf(column + 1);
}

QString groupCaption(Group group)
{
    switch (group) {
    case RedZone1:
        return QStringLiteral("红球一区");
    case RedZone2:
        return QStringLiteral("红球二区");
    case RedZone3:
        return QStringLiteral("红球三区");
    case BlueGroup:
        return QStringLiteral("蓝球");
    default:
        return QString();
    }
}

int firstColumnOf(Group group)
{
    switch (group) {
    case IssueGroup:
        return issue;
    case RedZone1:
    case RedZone2:
    case RedZone3:
        return firstRed + (group - RedZone1) * trendchart::zoneSize;
    case BlueGroup:
        return firstBlue;
    default:
        return firstIndicator;
    }
}

int lastColumnOf(Group group)
{
    return group == IndicatorGroup ? count - 1 : firstColumnOf(Group(group + 1)) - 1;
}

} // namespace trendcolumns

namespace {

QString columnCaption(int column)
{
    using namespace trendcolumns;
    if (column == issue)
        return QStringLiteral("期号");
    if (const int red = redOf(column))
        return textrules::format00(double(red));
    if (const int blue = blueOf(column))
        return textrules::format00(double(blue));
    return trendchart::indicatorName(column - firstIndicator);
}

// The number that a number column stands for.
int numberOf(int column)
{
    return trendcolumns::redOf(column) + trendcolumns::blueOf(column);
}

} // namespace

TrendModel::TrendModel(const trendchart::Chart& chart, QObject* parent) : QAbstractTableModel(parent), m_chart(chart)
{
}

void TrendModel::setShown(int first, int count)
{
    beginResetModel();
    m_first = first;
    m_count = count;
    endResetModel();
}

void TrendModel::setShowOmission(bool show)
{
    if (show == m_showOmission)
        return;
    m_showOmission = show;
    if (m_count > 0)
        emit dataChanged(index(0, trendcolumns::firstRed), index(m_count - 1, trendcolumns::firstIndicator - 1));
}

int TrendModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_count;
}

int TrendModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : trendcolumns::count;
}

QVariant TrendModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_count || (role != Qt::DisplayRole && role != trendroles::CellKind))
        return {};
    const trendchart::Draw& draw = m_chart.draws[size_t(m_first + index.row())];
    const int column = index.column();
    const int number = trendcolumns::numberIndexOf(column);
    if (role == trendroles::CellKind) {
        if (column == trendcolumns::issue)
            return int(TrendCell::Issue);
        if (number < 0)
            return int(TrendCell::Indicator);
        return int(draw.has(number) ? TrendCell::Ball : TrendCell::Omission);
    }
    if (column == trendcolumns::issue)
        return draw.issue;
    if (number < 0)
        return draw.indicatorText(column - trendcolumns::firstIndicator);
    if (draw.has(number))
        return textrules::format00(double(numberOf(column)));
    return m_showOmission ? textrules::decimal(draw.omission[size_t(number)]) : QString();
}

QVariant TrendModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return section >= 0 && section < trendcolumns::count ? columnCaption(section) : QVariant();
    return section >= 0 && section < m_count ? m_chart.draws[size_t(m_first + section)].issue : QVariant();
}

Qt::ItemFlags TrendModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

TrendFooterModel::TrendFooterModel(QObject* parent) : QAbstractTableModel(parent) {}

void TrendFooterModel::setFooter(const trendchart::Footer& footer)
{
    m_footer = footer;
    emit dataChanged(index(0, 0), index(pickRow - 1, trendcolumns::count - 1));
}

void TrendFooterModel::clearPick()
{
    m_pick.clear();
    emit dataChanged(index(pickRow, 0), index(pickRow, trendcolumns::count - 1));
    emit pickChanged();
}

void TrendFooterModel::togglePick(int column)
{
    if (const int red = trendcolumns::redOf(column))
        m_pick.toggleRed(red);
    else if (const int blue = trendcolumns::blueOf(column))
        m_pick.toggleBlue(blue);
    else
        return;
    const QModelIndex cell = index(pickRow, column);
    emit dataChanged(cell, cell);
    emit pickChanged();
}

bool TrendFooterModel::picked(int column) const
{
    return m_pick.hasRed(trendcolumns::redOf(column)) || m_pick.hasBlue(trendcolumns::blueOf(column));
}

int TrendFooterModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : pickRow + 1;
}

int TrendFooterModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : trendcolumns::count;
}

QVariant TrendFooterModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int row = index.row();
    const int column = index.column();
    const int number = trendcolumns::numberIndexOf(column);
    const bool pickCell = row == pickRow && number >= 0;
    switch (role) {
    case Qt::DisplayRole:
        if (column == trendcolumns::issue)
            return row == pickRow ? QStringLiteral("选号") : trendchart::footerLineName(row);
        if (number < 0)
            return QString();
        if (pickCell)
            return textrules::format00(double(numberOf(column)));
        return textrules::decimal(trendchart::footerValue(m_footer, row, number));
    case Qt::CheckStateRole:
        if (pickCell)
            return picked(column) ? Qt::Checked : Qt::Unchecked;
        return {};
    case trendroles::CellKind:
        if (column == trendcolumns::issue)
            return int(TrendCell::LineCaption);
        return int(pickCell ? TrendCell::Pick : TrendCell::Statistic);
    default:
        return {};
    }
}

bool TrendFooterModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || index.row() != pickRow
        || trendcolumns::numberIndexOf(index.column()) < 0)
        return false;
    if ((value.toInt() == Qt::Checked) != picked(index.column()))
        togglePick(index.column());
    return true;
}

QVariant TrendFooterModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal || section < 0 || section >= trendcolumns::count)
        return {};
    return columnCaption(section);
}

Qt::ItemFlags TrendFooterModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    if (index.row() == pickRow && trendcolumns::numberIndexOf(index.column()) >= 0)
        return Qt::ItemIsEnabled | Qt::ItemIsUserCheckable;
    return Qt::ItemIsEnabled;
}
