#pragma once

// Fakes for the desktop seams: they record what the program asked of the
// desktop and answer in the user's place.

#include "platform/services.h"

#include <QList>
#include <QStringList>

#include <deque>

struct ShownMessage {
    MessageIcon icon;
    QString text;
};

class FakeMessages final : public MessageService {
public:
    void show(MessageIcon icon, const QString& text) override { shown.append({icon, text}); }
    // Answers the queued answers in order, then "no".
    bool askYesNo(const QString& text) override
    {
        questions.append(text);
        if (answers.empty())
            return false;
        const bool answer = answers.front();
        answers.pop_front();
        return answer;
    }

    QList<ShownMessage> shown;
    QStringList questions;
    std::deque<bool> answers;
};

class FakeClipboard final : public ClipboardService {
public:
    void clear() override
    {
        contents.clear();
        ++clears;
    }
    void setText(const QString& text) override { contents = text; }
    QString text() const override { return contents; }

    QString contents;
    int clears = 0;
};

class FakeLauncher final : public DesktopLauncher {
public:
    void openAddress(const QString& address) override { addresses.append(address); }
    void openDocument(const QString& path) override { documents.append(path); }
    // Starts nothing: records the program and answers `startSucceeds`.
    bool startProgram(const QString& path) override
    {
        programs.append(path);
        return startSucceeds;
    }

    QStringList addresses;
    QStringList documents;
    QStringList programs;
    bool startSucceeds = true;
};

class FakeFileDialogs final : public FileDialogs {
public:
    QString openFileName(const QString& filter, const QString& defaultSuffix) override
    {
        asked.append(filter + QLatin1Char('|') + defaultSuffix);
        return nextName;
    }
    QString saveFileName(const QString& filter, const QString& defaultSuffix) override
    {
        asked.append(filter + QLatin1Char('|') + defaultSuffix);
        return nextName;
    }

    QString nextName;
    QStringList asked;
};

// A deterministic generator: a fixed-seed sequence, or the queued values
// first when a test needs exact draws. Counts the Randomize calls.
class ScriptedRandom final : public RandomSource {
public:
    explicit ScriptedRandom(quint64 seed = 12345) : m_state(seed) {}
    void Randomize() override { ++randomizeCalls; }
    float Rnd() override;

    std::deque<float> queued;
    long long randomizeCalls = 0;

private:
    quint64 m_state;
};

class FixedClock final : public Clock {
public:
    QDateTime now() const override { return current; }
    QDateTime current = QDateTime(QDate(2026, 11, 22), QTime(9, 30));
};

// Ends nothing: records that the program asked to end, so that the test can
// look at what was left behind.
class RecordingProcess final : public ProcessControl {
public:
    void endProcess(int exitCode) override { exitCodes.append(exitCode); }
    bool ended() const { return !exitCodes.isEmpty(); }
    QList<int> exitCodes;
};
