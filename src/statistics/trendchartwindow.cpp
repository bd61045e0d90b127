#include "statistics/trendchartwindow.h"

#include "history/drawhistory.h"
#include "platform/textrules.h"
#include "settings/settingsstore.h"
#include "statistics/trendmodel.h"
#include "statistics/trendpicture.h"
#include "statistics/trendview.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

namespace {

const QString section = QStringLiteral("走势图");
const QString drawCountKey = QStringLiteral("期数");
const QString sizeKey = QStringLiteral("窗口大小"); // "width,height" in pixels
const QString allDraws = QStringLiteral("全部");
const QString presetDrawCount = QStringLiteral("100");

// The longest issue text of the chart, for the width of its column.
QString widestIssue(const trendchart::Chart& chart)
{
    QString widest = QStringLiteral("0000000");
    for (const trendchart::Draw& draw : chart.draws) {
        if (draw.issue.size() > widest.size())
            widest = draw.issue;
    }
    return widest;
}

QTableView* chartTable(QWidget* parent, const char* name, const TrendLook& look, TrendDelegate* delegate)
{
    auto* view = new QTableView(parent);
    view->setObjectName(QLatin1String(name));
    view->setItemDelegate(delegate);
    view->setShowGrid(false);
    view->setWordWrap(false);
    view->setCornerButtonEnabled(false);
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->verticalHeader()->setMinimumSectionSize(1);
    view->verticalHeader()->setDefaultSectionSize(look.rowHeight);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    return view;
}

void fixColumns(QTableView* view, const TrendLook& look)
{
    QHeaderView* header = view->horizontalHeader();
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(QHeaderView::Fixed);
    for (int column = 0; column < trendcolumns::count; ++column)
        header->resizeSection(column, look.columnWidth(column));
}

} // namespace

const QStringList& TrendChartWindow::drawCounts()
{
    static const QStringList entries{QStringLiteral("30"), QStringLiteral("50"), QStringLiteral("100"),
                                     QStringLiteral("200"), QStringLiteral("500"), allDraws};
    return entries;
}

TrendChartWindow::TrendChartWindow(AppContext& context, const DrawHistory& history, QWidget* parent)
    : ModalWindow(context, parent), m_chart(trendchart::build(history))
{
    setObjectName(QStringLiteral("TrendChartWindow"));
    setWindowTitle(QStringLiteral("双色球基本走势图"));
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
    setWindowFlag(Qt::WindowMinimizeButtonHint, true);
    setSizeGripEnabled(true);

    m_look = TrendLook::forFont(font(), widestIssue(m_chart));
    m_model = new TrendModel(m_chart, this);
    m_footerModel = new TrendFooterModel(this);
    m_delegate = new TrendDelegate(m_look, this);
    buildControls();

    QStringList skippedTexts;
    if (m_chart.incompleteRows > 0)
        skippedTexts << QStringLiteral("已略过%1期号码不完整的记录").arg(textrules::decimal(m_chart.incompleteRows));
    if (m_chart.badIssueRows > 0)
        skippedTexts << QStringLiteral("已略过%1期期号不是整数的记录").arg(textrules::decimal(m_chart.badIssueRows));
    skippedLabel->setText(skippedTexts.join(QStringLiteral("，")));
    skippedLabel->setVisible(!skippedTexts.isEmpty());

    QString stored = m_context.settings.read(section, drawCountKey, presetDrawCount);
    if (!drawCounts().contains(stored))
        stored = presetDrawCount;
    drawCountList->setCurrentText(stored);
    showDrawCount(stored);
    connect(drawCountList, &QComboBox::currentTextChanged, this, [this](const QString& entry) {
        m_context.runEvent([&] { showDrawCount(entry); });
    });

    layout()->activate();
    resize(preferredSize());
}

