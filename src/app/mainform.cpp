#include "app/mainform.h"

#include "app/about.h"
#include "app/formuseage.h"
#include "app/logo.h"
#include "app/net35.h"
#include "app/net352.h"
#include "forecast/batfilter.h"
#include "forecast/divide3remaind.h"
#include "forecast/forecastbet.h"
#include "forecast/forecastfilter.h"
#include "forecast/forecastnormal.h"
#include "history/formadd.h"
#include "history/forminput.h"
#include "history/historyfile.h"
#include "history/numbercolumns.h"
#include "online/drawupdate.h"
#include "online/formsearchpic.h"
#include "online/updateprogress.h"
#include "platform/appinfo.h"
#include "platform/textrules.h"
#include "prize/prizecheckwindow.h"
#include "settings/ballranges.h"
#include "settings/form6qiu.h"
#include "settings/optionform.h"
#include "statistics/chartcommands.h"
#include "statistics/perball.h"
#include "statistics/qiuhaonoshow.h"
#include "statistics/sevenball.h"
#include "statistics/trendchartwindow.h"
#include "wheel/wheelwindow.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"
#include "windowkit/screencentre.h"
#include "windowkit/twips.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTreeView>

MainForm::MainForm(AppContext& context, QWidget* parent)
    : QMainWindow(parent), m_context(context), m_history(this)
{
    setObjectName(QStringLiteral("MainForm"));
    setWindowTitle(appinfo::title());
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    buildControls();
    buildMenus();

    // The client area as drawn, status bar included; the menu bar stands above it.
    const QSize client = twips::size(10830, 7875);
    centralWidget()->setFixedSize(client.width(), client.height() - statusBar()->sizeHint().height());
    setFixedSize(client.width(), menuBar()->sizeHint().height() + client.height());
    screencentre::onFirstShow(this);
}

Logo* MainForm::logo() const
{
    return m_logo;
}

MainForm::~MainForm()
{
    // The splash is a window of its own; it goes with the main window.
    delete m_logo;
}

