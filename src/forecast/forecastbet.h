#pragma once

// "投注式预测": the plain forecast with the red numbers that the user bets on
// in Text3, of which each group must hold the count picked in Combo1. It is
// the one forecast window that gives up: after 2000 attempts a single group
// gets a message, and a batch goes on without the group.

#include "forecast/forecastwindow.h"

class QComboBox;

class ForecastBet : public ForecastWindow {
    Q_OBJECT

public:
    // Command6 sorts the rows of the main list.
    ForecastBet(AppContext& context, DrawHistory& history, QWidget* parent = nullptr);

    void Form_Load();
    void Form_Unload() override;
    void Command1_Click();
    void Command6_Click();
    // Sets BetMin and BetMax and rewrites Text3 with the numbers it read.
    bool 判断TEXT3的合法性();
    bool 符合投注条件判断(QStringView line) const;

    QLabel* Label5;
    QLabel* Label6;
    QLineEdit* Text3;
    QLabel* Label7;
    QLabel* Label2;
    QComboBox* Combo1;
    QPushButton* Command6;

    qint32 BetMin = 0;
    qint32 BetMax = 0;

protected:
    bool ruleIsValid() override;
    ForecastHooks ruleAsItStands() override;

private:
    DrawHistory& m_rows;
};
