#pragma once

// "导入福彩开奖历史": many draws at once, pasted as lines of text and handed to
// the shared insert path.

#include "windowkit/modalwindow.h"

class DrawHistory;
class QLabel;
class QPlainTextEdit;
class QPushButton;

class FormInput : public ModalWindow {
    Q_OBJECT

public:
    FormInput(AppContext& context, DrawHistory& history, QWidget* parent = nullptr);

    // The box's text with its lines ended by CR LF, as the user sees them.
    QString text() const;

    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    QLabel* Label1;
    QLabel* Label2;
    QLabel* Label3;
    QPlainTextEdit* Text1;
    QPushButton* Command1;
    QPushButton* Command2;
    QPushButton* Command3;

private:
    DrawHistory& m_history;
};
