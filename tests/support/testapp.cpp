#include "testapp.h"

#include "history/historyfile.h"
#include "platform/appinfo.h"
#include "windowkit/programstyle.h"
#include "windowkit/toolkitchinese.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimer>
#include <QtTest>
#include <QWidget>

namespace {

IniSettingsStore* makeSettings(const QTemporaryDir& folder)
{
    return new IniSettingsStore(QDir(folder.path()).filePath(QStringLiteral("settings")), appinfo::title());
}

} // namespace

TestApp::TestApp()
    : m_settings(makeSettings(m_folder)),
      context(m_folder.path(), *m_settings, messages, clipboard, launcher, fileDialogs, random, clock, process,
              SiteAddresses{QStringLiteral("http://127.0.0.1:9"), QStringLiteral("http://127.0.0.1:9/maker/"),
                            QStringLiteral("maker@127.0.0.1"), QStringLiteral("http://127.0.0.1:9/vendor/")})
{
    context.addresses.feedBase = QStringLiteral("http://127.0.0.1:9");
}

QString TestApp::historyPath() const
{
    return historyfile::pathIn(m_folder.path());
}

QString TestApp::settingsFolder() const
{
    return QDir(m_folder.path()).filePath(QStringLiteral("settings"));
}

void TestApp::writeHistory(const QStringList& lines) const
{
    QFile file(historyPath());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("can't write the test history");
    for (const QString& line : lines)
        file.write((line + QStringLiteral("\r\n")).toUtf8());
}

QByteArray TestApp::historyBytes() const
{
    QFile file(historyPath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

ModalWatch::ModalWatch(std::function<void(QWidget*)> action) : m_poll(new QTimer)
{
    m_poll->setInterval(10);
    QObject::connect(m_poll, &QTimer::timeout, m_poll, [this, action = std::move(action)] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible())
            return;
        m_poll->stop();
        m_fired = true;
        action(modal);
    });
    m_poll->start();
}

ModalWatch::~ModalWatch()
{
    delete m_poll;
}

StartedMainForm::StartedMainForm(const QStringList& historyLines)
{
    if (!historyLines.isEmpty())
        app.writeHistory(historyLines);
    historyAtStart = app.historyBytes();
    form.Form_Load();
    form.show();
}

QStringList issuesOf(const DrawHistory& history)
{
    QStringList issues;
    for (int row = 0; row < history.count(); ++row)
        issues.append(history.text(row));
    return issues;
}

int runWindowTest(QObject& test, int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    toolkitchinese::load(application);
    return QTest::qExec(&test, argc, argv);
}
