#pragma once

// "设置": the window from which the range of a ball is set, ball by ball,
// through the frequency chart of that ball and its panel. It shows the range
// of the ball chosen as it stands in memory.

#include "windowkit/modalwindow.h"

class DrawHistory;
class QComboBox;
class QLabel;
class QPushButton;

class OptionForm : public ModalWindow {
    Q_OBJECT

public:
    // Loads at once: a new window for each use.
    OptionForm(AppContext& context, DrawHistory& history, QWidget* parent = nullptr);

    void Form_Load();
    // Shows the ball whose number is the list's text.
    void Combo1_Click();
    // Opens the chart of the ball chosen, with the panel that sets its range.
    void Command3_Click();
    void Command1_Click();
    // Labels the minimum and maximum of balls 1 to 6; any other number leaves
    // the labels showing the ball chosen before.
    void 显示最大最小设置(qint32 ball);

    QLabel* Label2; // "设置球：              的取值范围", Combo1 standing in its gap
    QComboBox* Combo1;
    QLabel* Label1; // the minimum
    QLabel* Label3; // "---"
    QLabel* Label4; // the maximum
    QPushButton* Command3;
    QPushButton* Command1;

private:
    DrawHistory& m_history;
};
