#pragma once

// "一般性预测": the plain forecast. It makes the asked number of groups under
// the six ball ranges and the fixed tests, with no rule of the user's own.
// Loaded for each use and unloaded at closing.

#include "forecast/forecastwindow.h"

class ForecastNormal : public ForecastWindow {
    Q_OBJECT

public:
    ForecastNormal(AppContext& context, const DrawHistory& history, QWidget* parent = nullptr);

    void Form_Load();
    void Form_Unload() override;
    void Command1_Click();

    QLabel* Label5;
};
