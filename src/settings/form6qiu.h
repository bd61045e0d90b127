#pragma once

// "目前6个球设置的范围": the six ball ranges as they stand in memory, also
// those not yet stored.

#include "windowkit/modalwindow.h"

class QPlainTextEdit;
class QPushButton;

class Form6Qiu : public ModalWindow {
    Q_OBJECT

public:
    // Loads at once: a new window for each use.
    explicit Form6Qiu(AppContext& context, QWidget* parent = nullptr);

    void Form_Load();
    void Command1_Click();

    QPlainTextEdit* Text1;
    QPushButton* Command1; // "确定"

};
