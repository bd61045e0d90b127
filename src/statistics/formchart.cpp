#include "statistics/formchart.h"

#include "platform/textrules.h"
#include "statistics/ballpanel.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"
#include "windowkit/programstyle.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QFontMetrics>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QValueAxis>

#include <algorithm>
#include <cmath>

namespace {

// The window's fixed layout, in pixels: the chart across the full width at
// the top, the ball panel below it, "确定" centred at the bottom.
constexpr int windowWidth = 800;
constexpr int windowHeight = 560;
constexpr int margin = 10;
constexpr int buttonWidth = 100;
constexpr int buttonHeight = 28;
constexpr int panelHeight = 38;
constexpr int buttonTop = windowHeight - margin - buttonHeight;
constexpr int panelTop = buttonTop - 8 - panelHeight;
constexpr int chartHeightWithPanel = panelTop - 6;
constexpr int chartHeightAlone = buttonTop - 8;

// The width of the plot area, near enough, to tell how much room a category has.
constexpr int plotWidth = windowWidth - 80;

const QColor barColour(0x3a, 0x78, 0xb5);
const QColor barBorder(0x2a, 0x5a, 0x8a);
const QColor gridColour(0xdd, 0xdd, 0xdd);

// A round step for the value axis: 1, 2 or 5 times a power of ten, giving at
// most about six intervals up to `top`.
qint64 roundStep(double top)
{
    const double rough = std::max(1.0, top / 6.0);
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
        if (factor * power >= rough)
            return qint64(factor * power);
    }
    return qint64(10.0 * power);
}



} // namespace

