#pragma once

// The main window: the draw history in ListView1, the statistics group, the
// status bar and the menu bar from which every other window opens, modally.
// It owns the history and the way from start to exit: at load it reads the
// history and the ball ranges, at unload it writes both and ends the process.

#include "history/drawhistory.h"

#include <QMainWindow>
#include <QPointer>

#include <array>

class AppContext;
class Logo;
class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QMenu;
class QPushButton;
class QTreeView;

class MainForm : public QMainWindow {
    Q_OBJECT

public:
    explicit MainForm(AppContext& context, QWidget* parent = nullptr);
    ~MainForm() override;

    AppContext& context() { return m_context; }
    DrawHistory& history() { return m_history; }
    Logo* logo() const;

    // Start and exit.
    void Form_Load();
    void Form_Unload();
    void Form_Resize();

    // The history file and the number columns.
    void 打开列表(const QString& path);
    void 保存列表(const QString& path);
    void menu拆分八位数字_Click();
    void 清空LV10();
    // Panels(3): "彩票期数：" and the number of rows.
    void setCountPanel();
    // Panels are numbered from 1, as the status bar's are.
    QLabel* StatusBar1Panel(int panel) const { return m_panels[size_t(panel - 1)]; }

    // The list: a click on a column header sorts once, flipping the one
    // direction that the whole list shares. The header index counts from 1.
    void ListView1_ColumnClick(int columnHeaderIndex);
    void ListView1_MouseDown(const QPoint& position);
    // The selected row, or -1.
    int selectedRow() const;

    // Menu entries.
    void menu添加_Click();
    void menu删除_Click();
    void menu修改_Click();
    void menu复制一组号码_Click();
    void menu导入_Click();
    void menu在线导入最新开奖数据_Click();
    void menu一键更新开奖数据_Click();
    void menu清空_Click();
    void menu退出_Click();
    void menu七位总和平均统计_Click();
    void menu七位奇偶数统计_Click();
    void menu统计最近未开奖红色球球号_Click();
    void menu设置_Click();
    void menu查看设置_Click();
    void menu最新福彩资料_Click();
    void menu一般性预测_Click();
    void menu过滤式预测_Click();
    void menu投注式预测_Click();
    void menu除3余数预测_Click();
    void menu号码组过滤_Click();
    void menu基本走势图_Click();
    void menu中奖查询_Click();
    void menu旋转矩阵_Click();
    void menu关于_Click();
    void menu软件使用方法_Click();
    void menu软件权限设置方法_Click();
    void menu微软组件安装_Click();
    void menu作者网站和其他软件_Click();
    void menuEmail给软件作者_Click();
    void menu定制软件_Click();

    // The buttons of Frame1.
    void Command3_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command12_Click();

    // Controls, named as they were drawn.
    QLabel* Label1;
    QLabel* Label6;
    QTreeView* ListView1;
    QLabel* Label4;
    QGroupBox* Frame1;
    QLabel* Label2;
    QComboBox* Combo1;
    QPushButton* Command3;
    QComboBox* Combo2;
    QPushButton* Command5;
    QComboBox* Combo3;
    QPushButton* Command6;
    QPushButton* Command7;
    QPushButton* Command12;

    QMenu* menu列表;
    QAction* menu添加;
    QAction* menu删除;
    QAction* menu修改;
    QAction* ghtre432643;
    QAction* menu复制一组号码;
    QAction* menu拆分八位数字;
    QAction* wetewt43253253;
    QAction* menu导入;
    QAction* menu在线导入最新开奖数据;
    // Brings the history up to date from the lottery centre's feed, or from
    // the draw-data site's pages when the feed can't be had.
    QAction* menu一键更新开奖数据;
    QAction* menu清空;
    QAction* erwter4325;
    QAction* menu退出;
    QMenu* menu统计;
    QAction* menu七位总和平均统计;
    QAction* menu七位奇偶数统计;
    QAction* retre646;
    QAction* menu统计最近未开奖红色球球号;
    QMenu* menu工具;
    QAction* menu设置;
    QAction* menu查看设置;
    QAction* ert435435;
    QAction* menu最新福彩资料;
    QMenu* menu预测与过滤;
    QAction* menu一般性预测;
    QAction* menu过滤式预测;
    QAction* menu投注式预测;
    QAction* menu除3余数预测;
    QAction* dsg43543;
    QAction* menu号码组过滤;
    // The player's analyses that go beyond the statistics: each entry opens
    // its window modally, like every other window.
    QMenu* menu分析;
    QAction* menu基本走势图;
    QAction* menu中奖查询;
    QAction* menu旋转矩阵;
    QMenu* menu帮助;
    QAction* menu关于;
    QAction* menu软件使用方法;
    QAction* menu软件权限设置方法;
    QAction* menu微软组件安装;
    QAction* eter34634;
    QAction* menu作者网站和其他软件;
    QAction* menuEmail给软件作者;
    QAction* menu定制软件;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildControls();
    void buildMenus();
    QAction* addEntry(QMenu* menu, const QString& caption, void (MainForm::*handler)());
    QAction* addSeparator(QMenu* menu, const char* name);
    QString historyPath() const;

    AppContext& m_context;
    DrawHistory m_history;
    QPointer<Logo> m_logo;
    std::array<QLabel*, 4> m_panels{};
    int m_savedHeight = 0; // the designed size, taken during load
    int m_savedWidth = 0;
    bool m_unloaded = false;
};
