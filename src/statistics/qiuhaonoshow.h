#pragma once

// "统计最近未开奖红色球球号": which of the 33 red numbers did not come up in the
// last N draws, N picked in Combo1. The result is a plain line of numbers for
// the user to read or copy. Sorts the main list newest first, for good.

#include "windowkit/modalwindow.h"

class DrawHistory;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

class qiuhaonoshow : public ModalWindow {
    Q_OBJECT

public:
    qiuhaonoshow(AppContext& context, DrawHistory& history, QWidget* parent = nullptr);

    void Form_Load();
    void Command1_Click();

    QLabel* Label1;
    QComboBox* Combo1;
    QPushButton* Command1;
    QLabel* Label3;
    QLineEdit* Text1;
    QLabel* Label2;

private:
    DrawHistory& m_history;
};
