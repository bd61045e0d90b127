#pragma once

// The machine's FEATURE_BROWSER_EMULATION entry for the program's executable,
// which keeps an embedded Internet Explorer out of its old compatibility
// mode. Only a build that embeds that browser needs it; the Linux build's
// online import fetches pages itself, so its start-up leaves this out.

#include <QString>

class Module_REG;

namespace browseremulation {

// The key, under the machine-wide hive, and the value's name: the
// executable's name and ".exe".
QString keyPath();
QString valueName();

// The value that a browser version asks for: "IE10", "IE9", "IE8", "IE7" in
// any case, the forced values where `force` is set; 0 for any other name.
qint32 wantedValue(const QString& version, bool force);

} // namespace browseremulation

// Makes the entry when the stored value differs from the wanted one; deletes
// it for a version it doesn't know. Failures are not reported: the program
// starts all the same.
void SetBrowserEmulation(Module_REG& registry, const QString& version, bool force);