void MainForm::buildControls()
{
    auto* client = new QWidget(this);
    client->setObjectName(QStringLiteral("client"));
    setCentralWidget(client);

    Label1 = controls::label(client, "Label1", QStringLiteral("双色球开奖历史："), twips::rect(120, 15, 1560, 180));
    Label6 = controls::label(client, "Label6", QStringLiteral("[点击表头，可以对该栏目排序.]"),
                   twips::rect(3945, 45, 2610, 180));

    ListView1 = new QTreeView(client);
    ListView1->setObjectName(QStringLiteral("ListView1"));
    ListView1->setGeometry(twips::rect(105, 240, 10620, 4980));
    ListView1->setModel(&m_history);
    ListView1->setRootIsDecorated(false);
    ListView1->setItemsExpandable(false);
    ListView1->setUniformRowHeights(true);
    ListView1->setAllColumnsShowFocus(true);
    ListView1->setSelectionMode(QAbstractItemView::SingleSelection);
    ListView1->setSelectionBehavior(QAbstractItemView::SelectRows);
    ListView1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListView1->setSortingEnabled(false);
    ListView1->setContextMenuPolicy(Qt::CustomContextMenu);
    QHeaderView* header = ListView1->header();
    header->setSectionsClickable(true);
    header->setSectionsMovable(false);
    header->setStretchLastSection(false);
    header->setSortIndicatorShown(false);
    header->resizeSection(0, twips::px(2117));
    header->resizeSection(1, twips::px(5292));
    for (int column = 2; column < DrawHistory::ColumnCount; ++column)
        header->resizeSection(column, twips::px(882));
    connect(header, &QHeaderView::sectionClicked, this,
            [this](int logicalIndex) { m_context.runEvent([&] { ListView1_ColumnClick(logicalIndex + 1); }); });
    connect(ListView1, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& position) { ListView1_MouseDown(position); });

    Label4 = controls::label(client, "Label4", QStringLiteral("本软件将大大提高您的中奖机会！！！"),
                   twips::rect(2640, 5370, 5355, 300));
    QFont slogan = Label4->font();
    slogan.setPointSize(12);
    slogan.setBold(true);
    Label4->setFont(slogan);
    Label4->setStyleSheet(QStringLiteral("color: #C00000;"));
    Label4->setAlignment(Qt::AlignCenter);

    Frame1 = new QGroupBox(QStringLiteral("统计"), client);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Frame1->setGeometry(twips::rect(105, 5745, 10620, 1560));
    Label2 = controls::label(Frame1, "Label2", QStringLiteral("球："), twips::rect(360, 420, 360, 180));
    Combo1 = controls::pickList(Frame1, "Combo1", {"1", "2", "3", "4", "5", "6", "7", "8"}, twips::rect(720, 360, 1110, 300));
    Command3 = controls::button(Frame1, "Command3", QStringLiteral("频率统计"), twips::rect(1875, 315, 1095, 390));
    Combo2 = controls::pickList(Frame1, "Combo2",
                      {QStringLiteral("球2－球1"), QStringLiteral("球3－球2"), QStringLiteral("球4－球3"),
                       QStringLiteral("球5－球4"), QStringLiteral("球6－球5")},
                      twips::rect(4245, 360, 1455, 300));
    Command5 = controls::button(Frame1, "Command5", QStringLiteral("差值统计"), twips::rect(5745, 315, 1095, 390));
    Combo3 = controls::pickList(Frame1, "Combo3",
                      {QStringLiteral("(球2+球1)/2"), QStringLiteral("(球3+球2)/2"), QStringLiteral("(球4+球3)/2"),
                       QStringLiteral("(球5+球4)/2"), QStringLiteral("(球6+球5)/2")},
                      twips::rect(7605, 360, 1455, 300));
    Command6 = controls::button(Frame1, "Command6", QStringLiteral("平均值统计"), twips::rect(9105, 315, 1095, 390));
    Command7 = controls::button(Frame1, "Command7", QStringLiteral("七个球总和之平均统计"), twips::rect(375, 975, 2205, 390));
    Command12 = controls::button(Frame1, "Command12", QStringLiteral("七个球偶数出现率统计"), twips::rect(4245, 975, 2205, 390));
    const std::pair<QPushButton*, void (MainForm::*)()> buttons[] = {
        {Command3, &MainForm::Command3_Click}, {Command5, &MainForm::Command5_Click},
        {Command6, &MainForm::Command6_Click}, {Command7, &MainForm::Command7_Click},
        {Command12, &MainForm::Command12_Click},
    };
    for (const auto& [widget, handler] : buttons)
        connect(widget, &QPushButton::clicked, this, [this, handler = handler] {
            m_context.runEvent([&] { (this->*handler)(); });
        });

    QStatusBar* bar = statusBar();
    bar->setObjectName(QStringLiteral("StatusBar1"));
    bar->setSizeGripEnabled(false);
    // Without the grip nothing stands right of the last panel: a margin keeps
    // it inside the window, as far from the right edge as the first panel
    // stands from the left one.
    bar->setContentsMargins(0, 0, 2, 0);
    for (size_t i = 0; i < m_panels.size(); ++i) {
        auto* panel = new QLabel(bar);
        panel->setObjectName(QStringLiteral("Panel%1").arg(i + 1));
        panel->setFrameShape(QFrame::Panel);
        panel->setFrameShadow(QFrame::Sunken);
        m_panels[i] = panel;
    }
    m_panels[0]->setText(QStringLiteral("澄川软件"));
    m_panels[0]->setToolTip(QStringLiteral("澄川软件"));
    // Panel 2 is the one that gives way; the others keep their width.
    const int fixedPanel = twips::px(2540);
    m_panels[0]->setFixedWidth(fixedPanel);
    m_panels[2]->setFixedWidth(fixedPanel);
    m_panels[3]->setFixedWidth(fixedPanel);
    m_panels[1]->setMinimumWidth(0);
    bar->addWidget(m_panels[0], 0);
    bar->addWidget(m_panels[1], 1);
    bar->addWidget(m_panels[2], 0);
    bar->addWidget(m_panels[3], 0);
}

QAction* MainForm::addEntry(QMenu* menu, const QString& caption, void (MainForm::*handler)())
{
    QAction* action = menu->addAction(caption);
    connect(action, &QAction::triggered, this, [this, handler] { m_context.runEvent([&] { (this->*handler)(); }); });
    return action;
}

QAction* MainForm::addSeparator(QMenu* menu, const char* name)
{
    QAction* separator = menu->addSeparator();
    separator->setObjectName(QLatin1String(name));
    return separator;
}

