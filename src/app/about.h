#pragma once

// "关于": the program's title and version, the line that names the system
// (which the user can copy), the maker and the maker's two sites, and a way
// to the desktop's own system information tool.

#include "windowkit/modalwindow.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTimer;

class About : public ModalWindow {
    Q_OBJECT

public:
    explicit About(AppContext& context, QWidget* parent = nullptr);

    void Form_Load();
    void Timer1_Timer();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Label2_Click();
    void Label3_Click();
    void StartSysInfo();

    QLabel* lsoftname;
    QLabel* lblVersion;
    QPlainTextEdit* Text1;
    QPushButton* Command2; // "确定"
    QPushButton* Command3; // "系统信息"
    QPushButton* Command1; // "复制信息"
    QLabel* Label7;
    QLabel* Label2; // the maker's site
    QLabel* Label3; // the maker's download site
    QTimer* Timer1;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
