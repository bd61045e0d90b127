#pragma once

// The seams between the program and the desktop. Windows and logic talk to
// these interfaces only; the application hands in the real ones, and the tests
// hand in fakes that record what was asked and answer for the user.

#include <QDateTime>
#include <QString>

enum class MessageIcon { None, Critical, Question, Exclamation, Information };

// Every message box of the program: the application's title as caption, an
// icon and a text. A question is answered yes (true) or no.
class MessageService {
public:
    virtual ~MessageService() = default;
    virtual void show(MessageIcon icon, const QString& text) = 0;
    virtual bool askYesNo(const QString& text) = 0;
};

class ClipboardService {
public:
    virtual ~ClipboardService() = default;
    virtual void clear() = 0;
    virtual void setText(const QString& text) = 0;
    virtual QString text() const = 0;
};

// Hands an address (a web page, a "mailto:" link) or a document to the
// desktop. Neither reports whether anything opened. Starts a program apart
// from this one: false when it could not be started.
class DesktopLauncher {
public:
    virtual ~DesktopLauncher() = default;
    virtual void openAddress(const QString& address) = 0;
    virtual void openDocument(const QString& path) = 0;
    virtual bool startProgram(const QString& path) = 0;
};

// The file dialogs of the text filters. An empty result means cancelled. The
// save dialog adds the default suffix to a bare name and asks before it
// replaces an existing file.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    virtual QString openFileName(const QString& filter, const QString& defaultSuffix) = 0;
    virtual QString saveFileName(const QString& filter, const QString& defaultSuffix) = 0;
};

// The runtime's generator: Randomize re-seeds from the system timer, Rnd gives
// the next value v with 0 <= v < 1 in single precision.
class RandomSource {
public:
    virtual ~RandomSource() = default;
    virtual void Randomize() = 0;
    virtual float Rnd() = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
};

// Ends the process at once: no window unloads, nothing more is saved. Text
// that the program put on the clipboard stays there for the desktop.
class ProcessControl {
public:
    virtual ~ProcessControl() = default;
    virtual void endProcess(int exitCode) = 0;
};
