#include "statistics/chartcommands.h"

#include "platform/textrules.h"
#include "statistics/formchart.h"
#include "statistics/perball.h"

#include <QComboBox>
#include <QFrame>
#include <QLineEdit>

namespace chartcommands {

void showBallChart(AppContext& context, DrawHistory& history, int ball, QWidget* parent)
{
    FormChart chart(context, parent);
    const QString number = textrules::decimal(ball);
    chart.setWindowTitle(QStringLiteral("球") + number + QStringLiteral("的图表"));
    chart.Text1->setText(number);
    chart.Picture1->setVisible(true); // the panel is what makes this the setting mode

    const ColumnChart frequency = perball::frequency(history, ball);
    chart.setChartTable(frequency.table);
    chart.Combo1->addItems(frequency.values);
    chart.Combo2->addItems(frequency.values);
    chart.Combo1->setCurrentIndex(0);
    chart.Combo2->setCurrentIndex(chart.Combo2->count() - 1);
    chart.加载MAXMIN();
    chart.exec();
}

void showChart(AppContext& context, const ChartTable& table, const QString& caption,
               const std::optional<QString>& text1, QWidget* parent)
{
    FormChart chart(context, parent);
    chart.setWindowTitle(caption);
    if (text1)
        chart.Text1->setText(*text1);
    chart.Picture1->setVisible(false);
    chart.setChartTable(table);
    chart.exec();
}

} // namespace chartcommands
