#include "windowkit/controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>

namespace controls {

namespace {

template <class Control>
Control* placed(Control* control, const char* name, const QRect& geometry)
{
    control->setObjectName(QLatin1String(name));
    if (geometry.isValid())
        control->setGeometry(geometry);
    return control;
}

// The height that a caption's text takes in its font, laid out as the caption
// lays it out: the line boxes of its font and of the faces that stand in for
// the characters it lacks, such as the Chinese ones.
int textHeight(const QLabel* label)
{
    const QMargins margins = label->contentsMargins();
    const QRect room(0, 0, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    return QFontMetrics(label->font()).boundingRect(room, int(label->alignment()), label->text()).height()
           + 2 * label->margin() + margins.top() + margins.bottom();
}

// Keeps a placed caption as high as its text needs in its font, now and
// after a change of font: a caption placed lower would lose the bottom of its
// characters. It grows from its designed top and left. The part it grows by
// may reach over the control placed below it, made later and so lying in
// front: once shown, a grown caption comes to the front, over the edge of
// that control as a caption over a frame, and lets the mouse through to what
// lies under it.
class TextHeightKeeper final : public QObject {
public:
    explicit TextHeightKeeper(QLabel* label) : QObject(label), m_label(label), m_designedHeight(label->height())
    {
        fit();
        label->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FontChange)
            fit();
        else if (event->type() == QEvent::Show && m_label->height() > m_designedHeight)
            m_label->raise();
        return false;
    }

private:
    void fit()
    {
        const int need = textHeight(m_label);
        if (m_label->height() >= need)
            return;
        m_label->resize(m_label->width(), need);
        m_label->setAttribute(Qt::WA_TransparentForMouseEvents);
        m_label->setAutoFillBackground(true);
    }

    QLabel* m_label;
    int m_designedHeight;
};

} // namespace

QLabel* label(QWidget* parent, const char* name, const QString& text, const QRect& geometry)
{
    auto* control = new QLabel(text, parent);
    control->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    placed(control, name, geometry);
    if (geometry.isValid())
        new TextHeightKeeper(control);
    return control;
}

QPushButton* button(QWidget* parent, const char* name, const QString& text, const QRect& geometry)
{
    return placed(new QPushButton(text, parent), name, geometry);
}

QComboBox* pickList(QWidget* parent, const char* name, const QStringList& entries, const QRect& geometry)
{
    auto* control = new QComboBox(parent);
    control->addItems(entries);
    return placed(control, name, geometry);
}

QCheckBox* tick(QWidget* parent, const char* name, const QString& text, const QRect& geometry)
{
    return placed(new QCheckBox(text, parent), name, geometry);
}

void fitWrapped(QLabel* label, int width)
{
    label->setWordWrap(true);
    label->setFixedSize(width, label->heightForWidth(width));
}

void fitGapCaption(QLabel* label, const QPoint& topLeft, int height)
{
    QFont face = label->font();
    face.setFamilies({QStringLiteral("宋体"), QStringLiteral("SimSun"), QStringLiteral("NSimSun"),
                      QStringLiteral("Noto Sans Mono CJK SC"), QStringLiteral("monospace")});
    label->setFont(face);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setGeometry(QRect(topLeft, QSize(QFontMetrics(face).horizontalAdvance(label->text()) + 4, height)));
}

QRect captionGap(const QLabel* label)
{
    const QString caption = label->text();
    const qsizetype gapStart = caption.indexOf(QLatin1Char(' '));
    const qsizetype gapEnd = caption.lastIndexOf(QLatin1Char(' ')) + 1;
    const QFontMetrics metrics(label->font());
    const int lead = metrics.horizontalAdvance(caption.left(gapStart));
    const int gap = metrics.horizontalAdvance(caption.mid(gapStart, gapEnd - gapStart));
    const QRect place = label->geometry();
    return QRect(place.left() + lead, place.top(), gap, place.height());
}

} // namespace controls
