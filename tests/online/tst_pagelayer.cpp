#include "history/drawhistory.h"
#include "localhttpserver.h"
#include "online/htmldocument.h"
#include "online/onlineimport.h"
#include "online/pagebrowser.h"
#include "online/pagetext.h"
#include "sitepages.h"

#include <QtTest>

using sitepages::gbk;

namespace {

QString row(const QStringList& cells)
{
    return "<tr><td>" + cells.join("</td><td>") + "</td></tr>";
}

QString drawRow(int issue, const QString& numbers = "<em>01</em> <em>02</em> <em>03</em> <em>04</em> <em>05</em> "
                                                    "<em>06</em>\n<em>07</em>")
{
    return row({"2016-03-01", QString::number(issue), numbers, "1", "2", "3", "<a href=x>详细</a>"});
}

// A first table: `header` rows of one cell, `draws` draw rows, then `extra`.
QString firstTable(int header, int draws, const QString& extra = {})
{
    QString html = "<table>" + row({"标题"}).repeated(header);
    for (int i = 0; i < draws; ++i)
        html += drawRow(2016001 + i);
    return html + extra + "</table>";
}

} // namespace

class PageLayerTest : public QObject {
    Q_OBJECT

private slots:
    void pageText_data();
    void pageText();
    void tablesRowsAndLinks();
    void fetchesAsABrowser();
    void readsTheFirstTable_data();
    void readsTheFirstTable();
};

void PageLayerTest::pageText_data()
{
    QTest::addColumn<QByteArray>("body"); // a page whose first cell is "澄川", or the first cell
    QTest::addColumn<QByteArray>("contentType");
    QTest::addColumn<QString>("text");
    const QString meta = QStringLiteral("<meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">");
    const QByteArray utf8("text/html; charset=utf-8");
    using Bytes = QByteArray;
    QTest::newRow("header charset") << gbk("<table><td>澄川") << Bytes("text/html;charset=GBK") << "澄川";
    QTest::newRow("meta charset") << (meta + "<table><td>澄川").toUtf8() << Bytes("text/html") << "澄川";
    QTest::newRow("header over meta") << Bytes("<meta charset=gb2312><table><td>澄川") << utf8 << "澄川";
    QTest::newRow("undeclared is Chinese") << gbk("<table><td>澄川") << Bytes("text/html") << "澄川";
    QTest::newRow("balls with blanks") << Bytes("\n <em>03</em> <em>10</em>\n   <em>15</em>\n") << utf8 << "03 10 15";
    QTest::newRow("balls run together") << Bytes("<em class=rr>03</em><em>10</em><em>15</em>") << utf8 << "031015";
    QTest::newRow("blocks") << Bytes("<div>a</div> <div>b <br> c</div><p>d</p>e") << utf8 << "a\nb\nc\n\nd\n\ne";
}

void PageLayerTest::pageText()
{
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, contentType);
    QFETCH(QString, text);
    const QString html = pagetext::decodePage(body, contentType);
    HtmlDocument document(html.contains("澄川") ? html : "<table><td>" + html, QUrl(QStringLiteral("http://site/")));
    QCOMPARE(document.getElementsByTagName(QStringLiteral("td"))[0].innertext(), text);
}

void PageLayerTest::tablesRowsAndLinks()
{
    const QString html = QStringLiteral(
        "<head><base href='/zhcw/inc/'></head><table><tfoot><tr><td>foot</td></tr></tfoot><tr><td>a<table><tr><td>in"
        "</td></tr><tr><td>in</td></tr></table></td><th>b</th><td>c</td></tr><thead><tr><th>head</th></tr></thead>"
        "<tr><td>last</td></tr></table><TABLE><tr><td>2</td></tr></TABLE><a href='ssq/ssq_wqhg.jsp?pageNum=2'>2</a>"
        "<A HREF=' http://other/ ' target=_self>o</A><a name=top>no address</a>");
    HtmlDocument document(html, QUrl(QStringLiteral("http://site/zhcw/inc/ssq/ssq_wqhg.jsp")));
    const QList<HtmlElement> tables = document.getElementsByTagName(QStringLiteral("TABLE"));
    QCOMPARE(tables.size(), 3); // the nested one after its outer table
    QCOMPARE(tables[1].Rows().size(), 2);
    QStringList firstCells;
    for (const HtmlElement& row : tables[0].Rows())
        firstCells.append(row.Cells()[0].innertext().section(QLatin1Char('\n'), 0, 0));
    QCOMPARE(firstCells, (QStringList{"head", "a", "last", "foot"}));

    QList<HtmlElement> links = document.getElementsByTagName(QStringLiteral("A"));
    QCOMPARE((QStringList{links[0].href(), links[1].href(), links[2].href(), links[1].Target()}),
             (QStringList{"http://site/zhcw/inc/ssq/ssq_wqhg.jsp?pageNum=2", "http://other/", "", "_self"}));
    // Links away from the site's own pages open new windows.
    全部链接在新窗口打开(&document, QStringLiteral("HTTP://Site"));
    links = document.getElementsByTagName(QStringLiteral("a"));
    QCOMPARE(links[0].Target() + "|" + links[1].Target() + "|" + links[2].Target(), QStringLiteral("|_blank|_blank"));
}