void TrendChartWindow::buildControls()
{
    auto* drawCountCaption = controls::label(this, "drawCountCaption", QStringLiteral("显示期数："));
    drawCountList = controls::pickList(this, "drawCountList", drawCounts());
    drawCountList->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    drawCountCaption->setBuddy(drawCountList);
    omissionTick = controls::tick(this, "omissionTick", QStringLiteral("显示遗漏"));
    omissionTick->setChecked(true);
    skippedLabel = controls::label(this, "skippedLabel", QString());
    skippedLabel->setStyleSheet(QStringLiteral("color: #b01e16;"));
    saveButton = controls::button(this, "saveButton", QStringLiteral("保存图片"));
    saveButton->setAutoDefault(false);

    chartView = chartTable(this, "chartView", m_look, m_delegate);
    chartView->setHorizontalHeader(new TrendHeader(m_look, chartView));
    chartView->setModel(m_model);
    chartView->setSelectionBehavior(QAbstractItemView::SelectRows);
    chartView->setSelectionMode(QAbstractItemView::SingleSelection);
    chartView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    chartView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fixColumns(chartView, m_look);

    footerView = chartTable(this, "footerView", m_look, m_delegate);
    footerView->horizontalHeader()->hide();
    footerView->setModel(m_footerModel);
    footerView->setSelectionMode(QAbstractItemView::NoSelection);
    footerView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    footerView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    fixColumns(footerView, m_look);
    const int footerHeight = m_footerModel->rowCount() * m_look.rowHeight + 2 * footerView->frameWidth()
                             + footerView->horizontalScrollBar()->sizeHint().height();
    footerView->setFixedHeight(footerHeight);
    // The footer scrolls sideways for both: the chart's own bar is hidden.
    connect(footerView->horizontalScrollBar(), &QScrollBar::valueChanged, chartView->horizontalScrollBar(),
            &QScrollBar::setValue);
    connect(chartView->horizontalScrollBar(), &QScrollBar::valueChanged, footerView->horizontalScrollBar(),
            &QScrollBar::setValue);

    pickLabel = controls::label(this, "pickLabel", QString());
    pickLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long pick may be cut where the window is narrow: it never widens the
    // window, and the copy holds it whole.
    pickLabel->setMinimumWidth(pickLabel->fontMetrics().horizontalAdvance(QStringLiteral("01 02 03 04 05 06 + 01")));
    betsLabel = controls::label(this, "betsLabel", QString());
    copyButton = controls::button(this, "copyButton", QStringLiteral("复制选号"));
    copyButton->setAutoDefault(false);
    clearPickButton = controls::button(this, "clearPickButton", QStringLiteral("清空选号"));
    clearPickButton->setAutoDefault(false);
    closeButton = controls::button(this, "closeButton", QStringLiteral("关闭"));
    closeButton->setAutoDefault(false);
    setEscapeButton(closeButton);

    auto* top = new QHBoxLayout;
    top->addWidget(drawCountCaption);
    top->addWidget(drawCountList);
    top->addSpacing(16);
    top->addWidget(omissionTick);
    top->addSpacing(16);
    top->addWidget(skippedLabel);
    top->addStretch(1);
    top->addWidget(saveButton);

    // The footer ends where the chart's vertical bar begins, so that its
    // columns stay under the chart's at either end of the sideways scroll.
    auto* footerRow = new QHBoxLayout;
    footerRow->setSpacing(0);
    footerRow->addWidget(footerView);
    footerRow->addSpacing(chartView->verticalScrollBar()->sizeHint().width());

    auto* pickRow = new QHBoxLayout;
    pickRow->addWidget(controls::label(this, "pickCaption", QStringLiteral("选号：")));
    pickRow->addWidget(pickLabel);
    pickRow->addSpacing(16);
    pickRow->addWidget(betsLabel);
    pickRow->addSpacing(16);
    pickRow->addWidget(copyButton);
    pickRow->addWidget(clearPickButton);
    pickRow->addStretch(1);
    pickRow->addWidget(closeButton);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(chartView, 1);
    layout->addSpacing(-layout->spacing());
    layout->addLayout(footerRow);
    layout->addLayout(pickRow);

    connect(omissionTick, &QCheckBox::toggled, m_model, &TrendModel::setShowOmission);
    connect(m_footerModel, &TrendFooterModel::pickChanged, this, &TrendChartWindow::pickChanged);
    onClick(copyButton, [this] { copyPick(); });
    onClick(clearPickButton, [this] { m_footerModel->clearPick(); });
    onClick(saveButton, [this] { savePicture(); });
    onClick(closeButton, [this] { close(); });
    pickChanged();
}

