#pragma once

// "除3余数过滤": sieves a text of number groups by the remainders by 3 of the
// newest draw's six reds, position by position. Opening it sorts the history
// once by issue number, descending, and the rows stay so. Loaded for each
// use; its boxes are not kept.

#include "forecast/remainderfilter.h"
#include "windowkit/modalwindow.h"

class DrawHistory;
class QLabel;
class QLineEdit;
class QPushButton;
class RichTextBox;

class divide3remaind : public ModalWindow {
    Q_OBJECT

public:
    // Runs Form_Load as an event routine: an empty history ends the program
    // with the run-time failure report.
    divide3remaind(AppContext& context, DrawHistory& history, QWidget* parent = nullptr);

    void Form_Load();
    bool 号码是否合格(const QString& group) const { return m_filter.号码是否合格(group); }
    const RemainderFilter& filter() const { return m_filter; }

    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command8_Click();
    void Command9_Click();
    void Command11_Click();

    QLabel* Label1;
    QLineEdit* Text1;
    QLabel* Label2;
    QLineEdit* Text2;
    QLabel* Label5;
    QLabel* Label3;
    QLabel* Label6;
    RichTextBox* RichTextBox1;
    QPushButton* Command1;
    QPushButton* Command2;
    QPushButton* Command3;
    QPushButton* Command4;
    QLabel* Label4;
    RichTextBox* RichTextBox3;
    QPushButton* Command8;
    QPushButton* Command9;
    QPushButton* Command11;

private:
    DrawHistory& m_history;
    RemainderFilter m_filter;
};
