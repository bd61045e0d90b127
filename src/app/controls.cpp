#include "app/controls.h"

#include <QCheckBox>
#include <QComboBox>
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

} // namespace

QLabel* label(QWidget* parent, const char* name, const QString& text, const QRect& geometry)
{
    auto* control = new QLabel(text, parent);
    control->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return placed(control, name, geometry);
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

} // namespace controls
