#pragma once

// "双色球基本走势图": the trend and omission chart of the newest draws, one row
// a draw, oldest at the top; the statistics of the shown draws pinned under
// it, a pick row under those, and the picture of the whole chart for saving.
// The window can be resized and maximised and keeps its size and the number
// of draws shown in the settings (section "走势图").

#include "statistics/trendchart.h"
#include "statistics/trendlook.h"
#include "windowkit/modalwindow.h"

class DrawHistory;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTableView;
class TrendDelegate;
class TrendFooterModel;
class TrendModel;

class TrendChartWindow : public ModalWindow {
    Q_OBJECT

public:
    TrendChartWindow(AppContext& context, const DrawHistory& history, QWidget* parent = nullptr);

    // The entries of the draw count list; "全部" shows every draw.
    static const QStringList& drawCounts();

    void copyPick();
    void savePicture();

    TrendModel* chartModel() const { return m_model; }
    TrendFooterModel* footerModel() const { return m_footerModel; }
    const TrendLook& look() const { return m_look; }

    QComboBox* drawCountList;
    QCheckBox* omissionTick;
    QLabel* skippedLabel;
    QPushButton* saveButton;
    QTableView* chartView;
    QTableView* footerView;
    QLabel* pickLabel;
    QLabel* betsLabel;
    QPushButton* copyButton;
    QPushButton* clearPickButton;
    QPushButton* closeButton;

protected:
    void Form_Unload() override;

private:
    void buildControls();
    void showDrawCount(const QString& entry);
    void pickChanged();
    QSize preferredSize() const;

    trendchart::Chart m_chart;
    TrendLook m_look;
    TrendModel* m_model;
    TrendFooterModel* m_footerModel;
    TrendDelegate* m_delegate;
};
