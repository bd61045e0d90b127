#pragma once

// "号码组过滤": a list of number groups, a list of groups to take out, and
// what is left of the first. It works on text alone and reads no history.
// Loaded for each use; its boxes are not kept.

#include "windowkit/modalwindow.h"

class DrawHistory;
class QLabel;
class QPushButton;
class RichTextBox;

class BatFilter : public ModalWindow {
    Q_OBJECT

public:
    // The history is for the prize check of the result; the filter reads none.
    BatFilter(AppContext& context, const DrawHistory& history, QWidget* parent = nullptr);

    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    void Command9_Click();
    void Command11_Click();
    // "中奖查询": the prize check, with the result's lines as its bets.
    void prizeCheckButton_Click();

    QLabel* Label1;
    RichTextBox* RichTextBox1;
    QPushButton* Command1;
    QPushButton* Command2;
    QPushButton* Command3;
    QLabel* Label2;
    RichTextBox* RichTextBox2;
    QPushButton* Command4;
    QPushButton* Command5;
    QPushButton* Command6;
    QPushButton* Command7;
    QLabel* Label3;
    RichTextBox* RichTextBox3;
    QPushButton* Command8;
    QPushButton* Command9;
    QPushButton* Command11;
    QPushButton* prizeCheckButton;

private:
    const DrawHistory& m_history;
};
