#pragma once

// Controls as the windows draw them: made on their parent, named as the
// window names them (which the tests find them by), and placed where the
// window puts them when a geometry is given.

#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QWidget;

namespace controls {

// A caption, left-aligned and centred in its height. Placed lower than its
// text needs in its font, now or after a change of font, it grows to that
// height, its top and left kept, and shows in front of the controls that it
// then reaches over.
QLabel* label(QWidget* parent, const char* name, const QString& text, const QRect& geometry = {});
QPushButton* button(QWidget* parent, const char* name, const QString& text, const QRect& geometry = {});
// A pick-only list.
QComboBox* pickList(QWidget* parent, const char* name, const QStringList& entries = {}, const QRect& geometry = {});
QCheckBox* tick(QWidget* parent, const char* name, const QString& text, const QRect& geometry = {});

// A caption that wraps at `width`, sized to hold all of its present text.
void fitWrapped(QLabel* label, int width);

// Captions with a run of blanks in which a field stands, such as
// "每次预测           组号码": the caption is set in a face whose blank is half
// as wide as a Chinese character, as 宋体 draws it, and sized to its text at
// `topLeft`. Where 宋体 is missing, a face with the same half-width blanks
// stands in.
void fitGapCaption(QLabel* label, const QPoint& topLeft, int height);
// The room of the caption's blanks, in the coordinates of its parent.
QRect captionGap(const QLabel* label);

} // namespace controls
