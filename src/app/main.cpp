#include "app/mainform.h"
#include "history/historyfile.h"
#include "online/updatecheck.h"
#include "platform/appinfo.h"
#include "platform/osname.h"
#include "platform/programfolder.h"
#include "platform/systemservices.h"
#include "settings/settingsstore.h"
#include "windowkit/appcontext.h"
#include "windowkit/desktopservices.h"
#include "windowkit/programstyle.h"
#include "windowkit/toolkitchinese.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include <memory>

int main(int argc, char* argv[])
{
    // The process ends only through `process`, which first hands the clipboard
    // over to the desktop: that destroys the application object, so it is
    // held where the hand-over can reach it.
    auto application = std::make_unique<QApplication>(argc, argv);
    QApplication::setApplicationName(appinfo::title());
    QApplication::setApplicationVersion(
        QStringLiteral("%1.%2.%3").arg(appinfo::major).arg(appinfo::minor).arg(appinfo::revision));
    programstyle::applyTo(*application);
    toolkitchinese::load(*application);
    // The main window's unload ends the process. Until the main window shows,
    // a message of the start (the update check's) may be the only window that
    // closes, and that must not end the program.
    QApplication::setQuitOnLastWindowClosed(false);

    const QString settingsFolder =
        QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)).filePath(appinfo::exeName());
    IniSettingsStore settings(settingsFolder, appinfo::title());
    QtMessageService messages;
    QtClipboard clipboard;
    QtDesktopLauncher launcher;
    QtFileDialogs fileDialogs;
    SystemRandom random;
    SystemClock clock;
    SystemProcessControl process([&application] { handOverClipboard(application); });

    // Installed, the history lives in ~/.local/share/chengchuan/, named like
    // the executable and the settings' folder; earlier versions kept it in a
    // folder named after the title.
    const QDir dataHome(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const QString programFolder =
        programfolder::choose(QCoreApplication::applicationDirPath(), dataHome.filePath(appinfo::exeName()),
                              dataHome.filePath(appinfo::title()), historyfile::fileName);
    AppContext context(programFolder, settings, messages, clipboard, launcher, fileDialogs,
                       random, clock, process, SiteAddresses());
    context.startup.getOSName = [] { return osname::GetOSName(); };
    context.startup.addressWidth = osname::addressWidth;
    // setBrowserEmulation stays unset: the online import embeds no Windows
    // browser on Linux, so the splash's load skips that step.
    context.startup.startUpdateCheck = updateCheckService(messages, launcher, context.addresses.vendorBaseUrl);

    MainForm mainForm(context);
    mainForm.Form_Load();
    return QApplication::exec();
}
