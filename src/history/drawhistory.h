#pragma once

// The draw history: the one model of the rows that the main list shows and
// that every part of the program reads and writes as text. A row is one draw:
// its text is the issue number, its key "A" and the issue number, sub-item 1
// the number group text, sub-items 2 to 9 that group's eight tokens and
// sub-item 10 the scratch cell of the statistics. Row order is the only order
// there is: rows are appended at the end and move only when a sort is asked
// for, and then they stay where the sort put them.

#include <QAbstractTableModel>
#include <QSet>
#include <QString>

#include <array>
#include <vector>

class DrawHistory : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int SubItemCount = 10;
    static constexpr int ColumnCount = SubItemCount + 1; // the row text, then the sub-items
    static constexpr int GroupSubItem = 1;
    static constexpr int ScratchSubItem = 10;

    explicit DrawHistory(QObject* parent = nullptr);

    // The key of the row of an issue number.
    static QString keyOf(const QString& issue) { return QLatin1Char('A') + issue; }

    int count() const { return int(m_rows.size()); }

    // Appends a row. Fails, leaving the list as it was, when a row has the key
    // already; keys compare without regard to case.
    bool add(const QString& key, const QString& text);
    void removeAt(int row);
    void clear();

    // Cell access. A row index outside the list, or a sub-item outside 1 to
    // 10, throws RuntimeError(IndexOutOfBounds), as the list control does.
    QString text(int row) const;
    void setText(int row, const QString& text);
    QString key(int row) const;
    // Fails, leaving the key as it was, when another row has that key.
    bool setKey(int row, const QString& key);
    QString subItem(int row, int subItem) const;
    void setSubItem(int row, int subItem, const QString& value);
    // Column 0 is the row text, column n is sub-item n.
    QString cell(int row, int column) const;

    // The sort, done once: SortKey picks the column (0 the row text, n sub-item
    // n), SortOrder 0 is ascending and 1 descending by the cells' text, and
    // setting Sorted to true sorts the rows. Every caller sets Sorted back to
    // false at once, so the list never keeps itself sorted: rows added later
    // go to its end. Equal cells keep their order.
    int SortKey() const { return m_sortKey; }
    void setSortKey(int column) { m_sortKey = column; }
    int SortOrder() const { return m_sortOrder; }
    void setSortOrder(int order) { m_sortOrder = order; }
    bool Sorted() const { return m_sorted; }
    void setSorted(bool sorted);
    // SortKey, SortOrder, Sorted true and at once false.
    void sortOnce(int column, int order);
    // What a click on a column header of the main list does, also when a
    // window asks for it to put the newest draw first: SortKey becomes the
    // header's index less 1, the one direction of the whole list flips (the
    // list starts ascending, so the first click sorts descending) and the
    // rows are sorted once. The header index counts from 1.
    void columnClick(int columnHeaderIndex);

    // Within a Batch, added rows and changed cells reach the views as one
    // notice when the outermost Batch ends, so that passes over all rows stay
    // fast with the list on the screen.
    class Batch {
    public:
        explicit Batch(DrawHistory& history);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        DrawHistory& m_history;
    };

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row {
        QString text;
        QString key;
        std::array<QString, SubItemCount> subItems;
    };

    const Row& rowAt(int row) const;
    Row& rowAt(int row);
    static void checkSubItem(int subItem);
    void cellChanged(int row, int column);
    void announcePending();

    std::vector<Row> m_rows;
    QSet<QString> m_keys; // case-folded
    int m_sortKey = 0;
    int m_sortOrder = 0;
    bool m_sorted = false;

    int m_batchDepth = 0;
    int m_announcedRows = 0; // rows the views know of
    int m_changedFirst = -1; // announced rows whose cells changed in a batch
    int m_changedLast = -1;
};