void TrendChartWindow::showDrawCount(const QString& entry)
{
    const int newest = entry == allDraws ? 0 : textrules::toWhole(entry).value_or(0);
    const int first = trendchart::firstShown(m_chart, newest);
    const int count = int(m_chart.draws.size()) - first;
    m_model->setShown(first, count);
    m_footerModel->setFooter(trendchart::footer(m_chart, first, count));
    chartView->scrollToBottom();
}

void TrendChartWindow::pickChanged()
{
    const TrendPick& pick = m_footerModel->pick();
    pickLabel->setText(pick.isEmpty() ? QStringLiteral("（点击选号行的号码）") : pick.text());
    betsLabel->setText(QStringLiteral("%1注，%2元")
                           .arg(textrules::decimal(pick.bets()), textrules::decimal(pick.cost())));
    copyButton->setEnabled(!pick.isEmpty());
    clearPickButton->setEnabled(!pick.isEmpty());
}

void TrendChartWindow::copyPick()
{
    m_context.clipboard.clear();
    m_context.clipboard.setText(m_footerModel->pick().text());
}

void TrendChartWindow::savePicture()
{
    const QString path = m_context.fileDialogs.saveFileName(QStringLiteral("PNG 图片 (*.png)"), QStringLiteral("png"));
    if (path.isEmpty())
        return;
    saveButton->setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // Only painting runs meanwhile: a click can't start a second picture or
    // change the chart under the one being drawn.
    const QImage picture = trendpicture::paint(m_look, *m_model, *m_footerModel, [] {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    const bool saved = !picture.isNull() && trendpicture::savePng(picture, path);
    QApplication::restoreOverrideCursor();
    saveButton->setEnabled(true);
    if (picture.isNull())
        m_context.messages.show(MessageIcon::Critical, QStringLiteral("走势图太大，无法生成图片，请减少显示的期数后再试。"));
    else if (!saved)
        m_context.messages.show(MessageIcon::Critical, QStringLiteral("无法保存图片：") + path);
}

QSize TrendChartWindow::preferredSize() const
{
    const QRect screen = this->screen() ? this->screen()->availableGeometry() : QRect(0, 0, 1600, 1000);
    const QSize limit = screen.size() - QSize(40, 60);
    QSize wanted(m_look.chartWidth() + chartView->verticalScrollBar()->sizeHint().width() + 40, 860);
    const QStringList stored = textrules::split(m_context.settings.read(section, sizeKey, QString()), QStringLiteral(","));
    if (stored.size() == 2) {
        const std::optional<qint32> width = textrules::toWhole(stored[0]);
        const std::optional<qint32> height = textrules::toWhole(stored[1]);
        if (width && height && *width > 0 && *height > 0)
            wanted = QSize(*width, *height);
    }
    return wanted.boundedTo(limit).expandedTo(minimumSizeHint());
}

void TrendChartWindow::Form_Unload()
{
    m_context.settings.write(section, drawCountKey, drawCountList->currentText());
    const QSize kept = isMaximized() ? normalGeometry().size() : size();
    m_context.settings.write(section, sizeKey, textrules::decimal(kept.width()) + QLatin1Char(',')
                                                   + textrules::decimal(kept.height()));
}