FormChart::FormChart(AppContext& context, QWidget* parent) : ModalWindow(context, parent)
{
    setObjectName(QStringLiteral("FormChart"));
    setWindowTitle(QStringLiteral("Form2")); // every caller gives its own caption
    setFixedSize(windowWidth, windowHeight);

    MSChart1 = new QChartView(this);
    MSChart1->setObjectName(QStringLiteral("MSChart1"));
    MSChart1->setRenderHint(QPainter::Antialiasing);
    MSChart1->setFrameShape(QFrame::NoFrame);

    buildPanel();

    Command1 = new QPushButton(QStringLiteral("确定"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    // "确定" saves the panel's choice: it is no cancel button, so Escape does nothing here.
    onClick(Command1, [this] { Command1_Click(); });

    placeControls();
    drawChart();
}

void FormChart::buildPanel()
{
    Picture1 = new QFrame(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setFrameShape(QFrame::StyledPanel);
    Picture1->setFrameShadow(QFrame::Sunken);
    Picture1->setVisible(false);

    Label1 = controls::label(Picture1, "Label1", QStringLiteral("设置球："));
    Text1 = new QLineEdit(Picture1);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setFocusPolicy(Qt::NoFocus);
    Text1->setAlignment(Qt::AlignCenter);
    QPalette greyed = Text1->palette();
    greyed.setColor(QPalette::Base, greyed.color(QPalette::Window));
    Text1->setPalette(greyed);
    Label2 = controls::label(Picture1, "Label2", QStringLiteral("取最小值："));
    Combo1 = controls::pickList(Picture1, "Combo1");
    Label3 = controls::label(Picture1, "Label3", QStringLiteral("到最大值："));
    Combo2 = controls::pickList(Picture1, "Combo2");
    Combo1->setMaxVisibleItems(16);
    Combo2->setMaxVisibleItems(16);
    Label4 = controls::label(Picture1, "Label4", QStringLiteral("[用于预测]"));

    // The controls stand in one row, left to right, centred in the panel.
    const int fieldHeight = 24;
    const int gap = 4;
    const int groupGap = 16;
    const auto labelWidth = [](QLabel* label) { return label->fontMetrics().horizontalAdvance(label->text()) + 4; };
    struct Place {
        QWidget* widget;
        int width;
        int gapAfter;
    };
    const Place row[] = {
        {Label1, labelWidth(Label1), gap}, {Text1, 40, groupGap},   {Label2, labelWidth(Label2), gap},
        {Combo1, 84, groupGap},            {Label3, labelWidth(Label3), gap}, {Combo2, 84, groupGap},
        {Label4, labelWidth(Label4), 0},
    };
    int total = 0;
    for (const Place& place : row)
        total += place.width + place.gapAfter;
    const int panelWidth = windowWidth - 2 * margin;
    int x = (panelWidth - total) / 2;
    for (const Place& place : row) {
        place.widget->setGeometry(x, (panelHeight - fieldHeight) / 2, place.width, fieldHeight);
        x += place.width + place.gapAfter;
    }
}

void FormChart::placeControls()
{
    // Without the panel the chart takes its room as well.
    const bool panelShown = Picture1->isVisibleTo(this);
    MSChart1->setGeometry(0, 0, windowWidth, panelShown ? chartHeightWithPanel : chartHeightAlone);
    Picture1->setGeometry(margin, panelTop, windowWidth - 2 * margin, panelHeight);
    Command1->setGeometry((windowWidth - buttonWidth) / 2, buttonTop, buttonWidth, buttonHeight);
}

void FormChart::showEvent(QShowEvent* event)
{
    placeControls();
    ModalWindow::showEvent(event);
}

void FormChart::setChartTable(const ChartTable& table)
{
    m_table = table;
    drawChart();
}

void FormChart::drawChart()
{
    auto* set = new QBarSet(QStringLiteral("C1"));
    set->setColor(barColour);
    set->setBorderColor(barBorder);
    set->setLabelColor(QColor(0x20, 0x20, 0x20));
    set->setLabelFont(programstyle::ui(8));
    QStringList labels;
    double highest = 0;
    for (const ChartRow& row : m_table.rows) {
        // A row into which nothing was written has no bar.
        const double value = textrules::toNumber(row.Data).value_or(0.0);
        set->append(value);
        highest = std::max(highest, value);
        labels.append(row.RowLabel);
    }
    // Where a category is too narrow for its count to stand level, the
    // count stands upright on its bar. The category labels take the largest
    // face in which they stand side by side.
    const int categoryWidth = plotWidth / std::max(1, m_table.RowCount());
    const int widestCount = QFontMetrics(programstyle::ui(8)).horizontalAdvance(textrules::decimal(qint64(highest)));
    const bool uprightCounts = widestCount + 4 > categoryWidth;
    qreal labelSize = 0;
    for (const qreal size : {9.0, 8.0, 7.0}) {
        const QFontMetrics metrics(programstyle::ui(size));
        int widest = 0;
        for (const QString& label : labels)
            widest = std::max(widest, metrics.horizontalAdvance(label));
        labelSize = size;
        if (widest + 4 <= categoryWidth)
            break;
    }

    m_series = new QBarSeries;
    m_series->setName(QStringLiteral("C1"));
    m_series->append(set);
    m_series->setBarWidth(0.72);
    m_series->setLabelsVisible(true);
    m_series->setLabelsFormat(QStringLiteral("@value"));
    m_series->setLabelsPosition(QAbstractBarSeries::LabelsOutsideEnd);
    m_series->setLabelsAngle(uprightCounts ? -90 : 0);

    auto* chart = new QChart;
    chart->setAnimationOptions(QChart::NoAnimation);
    chart->legend()->hide();
    chart->setBackgroundRoundness(0);
    chart->setMargins(QMargins(4, 8, 8, 4));
    chart->addSeries(m_series);

    m_categories = new QBarCategoryAxis;
    m_categories->append(labels);
    m_categories->setLabelsFont(programstyle::ui(labelSize));
    // The labels are short numbers that fit their room as chosen above; the
    // axis would otherwise cut them to "..." well before they touch.
    m_categories->setTruncateLabels(false);
    m_categories->setGridLineVisible(false);
    chart->addAxis(m_categories, Qt::AlignBottom);
    m_series->attachAxis(m_categories);

    // Room above the highest bar for its count, upright counts needing more.
    const double top = std::max(1.0, highest * (uprightCounts ? 1.16 : 1.08));
    const qint64 step = roundStep(top);
    const qint64 axisTop = step * qint64(std::ceil(top / double(step)));
    m_values = new QValueAxis;
    m_values->setRange(0, double(axisTop));
    m_values->setTickCount(int(axisTop / step) + 1);
    m_values->setLabelFormat(QStringLiteral("%d"));
    m_values->setLabelsFont(programstyle::ui(8));
    m_values->setGridLineColor(gridColour);
    m_values->setTitleText(QStringLiteral("出现次数"));
    m_values->setTitleFont(programstyle::ui(9));
    chart->addAxis(m_values, Qt::AlignLeft);
    m_series->attachAxis(m_values);

    QChart* old = MSChart1->chart();
    MSChart1->setChart(chart);
    delete old;
}

void FormChart::加载MAXMIN()
{
    const ballpanel::ListPositions positions = ballpanel::loadPositions(
        m_context.settings, Text1->text(), Combo1->count(), Combo2->count(),
        ballpanel::ListPositions{Combo1->currentIndex(), Combo2->currentIndex()});
    Combo1->setCurrentIndex(positions.minIndex);
    Combo2->setCurrentIndex(positions.maxIndex);
}

void FormChart::Command1_Click()
{
    if (Picture1->isVisibleTo(this))
        ballpanel::confirm(m_context.settings, m_context.ranges, Text1->text(), Combo1->currentIndex(),
                           Combo1->currentText(), Combo2->currentIndex(), Combo2->currentText());
    accept();
}
