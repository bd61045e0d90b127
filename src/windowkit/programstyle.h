#pragma once

// The program's look: its text faces and the way a framed group shows its
// caption, set once on the application so that every window shares them.

#include <QFont>

class QApplication;

namespace programstyle {

// The program's text face: 宋体 where it exists, else a CJK face that does.
QFont ui(qreal pointSize = 9);
// The serif face of the result boxes: 宋体, or a CJK serif face in its stead.
QFont serif(qreal pointSize);

void applyTo(QApplication& application);

} // namespace programstyle