void MainForm::buildMenus()
{
    QMenuBar* bar = menuBar();

    menu列表 = bar->addMenu(QStringLiteral("列表(&L)"));
    menu添加 = addEntry(menu列表, QStringLiteral("添加"), &MainForm::menu添加_Click);
    menu删除 = addEntry(menu列表, QStringLiteral("删除"), &MainForm::menu删除_Click);
    menu修改 = addEntry(menu列表, QStringLiteral("修改"), &MainForm::menu修改_Click);
    ghtre432643 = addSeparator(menu列表, "ghtre432643");
    menu复制一组号码 = addEntry(menu列表, QStringLiteral("复制一组号码"), &MainForm::menu复制一组号码_Click);
    menu拆分八位数字 = addEntry(menu列表, QStringLiteral("拆分八位数字"), &MainForm::menu拆分八位数字_Click);
    menu拆分八位数字->setVisible(false);
    wetewt43253253 = addSeparator(menu列表, "wetewt43253253");
    menu导入 = addEntry(menu列表, QStringLiteral("批量导入"), &MainForm::menu导入_Click);
    menu在线导入最新开奖数据 = addEntry(menu列表, QStringLiteral("在线导入最新开奖数据"),
                                        &MainForm::menu在线导入最新开奖数据_Click);
    menu一键更新开奖数据 = addEntry(menu列表, QStringLiteral("一键更新开奖数据"),
                                    &MainForm::menu一键更新开奖数据_Click);
    menu清空 = addEntry(menu列表, QStringLiteral("清空"), &MainForm::menu清空_Click);
    erwter4325 = addSeparator(menu列表, "erwter4325");
    menu退出 = addEntry(menu列表, QStringLiteral("退出"), &MainForm::menu退出_Click);

    menu统计 = bar->addMenu(QStringLiteral("统计(&C)"));
    menu七位总和平均统计 = addEntry(menu统计, QStringLiteral("七个球总和之平均统计"),
                                    &MainForm::menu七位总和平均统计_Click);
    menu七位奇偶数统计 = addEntry(menu统计, QStringLiteral("七个球偶数出现率统计"),
                                  &MainForm::menu七位奇偶数统计_Click);
    retre646 = addSeparator(menu统计, "retre646");
    retre646->setVisible(false);
    menu统计最近未开奖红色球球号 = addEntry(menu统计, QStringLiteral("最近未开奖红色球球号"),
                                            &MainForm::menu统计最近未开奖红色球球号_Click);
    menu统计最近未开奖红色球球号->setVisible(false);

    menu工具 = bar->addMenu(QStringLiteral("工具(&T)"));
    menu设置 = addEntry(menu工具, QStringLiteral("设置"), &MainForm::menu设置_Click);
    menu查看设置 = addEntry(menu工具, QStringLiteral("查看设置"), &MainForm::menu查看设置_Click);
    ert435435 = addSeparator(menu工具, "ert435435");
    menu最新福彩资料 = addEntry(menu工具, QStringLiteral("最新福彩资料"), &MainForm::menu最新福彩资料_Click);

    menu预测与过滤 = bar->addMenu(QStringLiteral("预测与过滤(&Y)"));
    menu一般性预测 = addEntry(menu预测与过滤, QStringLiteral("一般性预测"), &MainForm::menu一般性预测_Click);
    menu过滤式预测 = addEntry(menu预测与过滤, QStringLiteral("过滤式预测"), &MainForm::menu过滤式预测_Click);
    menu投注式预测 = addEntry(menu预测与过滤, QStringLiteral("投注式预测"), &MainForm::menu投注式预测_Click);
    menu除3余数预测 = addEntry(menu预测与过滤, QStringLiteral("除3余数预测"), &MainForm::menu除3余数预测_Click);
    menu除3余数预测->setVisible(false);
    dsg43543 = addSeparator(menu预测与过滤, "dsg43543");
    menu号码组过滤 = addEntry(menu预测与过滤, QStringLiteral("号码组过滤"), &MainForm::menu号码组过滤_Click);

    menu分析 = bar->addMenu(QStringLiteral("分析(&A)"));
    menu基本走势图 = addEntry(menu分析, QStringLiteral("基本走势图"), &MainForm::menu基本走势图_Click);
    menu中奖查询 = addEntry(menu分析, QStringLiteral("中奖查询"), &MainForm::menu中奖查询_Click);
    menu旋转矩阵 = addEntry(menu分析, QStringLiteral("旋转矩阵"), &MainForm::menu旋转矩阵_Click);

    menu帮助 = bar->addMenu(QStringLiteral("帮助(&H)"));
    menu关于 = addEntry(menu帮助, QStringLiteral("关于"), &MainForm::menu关于_Click);
    menu软件使用方法 = addEntry(menu帮助, QStringLiteral("软件使用方法"), &MainForm::menu软件使用方法_Click);
    menu软件权限设置方法 = addEntry(menu帮助, QStringLiteral("软件权限设置方法"),
                                    &MainForm::menu软件权限设置方法_Click);
    menu微软组件安装 = addEntry(menu帮助, QStringLiteral("微软组件安装"), &MainForm::menu微软组件安装_Click);
    eter34634 = addSeparator(menu帮助, "eter34634");
    menu作者网站和其他软件 = addEntry(menu帮助, QStringLiteral("作者网站和其他软件"),
                                      &MainForm::menu作者网站和其他软件_Click);
    menuEmail给软件作者 = addEntry(menu帮助, QStringLiteral("Email给软件作者"), &MainForm::menuEmail给软件作者_Click);
    menu定制软件 = addEntry(menu帮助, QStringLiteral("定制软件"), &MainForm::menu定制软件_Click);
}

