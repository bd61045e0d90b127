#include "statistics/trendview.h"

#include "statistics/trendlook.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

TrendDelegate::TrendDelegate(const TrendLook& look, QObject* parent) : QStyledItemDelegate(parent), m_look(look) {}

void TrendDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    m_look.paintCell(*painter, option.rect, index, option.state.testFlag(QStyle::State_Selected));
}

QSize TrendDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    return QSize(m_look.columnWidth(index.column()), m_look.rowHeight);
}

bool TrendDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                const QModelIndex& index)
{
    if (!(index.flags() & Qt::ItemIsUserCheckable))
        return false;
    bool toggle = false;
    switch (event->type()) {
    case QEvent::MouseButtonRelease: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        toggle = mouse->button() == Qt::LeftButton && option.rect.contains(mouse->position().toPoint());
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        // Only the release picks; the press and the double click are taken so
        // that the view does not act on them as well.
        return static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent*>(event)->key();
        toggle = key == Qt::Key_Space || key == Qt::Key_Select;
        break;
    }
    default:
        break;
    }
    if (!toggle)
        return false;
    const bool picked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model->setData(index, picked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

TrendHeader::TrendHeader(const TrendLook& look, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), m_look(look)
{
    setSectionsClickable(false);
    setSectionsMovable(false);
    setHighlightSections(false);
}

QSize TrendHeader::sizeHint() const
{
    return QSize(m_look.chartWidth(), m_look.captionHeight);
}

void TrendHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const
{
    const trendcolumns::Group group = trendcolumns::groupOf(logicalIndex);
    const int first = trendcolumns::firstColumnOf(group);
    const int last = trendcolumns::lastColumnOf(group);
    const int left = sectionViewportPosition(first);
    const int right = sectionViewportPosition(last) + sectionSize(last);
    const QRect groupArea(left, rect.top(), right - left, rect.height());
    const QString caption = model() ? model()->headerData(logicalIndex, Qt::Horizontal).toString() : QString();
    m_look.paintCaption(*painter, rect, groupArea, logicalIndex, caption);
}
