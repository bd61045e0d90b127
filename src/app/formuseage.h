#pragma once

// "软件使用方法": how to use the program, in five lines.

#include "windowkit/modalwindow.h"

class QPlainTextEdit;
class QPushButton;

class FormUseage : public ModalWindow {
    Q_OBJECT

public:
    explicit FormUseage(AppContext& context, QWidget* parent = nullptr);

    void Command1_Click();

    QPlainTextEdit* Text1;
    QPushButton* Command1; // "关闭"
};
