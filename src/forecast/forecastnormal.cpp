#include "forecast/forecastnormal.h"

#include <QLabel>
#include <QPushButton>

ForecastNormal::ForecastNormal(AppContext& context, const DrawHistory& history, QWidget* parent)
    : ForecastWindow(context, history, QStringLiteral("ForecastNormal"), ForecastCore::Hooks(), parent)
{
    setWindowTitle(QStringLiteral("一般性预测"));
    Label5 = new QLabel(QStringLiteral("一般性预测：针对设置好了取值范围的6个球，进行预测。"), this);
    Label5->setObjectName(QStringLiteral("Label5"));
    Label5->setGeometry(16, 14, 480, 22);
    layoutCommon(50);

    onClick(Command1, [this] { Command1_Click(); });
    Form_Load();
}

void ForecastNormal::Form_Load()
{
    loadCommon();
    fillHistory();
}

void ForecastNormal::Form_Unload()
{
    unloadCommon();
}

void ForecastNormal::Command1_Click()
{
    if (!groupCountIsValid())
        return;
    run();
}
