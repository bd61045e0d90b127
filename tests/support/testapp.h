#pragma once

// A program context for window tests: fakes for every seam, a temporary
// program folder and a settings store inside it. Nothing touches the real
// program folder, the user's settings or the network.

#include "app/mainform.h"
#include "fakes.h"
#include "settings/settingsstore.h"
#include "windowkit/appcontext.h"

#include <QApplication>
#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>


class TestApp {
public:
    TestApp();

    QString programFolder() const { return m_folder.path(); }
    QString historyPath() const;
    QString settingsFolder() const;

    // Writes "list.ocd" with these lines, each ended by CR LF.
    void writeHistory(const QStringList& lines) const;
    QByteArray historyBytes() const;

    FakeMessages messages;
    FakeClipboard clipboard;
    FakeLauncher launcher;
    FakeFileDialogs fileDialogs;
    ScriptedRandom random;
    FixedClock clock;
    RecordingProcess process;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<IniSettingsStore> m_settings;

public:
    AppContext context;
};

// The issue numbers of the rows, in row order.
QStringList issuesOf(const DrawHistory& history);

// The main window started as the program starts it, on a history file of
// these lines (no file at all for none), and shown.
struct StartedMainForm {
    explicit StartedMainForm(const QStringList& historyLines = {});

    TestApp app;
    MainForm form{app.context};
    QByteArray historyAtStart; // the history file as the start found it
};

// Runs `action` on the next modal window once it is shown, from the event
// loop of that window: the way to fill in and close a modal dialog that a
// command opens. The watch ends with its scope, so a window that never comes
// leaves nothing behind for the next test.
class ModalWatch {
public:
    explicit ModalWatch(std::function<void(QWidget*)> action);
    ~ModalWatch();
    ModalWatch(const ModalWatch&) = delete;
    ModalWatch& operator=(const ModalWatch&) = delete;

    bool fired() const { return m_fired; }

private:
    QTimer* m_poll;
    bool m_fired = false;
};

// A watch for a window that surely comes: it ends once it has acted. Where
// one modal window opens another, the outer one is already the active modal
// window: this waits for a window of the kind asked for.
template <class Window>
void whenWindowShown(std::function<void(Window*)> action)
{
    auto* poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, action = std::move(action)] {
        auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
        if (!window || !window->isVisible())
            return;
        poll->stop();
        poll->deleteLater();
        action(window);
    });
    poll->start();
}

inline void whenModalShown(std::function<void(QWidget*)> action)
{
    whenWindowShown<QWidget>(std::move(action));
}

// Runs a window test in an application dressed as the program's own: its
// style and the toolkit's Chinese texts.
int runWindowTest(QObject& test, int argc, char* argv[]);

#define WINDOW_TEST_MAIN(TestClass)                                                                                    \
    int main(int argc, char* argv[])                                                                                   \
    {                                                                                                                  \
        TestClass test;                                                                                                \
        return runWindowTest(test, argc, argv);                                                                        \
    }
