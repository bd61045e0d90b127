#pragma once

// Controls as the windows draw them: made on their parent, named as the
// window names them (which the tests find them by), and placed where the
// window puts them when a geometry is given.

#include <QRect>
#include <QString>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QWidget;

namespace controls {

// A caption, left-aligned and centred in its height.
QLabel* label(QWidget* parent, const char* name, const QString& text, const QRect& geometry = {});
QPushButton* button(QWidget* parent, const char* name, const QString& text, const QRect& geometry = {});
// A pick-only list.
QComboBox* pickList(QWidget* parent, const char* name, const QStringList& entries = {}, const QRect& geometry = {});
QCheckBox* tick(QWidget* parent, const char* name, const QString& text, const QRect& geometry = {});

} // namespace controls
