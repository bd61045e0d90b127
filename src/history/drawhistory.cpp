#include "history/drawhistory.h"

#include "platform/runtimefailure.h"

#include <algorithm>
#include <numeric>

namespace {

QString foldedKey(const QString& key)
{
    return key.toCaseFolded();
}

} // namespace

DrawHistory::DrawHistory(QObject* parent) : QAbstractTableModel(parent) {}

bool DrawHistory::add(const QString& key, const QString& text)
{
    const QString folded = foldedKey(key);
    if (m_keys.contains(folded))
        return false;
    m_keys.insert(folded);
    const int row = count();
    if (m_batchDepth > 0) {
        m_rows.push_back(Row{text, key, {}});
        return true;
    }
    beginInsertRows(QModelIndex(), row, row);
    m_rows.push_back(Row{text, key, {}});
    m_announcedRows = count();
    endInsertRows();
    return true;
}

void DrawHistory::removeAt(int row)
{
    rowAt(row);
    announcePending();
    beginRemoveRows(QModelIndex(), row, row);
    m_keys.remove(foldedKey(m_rows[size_t(row)].key));
    m_rows.erase(m_rows.begin() + row);
    m_announcedRows = count();
    endRemoveRows();
}

void DrawHistory::clear()
{
    announcePending();
    beginResetModel();
    m_rows.clear();
    m_keys.clear();
    m_announcedRows = 0;
    endResetModel();
}

const DrawHistory::Row& DrawHistory::rowAt(int row) const
{
    if (row < 0 || row >= count())
        throw RuntimeError(RuntimeError::IndexOutOfBounds);
    return m_rows[size_t(row)];
}

DrawHistory::Row& DrawHistory::rowAt(int row)
{
    if (row < 0 || row >= count())
        throw RuntimeError(RuntimeError::IndexOutOfBounds);
    return m_rows[size_t(row)];
}

void DrawHistory::checkSubItem(int subItem)
{
    if (subItem < 1 || subItem > SubItemCount)
        throw RuntimeError(RuntimeError::IndexOutOfBounds);
}

QString DrawHistory::text(int row) const
{
    return rowAt(row).text;
}

void DrawHistory::setText(int row, const QString& text)
{
    rowAt(row).text = text;
    cellChanged(row, 0);
}

QString DrawHistory::key(int row) const
{
    return rowAt(row).key;
}

bool DrawHistory::setKey(int row, const QString& key)
{
    Row& target = rowAt(row);
    const QString folded = foldedKey(key);
    const QString current = foldedKey(target.key);
    if (folded == current) {
        target.key = key;
        return true;
    }
    if (m_keys.contains(folded))
        return false;
    m_keys.remove(current);
    m_keys.insert(folded);
    target.key = key;
    return true;
}

QString DrawHistory::subItem(int row, int subItem) const
{
    checkSubItem(subItem);
    return rowAt(row).subItems[size_t(subItem - 1)];
}

void DrawHistory::setSubItem(int row, int subItem, const QString& value)
{
    checkSubItem(subItem);
    rowAt(row).subItems[size_t(subItem - 1)] = value;
    cellChanged(row, subItem);
}

QString DrawHistory::cell(int row, int column) const
{
    return column == 0 ? text(row) : subItem(row, column);
}

void DrawHistory::setSorted(bool sorted)
{
    m_sorted = sorted;
    if (!sorted)
        return;
    if (m_sortKey != 0)
        checkSubItem(m_sortKey);
    announcePending();

    const auto cellText = [this](const Row& row) -> const QString& {
        return m_sortKey == 0 ? row.text : row.subItems[size_t(m_sortKey - 1)];
    };
    std::vector<int> order(m_rows.size());
    std::iota(order.begin(), order.end(), 0);
    const bool descending = m_sortOrder == 1;
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const int c = QString::compare(cellText(m_rows[size_t(a)]), cellText(m_rows[size_t(b)]),
                                       Qt::CaseInsensitive);
        return descending ? c > 0 : c < 0;
    });

    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<Row> sortedRows;
    sortedRows.reserve(m_rows.size());
    std::vector<int> newPosition(m_rows.size());
    for (size_t i = 0; i < order.size(); ++i) {
        sortedRows.push_back(std::move(m_rows[size_t(order[i])]));
        newPosition[size_t(order[i])] = int(i);
    }
    m_rows = std::move(sortedRows);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& index : before)
        after.append(index.isValid() ? this->index(newPosition[size_t(index.row())], index.column())
                                     : QModelIndex());
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void DrawHistory::columnClick(int columnHeaderIndex)
{
    sortOnce(columnHeaderIndex - 1, m_sortOrder == 1 ? 0 : 1);
}

void DrawHistory::sortOnce(int column, int order)
{
    setSortKey(column);
    setSortOrder(order);
    setSorted(true);
    setSorted(false);
}

void DrawHistory::cellChanged(int row, int column)
{
    if (row >= m_announcedRows)
        return; // the views learn of the row, cells and all, when it is announced
    if (m_batchDepth > 0) {
        m_changedFirst = m_changedFirst < 0 ? row : std::min(m_changedFirst, row);
        m_changedLast = std::max(m_changedLast, row);
        return;
    }
    const QModelIndex changed = index(row, column);
    emit dataChanged(changed, changed, {Qt::DisplayRole});
}

void DrawHistory::announcePending()
{
    if (count() > m_announcedRows) {
        beginInsertRows(QModelIndex(), m_announcedRows, count() - 1);
        m_announcedRows = count();
        endInsertRows();
    }
    if (m_changedFirst >= 0) {
        const int first = m_changedFirst;
        const int last = m_changedLast;
        m_changedFirst = m_changedLast = -1;
        emit dataChanged(index(first, 0), index(last, ColumnCount - 1), {Qt::DisplayRole});
    }
}

DrawHistory::Batch::Batch(DrawHistory& history) : m_history(history)
{
    ++m_history.m_batchDepth;
}

DrawHistory::Batch::~Batch()
{
    if (--m_history.m_batchDepth == 0)
        m_history.announcePending();
}

int DrawHistory::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_announcedRows;
}

int DrawHistory::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant DrawHistory::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= m_announcedRows)
        return {};
    const Row& row = m_rows[size_t(index.row())];
    return index.column() == 0 ? row.text : row.subItems[size_t(index.column() - 1)];
}

QVariant DrawHistory::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const std::array<QString, ColumnCount> headers = {
        QStringLiteral("彩票期号"), QStringLiteral("彩票号码"), QStringLiteral("红1"),
        QStringLiteral("红2"),     QStringLiteral("红3"),     QStringLiteral("红4"),
        QStringLiteral("红5"),     QStringLiteral("红6"),     QStringLiteral("蓝1"),
        QStringLiteral("蓝2"),     QString(),
    };
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return {};
    return headers[size_t(section)];
}

Qt::ItemFlags DrawHistory::flags(const QModelIndex& index) const
{
    // Cells can be selected but never edited in place.
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}
