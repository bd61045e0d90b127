#pragma once

// "添加或者修改已经开奖的号码": the one window in which a single draw is typed
// or changed. With AddMode set, 添加 appends a row; without it, it changes the
// row the caller names (the selected row of the main list).

#include "windowkit/modalwindow.h"

class DrawHistory;
class QLabel;
class QLineEdit;
class QPushButton;

class FormAdd : public ModalWindow {
    Q_OBJECT

public:
    FormAdd(AppContext& context, DrawHistory& history, QWidget* parent = nullptr);

    bool AddMode = true;
    int ModifiedRow = -1; // the row that a modify changes

    void Command1_Click();
    void Command2_Click();

    QLabel* Label1;
    QLineEdit* Text1;
    QLabel* Label3;
    QLineEdit* Text2;
    QPushButton* Command1;
    QPushButton* Command2;

private:
    DrawHistory& m_history;
};