QString MainForm::historyPath() const
{
    return historyfile::pathIn(m_context.programFolder);
}

// ---- Start and exit -------------------------------------------------------

void MainForm::Form_Load()
{
    // Every step ignores its failures: start-up always reaches the main window.
    hide();
    m_logo = new Logo(m_context, *this);
    m_logo->Form_Load();
    QCoreApplication::processEvents();

    setWindowTitle(appinfo::title() + QStringLiteral(" V%1.%2-澄川软件").arg(appinfo::major).arg(appinfo::minor));
    m_savedHeight = height();
    m_savedWidth = width();
    打开列表(historyPath());
    try {
        menu拆分八位数字_Click();
    } catch (const RuntimeError&) {
        // A row with fewer than eight numbers ends the pass here only: the rows
        // behind it stay without number columns, and start-up goes on.
    }
    Combo1->setCurrentIndex(0);
    Combo2->setCurrentIndex(0);
    Combo3->setCurrentIndex(0);
    ballranges::read(m_context.settings, m_context.ranges);
    m_context.DrawSiteBase = m_context.addresses.drawSiteBase;
}

void MainForm::Form_Unload()
{
    // Never asks and is never cancelled. The history goes first, then the
    // ranges; a file that can't be written loses this run's edits silently.
    m_unloaded = true;
    保存列表(historyPath());
    ballranges::write(m_context.settings, m_context.ranges);
    m_context.process.endProcess(0);
}

void MainForm::closeEvent(QCloseEvent* event)
{
    if (!m_unloaded)
        Form_Unload();
    event->accept();
}

void MainForm::Form_Resize()
{
    // The window can't be resized: every attempt snaps back to the designed size.
    if (isMinimized() || m_savedWidth == 0)
        return;
    if (width() != m_savedWidth || height() != m_savedHeight)
        resize(m_savedWidth, m_savedHeight);
}

void MainForm::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void MainForm::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && (windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)))
        setWindowState(windowState() & ~(Qt::WindowMaximized | Qt::WindowFullScreen));
}

// ---- The history file and the number columns ------------------------------

void MainForm::打开列表(const QString& path)
{
    StatusBar1Panel(2)->setText(QStringLiteral("正在加载列表，请稍候..."));
    historyfile::read(path, m_history);
    StatusBar1Panel(2)->setText(QStringLiteral("列表加载完成。"));
    setCountPanel();
    ListView1->viewport()->update();
}

void MainForm::保存列表(const QString& path)
{
    historyfile::write(path, m_history);
}

void MainForm::menu拆分八位数字_Click()
{
    numbercolumns::split(m_history);
}

void MainForm::清空LV10()
{
    numbercolumns::clearScratch(m_history);
}

void MainForm::setCountPanel()
{
    StatusBar1Panel(3)->setText(QStringLiteral("彩票期数：") + textrules::decimal(m_history.count()));
}

// ---- The list --------------------------------------------------------------

