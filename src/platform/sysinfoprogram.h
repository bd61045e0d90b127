#pragma once

// The system information tool of the desktop the program runs on: the first
// of a short list of such programs that the PATH holds.

#include <QString>
#include <QStringList>

namespace sysinfoprogram {

// The programs tried, in order: the system profilers first, as they show
// what the Windows tool shows, then the desktops' system monitors.
const QStringList& candidates();

// The full path of the first candidate found on the PATH, or empty.
QString find();

} // namespace sysinfoprogram
