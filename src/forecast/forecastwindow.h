#pragma once

// What the forecast windows have in common: the group count, the two ticks,
// the run button, the result box with its four buttons and the red notice
// that a run is under way, and the routines behind them. A window adds its
// explanation and its own rule; the run itself is the forecast core's.

#include "forecast/forecastcore.h"
#include "windowkit/modalwindow.h"

#include <QString>

class DrawHistory;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class RichTextBox;

class ForecastWindow : public ModalWindow {
    Q_OBJECT

public:
    // The window's own settings live in the section of its name.
    ForecastWindow(AppContext& context, const DrawHistory& history, const QString& section,
                   ForecastCore::Hooks hooks, QWidget* parent);

    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    // "中奖查询": the prize check, with the result box's lines as its bets.
    void prizeCheckButton_Click();
    // "历史验证": how the window's conditions as they stand would have fared
    // over the past draws and how many of all groups they keep, in an
    // information message. The result box stays as it is.
    void historyCheckButton_Click();

    ForecastCore& core() { return m_core; }

    QLabel* Label1;
    QLineEdit* Text2;
    QCheckBox* Check1;
    QCheckBox* Check2;
    QPushButton* Command1;
    QPushButton* Command2;
    QPushButton* Command3;
    QPushButton* Command4;
    QPushButton* Command5;
    QLabel* Label3;
    RichTextBox* RichTextBox1;
    QLabel* Label4;
    QPushButton* prizeCheckButton = nullptr;
    QPushButton* historyCheckButton = nullptr;

protected:
    // Hides Label4 and restores the group count; the window restores its
    // other settings and then fills the history collections.
    void loadCommon();
    // Stores the group count as it stands, valid or not.
    void unloadCommon();
    void fillHistory();

    // The checks of the group count in Text2, with their messages and the
    // focus back on Text2. A count beyond 32 bits is no message but a
    // run-time failure.
    bool groupCountIsValid();
    // Steps 1 to 4 of a run: Command1 off, the ticks and the count read,
    // Label4 shown, pending events let through.
    void beginRun();
    // Hides Label4 and sets Command1 enabled again.
    void endRun();
    // A whole run: one group is added at the end of the box, a batch
    // replaces it. Where the forecast gives up, a single group gets the
    // message of impossible conditions and the box stays as it was.
    void run();

    // The window's own check of its rule before a run, which shows the
    // window's message when it fails; true to go on.
    virtual bool ruleIsValid() { return true; }
    // The window's rule with its texts as they stand now, read once: what the
    // run would read at this moment. Asked after ruleIsValid.
    virtual ForecastHooks ruleAsItStands() { return {}; }

    // Places the shared controls from `top` down, fixes the window's size
    // around all of its controls and adds the buttons of the side column
    // that every forecast window has.
    void layoutCommon(int top);

    // A button of the window's own below the four result buttons, in the room
    // that the result box leaves beside them; call after layoutCommon.
    QPushButton* addSideButton(const char* name, const QString& caption);

    // The box of a window's own numbers: it takes at most 70 characters,
    // also when the program sets its text, which cuts off the excess.
    QLineEdit* makeText3();
    // Places the explanation, the heading of Text3, Text3 and the hint of
    // its form one under the other; gives the top of what follows.
    int layoutRule(QLabel* explanation, QLabel* heading, QLineEdit* text3, QLabel* hint);

    const DrawHistory& m_history;
    const QString m_section;
    ForecastCore m_core;

private:
    void connectCommon();

    int m_nextSideTop = 0; // where the next button of the side column goes
};
