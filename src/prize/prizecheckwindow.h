#pragma once

// "中奖查询": the player's bets, one bet or bundle a line, checked against a
// draw of the history or against all of it, or only counted and priced. It
// opens from the menu with an empty bets box, and from the forecast and
// filter windows with their results already in it.

#include "prize/draws.h"
#include "windowkit/modalwindow.h"

#include <vector>

class DrawHistory;
class QComboBox;
class QLabel;
class QPushButton;
class RichTextBox;

class PrizeCheckWindow : public ModalWindow {
    Q_OBJECT

public:
    PrizeCheckWindow(AppContext& context, const DrawHistory& history, const QString& bets, QWidget* parent);

    // "开始查询": against the draw picked, or against every draw.
    void checkBets();
    // "计算注数": the count and cost alone, with or without a draw.
    void countBets();
    // "复制结果".
    void copyResult();

    QLabel* betsHeading;
    RichTextBox* betsBox;
    QLabel* formsHint;
    QLabel* drawHeading;
    // "全部历史", then the issues newest first.
    QComboBox* drawPicker;
    QLabel* drawNumbers;
    QPushButton* checkButton;
    QPushButton* countButton;
    QLabel* resultHeading;
    RichTextBox* resultBox;
    QPushButton* copyButton;
    QPushButton* closeButton;

private:
    void showPickedDraw();
    // Between runs the count is always there, the check and the pick list
    // only with a draw to check against.
    void enableControls(bool idle);
    // Runs `report` on the bets with the buttons off, letting events run
    // meanwhile; a box of blank lines gets a message instead.
    template <class Report>
    void run(Report report);

    const std::vector<prize::IssuedDraw> m_draws;
    bool m_running = false;
};
