#pragma once

// The update check at start: the splash window's download control asks the
// vendor's update server for "newver.txt", which names the newest version as
// major.minor.revision. A newer one than the running program is told to the
// user, and the product's page opens in the browser. A failed request costs
// the user one message. Either end counts the check as ended; a status that
// the control ends in silence leaves it pending for good.

#include "platform/services.h"

#include <QObject>
#include <QString>

#include <functional>

class uXMLHTTP;

struct ProgramVersion {
    int major = 0;
    int minor = 0;
    int revision = 0;
};

// The version numbers compared as the product has always compared them: the
// fields weighed as minor * 10000 + major * 10000000 + revision and the sum
// kept in single precision, so that from major version 2 on the lowest bits
// of the revision can be lost and two versions compare as equal. False when
// the text is not three numeric fields parted by ".". A field too large for
// single precision fails with RuntimeError(Overflow).
bool isNewerVersion(const QString& versionText, ProgramVersion running);

// Opens the address in the user's default browser. There is no list of open
// browser windows to reuse here, so `useOpenWindow` changes nothing; failures
// end the routine without a message.
void OpenBrowserUrl(DesktopLauncher& launcher, const QString& url, bool useOpenWindow);

class UpdateCheck : public QObject {
    Q_OBJECT

public:
    // `ended` is called once the check has ended, either way. The check lives
    // as long as the control it uses.
    UpdateCheck(uXMLHTTP& uXMLHTTP2, MessageService& messages, DesktopLauncher& launcher, QString vendorBaseUrl,
                ProgramVersion running, std::function<void()> ended);

    void StartUpdateCheck();
    void uXMLHTTP2_OnDateArrived();
    void uXMLHTTP2_OnDateErr(const QString& txt);
    void CheckNewVersion(const QString& VersionText);

    QString VersionText;

private:
    uXMLHTTP& uXMLHTTP2;
    MessageService& m_messages;
    DesktopLauncher& m_launcher;
    QString m_vendorBaseUrl;
    ProgramVersion m_running;
    std::function<void()> m_ended;
};

// What the start calls on the splash window's control: sends the check of
// the running program. Empty when there is no update server, and then no
// check is sent and the check counts as ended.
using UpdateCheckService = std::function<void(uXMLHTTP& uXMLHTTP2, std::function<void()> ended)>;
UpdateCheckService updateCheckService(MessageService& messages, DesktopLauncher& launcher,
                                      const QString& vendorBaseUrl);
