#pragma once

// "过滤式预测": the plain forecast with the red numbers that the user forbids
// in Text3. The list is checked against the ball ranges before the group
// count, and a drawn red that the text names is drawn again.

#include "forecast/forecastwindow.h"

class ForecastFilter : public ForecastWindow {
    Q_OBJECT

public:
    ForecastFilter(AppContext& context, const DrawHistory& history, QWidget* parent = nullptr);

    void Form_Load();
    void Form_Unload() override;
    void Command1_Click();
    bool 校验过滤号码的合法性() const;

    QLabel* Label5;
    QLabel* Label6;
    QLineEdit* Text3;
    QLabel* Label7;

protected:
    bool ruleIsValid() override;
    ForecastHooks ruleAsItStands() override;
};