void MainForm::ListView1_ColumnClick(int columnHeaderIndex)
{
    m_history.columnClick(columnHeaderIndex);
}

void MainForm::ListView1_MouseDown(const QPoint& position)
{
    menu列表->popup(ListView1->viewport()->mapToGlobal(position));
}

int MainForm::selectedRow() const
{
    const QModelIndexList rows = ListView1->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.constFirst().row();
}

// ---- Menu entries -----------------------------------------------------------

void MainForm::menu添加_Click()
{
    FormAdd form(m_context, m_history, this);
    form.AddMode = true;
    form.exec();
    // Confirmed or not, the pass runs, and a row it can't split is not
    // caught here: the program ends with nothing of this run saved.
    menu拆分八位数字_Click();
    setCountPanel();
}

void MainForm::menu删除_Click()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    m_history.removeAt(row);
    setCountPanel();
}

void MainForm::menu修改_Click()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    FormAdd form(m_context, m_history, this);
    form.AddMode = false;
    form.ModifiedRow = row;
    form.Text1->setText(m_history.text(row));
    form.Text2->setText(m_history.subItem(row, DrawHistory::GroupSubItem));
    form.exec();
    menu拆分八位数字_Click(); // not caught, as after an add
}

void MainForm::menu复制一组号码_Click()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    const QString group = textrules::trim(m_history.subItem(row, DrawHistory::GroupSubItem));
    if (group.isEmpty())
        return;
    m_context.clipboard.clear();
    m_context.clipboard.setText(group);
}

void MainForm::menu导入_Click()
{
    FormInput form(m_context, m_history, this);
    form.exec();
    menu拆分八位数字_Click(); // not caught, as after an add
    setCountPanel();
}

void MainForm::menu在线导入最新开奖数据_Click()
{
    // Failures are ignored statement by statement: a row that stops the
    // number column pass ends the pass only, and it comes last.
    {
        FormSearchPic form(m_context, m_history, this);
        form.exec();
    }
    setCountPanel();
    try {
        menu拆分八位数字_Click();
    } catch (const RuntimeError&) {
        // The rows behind the one that stopped it stay without number columns.
    }
}

void MainForm::menu一键更新开奖数据_Click()
{
    DrawUpdate update(m_history, m_context.addresses.feedBase, m_context.DrawSiteBase);
    runWithProgress(update, this);
    if (update.outcome() == DrawUpdate::Outcome::Failed)
        m_context.messages.show(MessageIcon::Critical, QStringLiteral("无法获取最新开奖数据，请检查网络连接。"));
    if (update.outcome() != DrawUpdate::Outcome::Done)
        return; // nothing of a failed or cancelled update is kept
    const int added = update.insertInto(m_history);
    // As after the online import: a row that stops the pass ends the pass only.
    setCountPanel();
    try {
        menu拆分八位数字_Click();
    } catch (const RuntimeError&) {
    }
    m_context.messages.show(MessageIcon::Information, update.report(added));
}

void MainForm::menu清空_Click()
{
    if (!m_context.messages.askYesNo(QStringLiteral("清空列表，将导致很多功能无法正常工作！你打算清空吗？")))
        return;
    m_history.clear();
    setCountPanel();
}

void MainForm::menu退出_Click()
{
    close();
}

void MainForm::menu七位总和平均统计_Click()
{
    // Text1 carries the pair of Combo3 along, although the panel is hidden
    // and nobody reads it there.
    chartcommands::showChart(m_context, sevenball::means(m_history), QStringLiteral("7位数的平均值图表"),
                             Combo3->currentText(), this);
    清空LV10();
}

void MainForm::menu七位奇偶数统计_Click()
{
    // The chart window's Text1 is left as it comes.
    chartcommands::showChart(m_context, sevenball::evenCounts(m_history),
                             QStringLiteral("7位数偶数出现的次数统计图表"), std::nullopt, this);
    清空LV10();
}

void MainForm::menu统计最近未开奖红色球球号_Click()
{
    qiuhaonoshow window(m_context, m_history, this);
    window.exec();
}

void MainForm::menu设置_Click()
{
    OptionForm window(m_context, m_history, this);
    window.exec();
}

void MainForm::menu查看设置_Click()
{
    Form6Qiu window(m_context, this);
    window.exec();
}

void MainForm::menu最新福彩资料_Click()
{
    m_context.launcher.openAddress(m_context.DrawSiteBase + QStringLiteral("/ssq/kaijiangshuju/"));
}

