#pragma once

// The view's side of the trend chart: a delegate that paints the cells (the
// balls, the omissions, the values) and a header that paints the column
// captions with the captions of the zones over them, both through TrendLook.
// A click, Space or Select on a pick cell picks or drops its number.

#include <QHeaderView>
#include <QStyledItemDelegate>

struct TrendLook;

class TrendDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    TrendDelegate(const TrendLook& look, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    const TrendLook& m_look;
};

class TrendHeader : public QHeaderView {
    Q_OBJECT

public:
    TrendHeader(const TrendLook& look, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    const TrendLook& m_look;
};
