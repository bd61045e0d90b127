#pragma once

// What every window of the program is given: the program folder, the
// settings store, the desktop seams, the addresses, and the few values that
// the windows share (the ball ranges, the name of the system, the base address
// of the draw-data site). The application builds the real one; tests build one
// of fakes in a temporary folder.

#include "platform/addresses.h"
#include "platform/runtimefailure.h"
#include "platform/services.h"
#include "settings/ballranges.h"

#include <QString>

#include <functional>
#include <utility>

class SettingsStore;
class uXMLHTTP;

// The services that the splash window's load calls, one step each. A service
// that is missing makes its step fall away.
struct StartupServices {
    std::function<QString()> getOSName;
    std::function<QString()> addressWidth; // "32" when it can't be told
    std::function<void(const QString& version, bool force)> setBrowserEmulation;
    // Sends the update check on the splash window's download control; `ended`
    // is called once when it has ended, either way.
    std::function<void(uXMLHTTP& uXMLHTTP2, std::function<void()> ended)> startUpdateCheck;
};

struct AppContext {
    AppContext(QString programFolder, SettingsStore& settings, MessageService& messages, ClipboardService& clipboard,
               DesktopLauncher& launcher, FileDialogs& fileDialogs, RandomSource& random, Clock& clock,
               ProcessControl& process, SiteAddresses addresses)
        : programFolder(std::move(programFolder)),
          settings(settings),
          messages(messages),
          clipboard(clipboard),
          launcher(launcher),
          fileDialogs(fileDialogs),
          random(random),
          clock(clock),
          process(process),
          addresses(std::move(addresses))
    {
    }

    QString programFolder;
    SettingsStore& settings;
    MessageService& messages;
    ClipboardService& clipboard;
    DesktopLauncher& launcher;
    FileDialogs& fileDialogs;
    RandomSource& random;
    Clock& clock;
    ProcessControl& process;
    SiteAddresses addresses;
    StartupServices startup;

    BallRanges ranges;
    QString OsDescription;
    QString DrawSiteBase;

    // Runs an event routine that has no failure handling of its own: a failure
    // that reaches it ends the program with the run-time failure report.
    template <class Routine>
    void runEvent(Routine&& routine)
    {
        runEventRoutine(messages, process, std::forward<Routine>(routine));
    }
};
