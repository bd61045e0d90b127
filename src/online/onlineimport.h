#pragma once

// The import of past draws from the draw-data site. The site's history pages
// hold the draws in the first table of the page; 导入当前页数据 reads them
// and hands each as one text line to 导入一行. OnlineImport carries the
// paging: the page it believes it shows, the flag of a navigation that a
// command waits for, the wait itself, and the run over all 85 pages.

#include <QObject>
#include <QString>
#include <QStringList>

class Clock;
class DrawHistory;
class HtmlDocument;
class PageBrowser;

namespace drawsite {

// The site keeps this many pages; the import never looks for a last one.
inline constexpr int PageCount = 85;

QString firstPage(const QString& DrawSiteBase);
QString page(const QString& DrawSiteBase, int pageNumber);
// A link to one of the site's own history pages, the only links that work
// inside the import window.
bool isPagingLink(const QString& href, const QString& DrawSiteBase);

// The draws of a history page, read from the first table of the document if
// it has 21 to 30 rows: each row of seven cells whose first cell is a date
// and second a number gives the line "issue numbers", the numbers parted
// into pairs where the cell runs them together. In the order of the rows;
// none without a document or a table.
QStringList drawLines(HtmlDocument* document);

} // namespace drawsite

// Hands each line that drawsite::drawLines reads from the document to
// 导入一行, in order. Returns the rows read, whatever became of them; 0
// without a document or a table.
int 导入当前页数据(HtmlDocument* document, DrawHistory& history);

// Marks every link that does not lead to one of the site's own history pages
// to open in a new window, which the import window never opens.
void 全部链接在新窗口打开(HtmlDocument* document, const QString& DrawSiteBase);

class OnlineImport : public QObject {
    Q_OBJECT

public:
    OnlineImport(PageBrowser& WebBrowser1, DrawHistory& history, Clock& clock, QString DrawSiteBase);

    qint32 PageNumber = 1;
    bool WaitingForDocument = false;
    // How long a page is waited for, in seconds of the time of day.
    double pageWaitSeconds = 20.0;

    // The completion of a document in the browser. Acts for the top-level
    // frame only. Fails with RuntimeError(Overflow) for a page number that
    // does not fit 32 bits.
    void DocumentComplete(PageBrowser* frame, const QString& url);

    // Lets events run until the awaited page has come or pageWaitSeconds have
    // passed by the clock: the time of day, so that a wait across midnight
    // ends at once.
    void waitForPage();
    // Navigates to the page after PageNumber and waits for it.
    void nextPage();
    // Pages 1 to 85 in turn, each waited for and read; the rows read.
    int importAllPages();

    // The window has gone: the wait under way ends, and so does a run.
    void stop();
    bool stopped() const { return m_stopped; }

signals:
    // The text of the window's page panel has changed.
    void pageTextChanged(const QString& text);

private:
    PageBrowser& WebBrowser1;
    DrawHistory& m_history;
    Clock& m_clock;
    QString DrawSiteBase;
    bool m_stopped = false;
};
