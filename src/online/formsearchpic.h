#pragma once

// "在线导入开奖历史到主界面列表": the draw-data site's history pages, shown as
// they are read, and the commands that import their draws into the main list,
// one page or all of them. Only the site's own paging links work in the page;
// every other link is dead, and no window ever opens from it.

#include "windowkit/modalwindow.h"

class DrawHistory;
class OnlineImport;
class PageBrowser;
class QFrame;
class QLabel;
class QPushButton;
class QStatusBar;
class QTextBrowser;
class QUrl;

class FormSearchPic : public ModalWindow {
    Q_OBJECT

public:
    FormSearchPic(AppContext& context, DrawHistory& history, QWidget* parent = nullptr);
    ~FormSearchPic() override;

    void Form_Load();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command6_Click();
    void WebBrowser1_NavigateComplete2(PageBrowser* frame, const QString& url);
    void WebBrowser1_DocumentComplete(PageBrowser* frame, const QString& url);
    // A click on a link of the page showing.
    void PageView_LinkClicked(const QUrl& link);

    // The paging state and the import runs.
    OnlineImport& import() const { return *m_import; }

    QLabel* Label1;
    QPushButton* Command1;
    QPushButton* Command2;
    QPushButton* Command6;
    QPushButton* Command3;
    QFrame* Picture1;
    PageBrowser* WebBrowser1;
    QTextBrowser* PageView; // what WebBrowser1 shows
    QStatusBar* StatusBar1;
    QLabel* StatusBar1Panel1;
    QLabel* StatusBar1Panel2;

protected:
    void Form_Unload() override;

private:
    DrawHistory& m_history;
    OnlineImport* m_import;
};
