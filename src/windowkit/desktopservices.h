#pragma once

// The desktop seams as the running program has them: Qt's message boxes,
// clipboard, file dialogs and the user's default applications.

#include "platform/services.h"

#include <memory>

class QApplication;

class QtMessageService final : public MessageService {
public:
    void show(MessageIcon icon, const QString& text) override;
    bool askYesNo(const QString& text) override;
};

class QtClipboard final : public ClipboardService {
public:
    void clear() override;
    void setText(const QString& text) override;
    QString text() const override;
};

// Hands what the program put on the clipboard over to the desktop's clipboard
// manager, so that it stays there when the process is gone. Qt does that when
// the application object goes, as at a normal quit: on X11 its clipboard asks
// the clipboard manager to save the contents (the SAVE_TARGETS request of the
// clipboard manager convention) and waits, a few seconds at most, until the
// manager has taken them. So this destroys `application` when the program
// owns the clipboard, and does nothing otherwise. No window is closed or
// unloaded by it; the process is to end right after.
void handOverClipboard(std::unique_ptr<QApplication>& application);

class QtDesktopLauncher final : public DesktopLauncher {
public:
    void openAddress(const QString& address) override;
    void openDocument(const QString& path) override;
    bool startProgram(const QString& path) override;
};

class QtFileDialogs final : public FileDialogs {
public:
    QString openFileName(const QString& filter, const QString& defaultSuffix) override;
    QString saveFileName(const QString& filter, const QString& defaultSuffix) override;
};
