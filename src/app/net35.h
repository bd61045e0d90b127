#pragma once

// "缺少微软组件": tells the user that the system lacks Microsoft's .NET
// Framework and leads to its download page.

#include "windowkit/modalwindow.h"

class QLabel;
class QPushButton;

class Net35 : public ModalWindow {
    Q_OBJECT

public:
    explicit Net35(AppContext& context, QWidget* parent = nullptr);

    void Form_Load();
    void Command3_Click();

    QLabel* Label5;
    QLabel* Label4; // the system, set at load
    QLabel* Label2;
    QLabel* Label3;
    QPushButton* Command3;
};

// Command3 of Net35 and Net352: the download page of .NET Framework 3.5 in
// the browser; pending events run, then the window closes, whether the
// browser started or not.
void openDotNetDownloadPage(AppContext& context, QDialog& window);

// "您的操作系统是：" and the system's line, for Label4 of both windows.
QString systemLine(const AppContext& context);
