#include "online/onlineimport.h"

#include "history/drawhistory.h"
#include "history/insertline.h"
#include "online/htmldocument.h"
#include "online/pagebrowser.h"
#include "platform/runtimefailure.h"
#include "platform/services.h"
#include "platform/textrules.h"

#include <QEventLoop>
#include <QTimer>

#include <cmath>
#include <limits>

namespace drawsite {

namespace {

const QString historyPath = QStringLiteral("/zhcw/inc/ssq/ssq_wqhg.jsp");

} // namespace

QString firstPage(const QString& DrawSiteBase)
{
    return DrawSiteBase + historyPath;
}

QString page(const QString& DrawSiteBase, int pageNumber)
{
    return DrawSiteBase + historyPath + QStringLiteral("?pageNum=") + textrules::decimal(pageNumber);
}

bool isPagingLink(const QString& href, const QString& DrawSiteBase)
{
    return textrules::containsNoCase(href, DrawSiteBase + historyPath + QLatin1Char('?'));
}

} // namespace drawsite

namespace {

// The numbers cell with its balls run together ("01020304050607") becomes
// pairs parted by blanks; a last single character stays a piece of its own.
QString pairedNumbers(const QString& numbers)
{
    if (numbers.contains(QLatin1Char(' ')))
        return numbers;
    QStringList pieces;
    for (qsizetype at = 0; at < numbers.size(); at += 2)
        pieces.append(numbers.mid(at, 2));
    return textrules::trim(pieces.join(QLatin1Char(' ')));
}

double secondsSinceMidnight(const QDateTime& now)
{
    return now.time().msecsSinceStartOfDay() / 1000.0;
}

} // namespace

namespace drawsite {

QStringList drawLines(HtmlDocument* document)
{
    // A document that isn't there, or has no table, reads nothing.
    if (!document)
        return {};
    const QList<HtmlElement> tables = document->getElementsByTagName(QStringLiteral("table"));
    if (tables.isEmpty())
        return {};
    const QList<HtmlElement> rows = tables.first().Rows();
    // Fewer than 21 or more than 30 rows, header and pager included, is not a
    // page of draws.
    if (rows.size() < 21 || rows.size() > 30)
        return {};

    QStringList lines;
    for (const HtmlElement& row : rows) {
        const QList<HtmlElement> cells = row.Cells();
        if (cells.size() != 7)
            continue;
        if (!textrules::isDate(textrules::trim(cells[0].innertext())))
            continue;
        const QString issue = textrules::trim(cells[1].innertext());
        if (!textrules::isNumeric(issue))
            continue;
        const QString numbers = pairedNumbers(textrules::trim(cells[2].innertext()));
        lines.append(textrules::trim(issue + QLatin1Char(' ') + numbers));
    }
    return lines;
}

} // namespace drawsite

int 导入当前页数据(HtmlDocument* document, DrawHistory& history)
{
    QStringList lines = drawsite::drawLines(document);
    DrawHistory::Batch batch(history);
    for (QString& line : lines)
        导入一行(history, line);
    return int(lines.size()); // rows read, added or not
}

void 全部链接在新窗口打开(HtmlDocument* document, const QString& DrawSiteBase)
{
    if (!document)
        return;
    QList<HtmlElement> links = document->getElementsByTagName(QStringLiteral("A"));
    for (qsizetype i = 0; i < links.size(); ++i) {
        if (i > 10000)
            break;
        if (!drawsite::isPagingLink(links[i].href(), DrawSiteBase))
            links[i].setTarget(QStringLiteral("_blank"));
    }
}

OnlineImport::OnlineImport(PageBrowser& WebBrowser1, DrawHistory& history, Clock& clock, QString DrawSiteBase)
    : WebBrowser1(WebBrowser1), m_history(history), m_clock(clock), DrawSiteBase(std::move(DrawSiteBase))
{
}

void OnlineImport::DocumentComplete(PageBrowser* frame, const QString& url)
{
    Q_UNUSED(url)
    if (frame != &WebBrowser1)
        return;
    const QString location = WebBrowser1.LocationURL();
    QString name = location.mid(location.lastIndexOf(QLatin1Char('/')) + 1);
    // The site's own addresses end otherwise, so with them the page number
    // stays where it is.
    if (name.right(5).toLower() == QLatin1String(".html")) {
        name.chop(5);
        if (name.toLower() == QLatin1String("list")) {
            PageNumber = 1;
        } else {
            name.remove(QStringLiteral("list_"), Qt::CaseSensitive);
            if (textrules::isNumeric(name)) {
                emit pageTextChanged(QStringLiteral("目前是第") + name + QStringLiteral("页。"));
                const std::optional<qint32> number = textrules::toWhole(name);
                if (!number)
                    throw RuntimeError(RuntimeError::Overflow);
                PageNumber = *number;
            }
        }
        全部链接在新窗口打开(WebBrowser1.Document(), DrawSiteBase);
    }
    WaitingForDocument = false;
}

void OnlineImport::waitForPage()
{
    const double start = secondsSinceMidnight(m_clock.now());
    const auto over = [&] {
        return !WaitingForDocument || m_stopped
               || std::fabs(secondsSinceMidnight(m_clock.now()) - start) > pageWaitSeconds;
    };
    if (over())
        return;
    // Woken by a completion or by a look at the clock, so that the wait costs
    // no processor time of its own.
    QEventLoop loop;
    const auto check = [&] {
        if (over())
            loop.quit();
    };
    QTimer clock;
    clock.setInterval(50);
    connect(&clock, &QTimer::timeout, &loop, check);
    connect(&WebBrowser1, &PageBrowser::DocumentComplete, &loop, check);
    clock.start();
    loop.exec();
}

void OnlineImport::nextPage()
{
    WaitingForDocument = true;
    if (PageNumber == std::numeric_limits<qint32>::max())
        throw RuntimeError(RuntimeError::Overflow); // the page after it has no number
    WebBrowser1.Navigate(drawsite::page(DrawSiteBase, PageNumber + 1));
    waitForPage();
}

int OnlineImport::importAllPages()
{
    int total = 0;
    for (int page = 1; page <= drawsite::PageCount && !m_stopped; ++page) {
        WaitingForDocument = true;
        WebBrowser1.Navigate(drawsite::page(DrawSiteBase, page));
        waitForPage();
        if (m_stopped)
            break;
        // A page that did not come in time is read all the same, in whatever
        // state the document is.
        total += 导入当前页数据(WebBrowser1.Document(), m_history);
    }
    return total;
}

void OnlineImport::stop()
{
    m_stopped = true;
}
