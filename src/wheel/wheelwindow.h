#pragma once

// "旋转矩阵": the player chooses 7 to 20 reds (typed, or with the 33 toggle
// buttons, which follow the box and which the box follows), any blues and a
// guarantee, and gets the fewest tickets the program knows that keep it,
// checked over every possible draw before they are shown. The tickets can be
// copied or saved as a text file. Resizable; nothing is kept between openings.

#include "wheel/ticketlist.h"
#include "windowkit/modalwindow.h"

#include <array>

class DrawHistory;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;

class WheelWindow : public ModalWindow {
    Q_OBJECT

public:
    // The history is what a prize check of the tickets looks them up in.
    WheelWindow(AppContext& context, const DrawHistory& history, QWidget* parent = nullptr);

    void makeButton_Click();
    void copyButton_Click();
    void saveButton_Click();
    void prizeCheckButton_Click();

    QLabel* redCaption;
    QLineEdit* redBox;
    std::array<QPushButton*, 33> redToggles{};
    QLabel* blueCaption;
    QLineEdit* blueBox;
    QLabel* guaranteeCaption;
    QComboBox* guaranteeList;
    QLabel* guaranteeNote; // the chosen guarantee in words
    QPushButton* makeButton;
    QLabel* resultCaption;
    QListView* resultList; // the tickets' result lines, of `tickets`
    TicketList tickets;
    QLabel* countLabel;
    QLabel* verifiedLabel;
    // 复制全部, 另存为 and the buttons that act on the tickets, then 关闭.
    QHBoxLayout* resultButtons;
    QPushButton* copyButton;
    QPushButton* saveButton;
    QPushButton* prizeCheckButton;
    QPushButton* closeButton;

private:
    void redBoxEdited();
    void redToggled();
    void showGuaranteeNote();
    void refuse(QLineEdit* box, const QString& text);

    const DrawHistory& m_history;
};
