#pragma once

// The desktop seams as the running program has them: Qt's message boxes,
// clipboard, file dialogs and the user's default applications.

#include "platform/services.h"

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