void MainForm::menu一般性预测_Click()
{
    ForecastNormal window(m_context, m_history, this);
    window.exec();
}

void MainForm::menu过滤式预测_Click()
{
    ForecastFilter window(m_context, m_history, this);
    window.exec();
}

void MainForm::menu投注式预测_Click()
{
    ForecastBet window(m_context, m_history, this);
    window.exec();
}

void MainForm::menu除3余数预测_Click()
{
    divide3remaind window(m_context, m_history, this);
    window.exec();
}

void MainForm::menu号码组过滤_Click()
{
    BatFilter window(m_context, m_history, this);
    window.exec();
}

void MainForm::menu中奖查询_Click()
{
    PrizeCheckWindow window(m_context, m_history, QString(), this);
    window.exec();
}

void MainForm::menu基本走势图_Click()
{
    TrendChartWindow window(m_context, m_history, this);
    window.exec();
}

void MainForm::menu旋转矩阵_Click()
{
    WheelWindow window(m_context, m_history, this);
    window.exec();
}

void MainForm::menu关于_Click()
{
    About window(m_context, this);
    window.exec();
}

void MainForm::menu软件使用方法_Click()
{
    FormUseage window(m_context, this);
    window.exec();
}

void MainForm::menu软件权限设置方法_Click()
{
    Net352 window(m_context, this);
    window.exec();
}

void MainForm::menu微软组件安装_Click()
{
    Net35 window(m_context, this);
    window.exec();
}

void MainForm::menu作者网站和其他软件_Click()
{
    m_context.launcher.openAddress(m_context.addresses.makerWebSite);
}

void MainForm::menuEmail给软件作者_Click()
{
    const QString lineEnd = QStringLiteral("\r\n");
    const QString body = QStringLiteral("软件名称：") + appinfo::title() + lineEnd + lineEnd
                         + QStringLiteral(" 姓名：      ") + lineEnd + QStringLiteral(" QQ号码：     ") + lineEnd
                         + QStringLiteral(" Email：     ") + lineEnd + QStringLiteral(" 联系地址：     ") + lineEnd
                         + QStringLiteral(" 邮编：      ") + lineEnd + QStringLiteral(" 日期：")
                         + QLocale::system().toString(m_context.clock.now().date(), QLocale::ShortFormat);
    // The subject follows the address with "&", and nothing is escaped: this is
    // the form in which the link goes to the mail program.
    m_context.launcher.openAddress(QStringLiteral("mailto:") + m_context.addresses.makerMail
                                   + QStringLiteral("&subject=我要对软件：") + appinfo::title()
                                   + QStringLiteral(" 提建议") + QStringLiteral("&body=") + body);
}

void MainForm::menu定制软件_Click()
{
    m_context.launcher.openAddress(m_context.addresses.makerWebSite + QStringLiteral("customware.htm"));
}

// ---- The buttons of Frame1 --------------------------------------------------

void MainForm::Command3_Click()
{
    Command3->setEnabled(false);
    // The pick list holds the balls "1" to "8"; a text that isn't a number opens nothing.
    if (const std::optional<qint32> ball = textrules::toWhole(Combo1->currentText()))
        chartcommands::showBallChart(m_context, m_history, *ball, this);
    Command3->setEnabled(true);
}

void MainForm::Command5_Click()
{
    Command5->setEnabled(false);
    chartcommands::showChart(m_context, perball::differences(m_history, Combo2->currentIndex()),
                             Combo2->currentText() + QStringLiteral("的差值图表"), Combo2->currentText(), this);
    清空LV10();
    Command5->setEnabled(true);
}

void MainForm::Command6_Click()
{
    Command6->setEnabled(false);
    chartcommands::showChart(m_context, perball::pairMeans(m_history, Combo3->currentIndex()),
                             Combo3->currentText() + QStringLiteral("的平均值图表"), Combo3->currentText(), this);
    清空LV10();
    Command6->setEnabled(true);
}

void MainForm::Command7_Click()
{
    Command7->setEnabled(false);
    menu七位总和平均统计_Click();
    Command7->setEnabled(true);
}

void MainForm::Command12_Click()
{
    Command12->setEnabled(false);
    menu七位奇偶数统计_Click();
    Command12->setEnabled(true);
}