void PageLayerTest::fetchesAsABrowser()
{
    LocalHttpServer server([](const QByteArray& target) {
        return target == "/old" ? HttpAnswer{302, {}, HttpAnswer::Answer, "Location: /page\r\n"}
                                : HttpAnswer{200, "<table></table>"};
    });
    PageBrowser browser;
    QStringList events;
    connect(&browser, &PageBrowser::NavigateComplete2, this,
            [&](PageBrowser* frame, const QString& url) { events << (frame == &browser ? "navigate " : "?") + url; });
    connect(&browser, &PageBrowser::DocumentComplete, this,
            [&](PageBrowser* frame, const QString& url) { events << (frame == &browser ? "document " : "?") + url; });
    browser.Navigate(server.base() + "/page"); // dropped by the next navigation: it never completes
    const QString asked = server.base() + QStringLiteral("/old");
    browser.Navigate(asked);
    QTRY_COMPARE(events, (QStringList{"navigate " + asked, "document " + asked}));

    QCOMPARE(browser.LocationURL(), server.base() + QStringLiteral("/page"));
    for (const char* header :
         {"\r\nUser-Agent: Mozilla/5.0 (Windows NT", "\r\nAccept: text/html", "\r\nAccept-Language: zh-CN"})
        QVERIFY2(server.heads.last().contains(header), header);

    // A refused connection completes on the page that a browser shows for it.
    browser.Navigate(LocalHttpServer::refusedBase());
    QTRY_COMPARE(events.size(), 4);
    QVERIFY(browser.Document()->getElementsByTagName(QStringLiteral("table")).isEmpty());
}

void PageLayerTest::readsTheFirstTable_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("rows"); // the first two rows of the history

    const QStringList firstTwo{"2016001 01 02 03 04 05 06 07 00", "2016002 01 02 03 04 05 06 07 00"};
    const QString good = "01 02 03 04 05 06 07";
    QTest::newRow("20 rows") << firstTable(0, 20) << 0 << QStringList();
    QTest::newRow("21 rows") << firstTable(1, 20) << 20 << firstTwo;
    QTest::newRow("30 rows") << firstTable(0, 30) << 30 << firstTwo;
    QTest::newRow("31 rows") << firstTable(2, 29) << 0 << QStringList();
    const QString bad = row({"2016-03-01", "2016901", good, "", "", "", "", ""})
                        + row({"0", "2016902", good, "", "", "", ""}) + row({"2016-3-1", "No.9", good, "", "", "", ""});
    QTest::newRow("25 rows, 20 of draws") << firstTable(2, 20, bad) << 20 << firstTwo;
    QTest::newRow("two forms of the numbers")
        << firstTable(18, 0, drawRow(2016023, "01020304050607") + drawRow(2016024, " 10 <b>20</b> 30 31 32 33 16 ")
                                 + drawRow(2016025, "0102030405061"))
        << 3 << QStringList{"2016023 01 02 03 04 05 06 07 00", "2016024 10 20 30 31 32 33 16 00"};
    QTest::newRow("the first table only") << "<table><tr><td>menu</td></tr></table>" + firstTable(1, 20) << 0
                                          << QStringList();
}

void PageLayerTest::readsTheFirstTable()
{
    QFETCH(QString, html);
    QFETCH(int, count);
    QFETCH(QStringList, rows);

    HtmlDocument document(html, QUrl(QStringLiteral("http://site/")));
    DrawHistory history;
    QCOMPARE(导入当前页数据(&document, history), count);
    QStringList read;
    for (int i = 0; i < std::min(2, history.count()); ++i)
        read.append(history.text(i) + QLatin1Char(' ') + history.subItem(i, DrawHistory::GroupSubItem));
    QCOMPARE(read, rows);
    QCOMPARE(导入当前页数据(nullptr, history), 0);
}

QTEST_GUILESS_MAIN(PageLayerTest)
#include "tst_pagelayer.moc"
