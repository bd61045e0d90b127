#pragma once

// The chart window: draws the chart table that a statistic has built and,
// for the frequency of one ball, shows the panel with which the user picks
// the smallest and largest value that the forecasts may use for that ball.
// It computes nothing from the history: its callers fill it and then show it
// modally. A new one is made for each use, so its lists start empty.

#include "statistics/charttable.h"

#include "windowkit/modalwindow.h"

class QBarCategoryAxis;
class QBarSeries;
class QChartView;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QValueAxis;

class FormChart : public ModalWindow {
    Q_OBJECT

public:
    explicit FormChart(AppContext& context, QWidget* parent = nullptr);

    // The chart's rows, categories and values, as the statistic leaves them.
    void setChartTable(const ChartTable& table);
    const ChartTable& chartTable() const { return m_table; }

    // Moves the two lists to the positions saved for the ball of Text1. The
    // caller fills the lists and sets them to their first and last entries
    // before.
    void 加载MAXMIN();
    // "确定": with the panel visible, saves the two positions and, for balls 1
    // to 6, takes the picked values as the ball's range; then closes. Closing
    // by the frame saves nothing.
    void Command1_Click();

    // The drawn chart, for a look at what it shows.
    QBarSeries* chartSeries() const { return m_series; }
    QBarCategoryAxis* categoryAxis() const { return m_categories; }
    QValueAxis* valueAxis() const { return m_values; }

    QChartView* MSChart1;
    QFrame* Picture1; // the ball panel; visible only for the frequency of one ball
    QLabel* Label1;
    QLineEdit* Text1; // the ball number, "1" to "8"
    QLabel* Label2;
    QComboBox* Combo1; // the minimum
    QLabel* Label3;
    QComboBox* Combo2; // the maximum
    QLabel* Label4;
    QPushButton* Command1;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildPanel();
    void drawChart();
    void placeControls();

    ChartTable m_table;
    QBarSeries* m_series = nullptr;
    QBarCategoryAxis* m_categories = nullptr;
    QValueAxis* m_values = nullptr;
};
