#pragma once

// "软件运行权限不足，或者缺少微软组件": shows how to let the program run with
// the rights it needs (a picture of the settings to make on its executable),
// and leads to the download page of .NET Framework.

#include "windowkit/modalwindow.h"

class QLabel;
class QPushButton;

class Net352 : public ModalWindow {
    Q_OBJECT

public:
    explicit Net352(AppContext& context, QWidget* parent = nullptr);

    void Form_Load();
    void Command3_Click();

    QLabel* Label1; // the executable's name, set at load
    QLabel* Label5; // what to set, set at load
    QLabel* Picture1;
    QLabel* Label4; // the system, set at load
    QLabel* Label2;
    QLabel* Label3;
    QPushButton* Command3;
};
