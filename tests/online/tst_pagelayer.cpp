#include "localhttpserver.h"
#include "online/htmldocument.h"
#include "online/pagebrowser.h"
#include "online/pagetext.h"

#include <QSignalSpy>
#include <QStringEncoder>
#include <QtTest>

namespace {

QByteArray gbk(const QString& text)
{
    QStringEncoder encoder("GBK");
    return encoder.encode(text);
}

QString cellText(const QString& cellHtml)
{
    HtmlDocument document(QStringLiteral("<table><tr><td>") + cellHtml + QStringLiteral("</td></tr></table>"),
                          QUrl(QStringLiteral("http://site/")));
    return document.getElementsByTagName(QStringLiteral("table"))[0].Rows()[0].Cells()[0].innertext();
}

} // namespace

class PageLayerTest : public QObject {
    Q_OBJECT

private slots:
    void decode_data();
    void decode();
    void innertext_data();
    void innertext();
    void tablesRowsAndCells();
    void links();
    void fetchesAsABrowser();
    void failedAndDroppedNavigations();
};

void PageLayerTest::decode_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QByteArray>("contentType");
    const QString meta = QStringLiteral("<meta http-equiv=\"Content-Type\" content=\"text/html; charset=gb2312\">");
    QTest::newRow("header charset") << gbk("<p>澄川</p>") << QByteArray("text/html;charset=GBK");
    QTest::newRow("meta charset") << gbk(meta + "<p>澄川</p>") << QByteArray("text/html");
    QTest::newRow("html5 meta") << gbk("<meta charset='gbk'><p>澄川</p>") << QByteArray();
    QTest::newRow("header wins over meta") << (meta + "<p>澄川</p>").toUtf8() << QByteArray("text/html; charset=utf-8");
    QTest::newRow("undeclared is Chinese") << gbk("<p>澄川</p>") << QByteArray("text/html");
    QTest::newRow("byte-order mark wins") << QByteArray("\xEF\xBB\xBF") + QString("<p>澄川</p>").toUtf8()
                                          << QByteArray("text/html; charset=gbk");
}

void PageLayerTest::decode()
{
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, contentType);
    QVERIFY(pagetext::decodePage(body, contentType).endsWith(QStringLiteral("<p>澄川</p>")));
}

void PageLayerTest::innertext_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("text");
    QTest::newRow("balls with blanks") << "\n <em>03</em> <em>10</em>\n   <em>15</em>\n" << "03 10 15";
    QTest::newRow("balls run together") << "<em class=rr>03</em><em class=rr>10</em><em>15</em>" << "031015";
    QTest::newRow("blanks around") << "  \r\n\t2016-03-01 \n" << "2016-03-01";
    QTest::newRow("blanks across inline elements") << "a <span> b </span> c" << "a b c";
    QTest::newRow("no-break space stays") << "a&nbsp; b" << "a\u00a0 b";
    QTest::newRow("line break") << "a <br> b" << "a\nb";
    QTest::newRow("blocks") << "<div>a</div> <div>b</div>" << "a\nb";
    QTest::newRow("paragraph") << "<p>a</p>b" << "a\n\nb";
    QTest::newRow("nested row") << "<table><tr><td>1</td> <th>2</th></tr><tr><td>3</td></tr></table>" << "1\t2\n3";
    QTest::newRow("not rendered") << "x<script>y()</script><style>p{}</style><span style='display: none'>z</span>y"
                                  << "xy";
    QTest::newRow("preformatted") << "<pre>a  b\n c</pre>" << "a  b\n c";
}

void PageLayerTest::innertext()
{
    QFETCH(QString, cell);
    QFETCH(QString, text);
    QCOMPARE(cellText(cell), text);
}

void PageLayerTest::tablesRowsAndCells()
{
    HtmlDocument document(QStringLiteral("<table id=1><tfoot><tr><td>foot</td></tr></tfoot>"
                                         "<tr><td>a<table><tr><td>in</td></tr><tr><td>in</td></tr></table></td>"
                                         "<th>b</th><td>c</td></tr>"
                                         "<thead><tr><th>head</th></tr></thead><tr><td>last</td></tr></table>"
                                         "<TABLE><tr><td>second</td></tr></TABLE>"),
                          QUrl(QStringLiteral("http://site/")));
    const QList<HtmlElement> tables = document.getElementsByTagName(QStringLiteral("TABLE"));
    QCOMPARE(tables.size(), 3); // the nested one comes after its outer table
    QCOMPARE(tables[1].Rows().size(), 2);
    QCOMPARE(tables[2].Rows()[0].Cells()[0].innertext(), QStringLiteral("second"));

    QStringList firstCells;
    for (const HtmlElement& row : tables[0].Rows())
        firstCells.append(row.Cells()[0].innertext().section(QLatin1Char('\n'), 0, 0));
    QCOMPARE(firstCells, (QStringList{"head", "a", "last", "foot"}));
    QCOMPARE(tables[0].Rows()[1].Cells().size(), 3);
}

void PageLayerTest::links()
{
    HtmlDocument document(QStringLiteral("<a href='?pageNum=2'>2</a><A HREF=' /x.html ' target=_self>x</A>"
                                         "<a name=top>no address</a><a href='http://other/'>o</a>"),
                          QUrl(QStringLiteral("http://site/zhcw/inc/ssq/ssq_wqhg.jsp")));
    QList<HtmlElement> links = document.getElementsByTagName(QStringLiteral("A"));
    QCOMPARE(links.size(), 4);
    QCOMPARE(links[0].href(), QStringLiteral("http://site/zhcw/inc/ssq/ssq_wqhg.jsp?pageNum=2"));
    QCOMPARE(links[1].href(), QStringLiteral("http://site/x.html"));
    QCOMPARE(links[2].href(), QString());
    QCOMPARE(links[3].href(), QStringLiteral("http://other/"));
    QCOMPARE(links[1].Target(), QStringLiteral("_self"));
    links[0].setTarget(QStringLiteral("_blank"));
    QCOMPARE(document.getElementsByTagName(QStringLiteral("a"))[0].Target(), QStringLiteral("_blank"));

    HtmlDocument based(QStringLiteral("<head><base href='http://mirror/ssq/'></head><a href='p2'>2</a>"),
                       QUrl(QStringLiteral("http://site/")));
    QCOMPARE(based.getElementsByTagName(QStringLiteral("a"))[0].href(), QStringLiteral("http://mirror/ssq/p2"));
}

void PageLayerTest::fetchesAsABrowser()
{
    LocalHttpServer server([](const HttpRequest& request) {
        if (request.target == "/old") {
            HttpAnswer moved = HttpAnswer::withStatus(302, "Found");
            moved.headers.append(qMakePair(QByteArray("Location"), QByteArray("/page")));
            return moved;
        }
        return HttpAnswer::ok(gbk("<html><head><meta charset=gb2312></head><body><table><tr><td>第1页</td></tr>"
                                  "</table></body></html>"),
                              "text/html");
    });
    PageBrowser browser;
    QStringList events;
    connect(&browser, &PageBrowser::NavigateComplete2, this,
            [&](PageBrowser* frame, const QString& url) { events << (frame == &browser ? "navigate " : "?") + url; });
    connect(&browser, &PageBrowser::DocumentComplete, this, [&](PageBrowser*, const QString& url) {
        events << "document " + url;
    });
    const QString asked = server.base() + QStringLiteral("/old");
    browser.Navigate(asked);
    QCOMPARE(browser.Document(), nullptr);
    QTRY_COMPARE(events, (QStringList{"navigate " + asked, "document " + asked}));

    QCOMPARE(browser.LocationURL(), server.base() + QStringLiteral("/page"));
    const QList<HtmlElement> tables = browser.Document()->getElementsByTagName(QStringLiteral("table"));
    QCOMPARE(tables[0].Rows()[0].Cells()[0].innertext(), QStringLiteral("第1页"));
    const HttpRequest& request = server.requests.last();
    QVERIFY(request.header("User-Agent").startsWith("Mozilla/5.0 (Windows NT"));
    QVERIFY(request.header("Accept").startsWith("text/html"));
    QVERIFY(request.header("Accept-Language").startsWith("zh-CN"));
}

void PageLayerTest::failedAndDroppedNavigations()
{
    LocalHttpServer silent([](const HttpRequest&) { return HttpAnswer::silence(); });
    PageBrowser browser;
    QSignalSpy completed(&browser, &PageBrowser::DocumentComplete);
    browser.Navigate(silent.base() + QStringLiteral("/never"));
    QTRY_COMPARE(silent.requests.size(), 1);

    // A new navigation drops the one under way: only the new one completes,
    // here on the page a browser shows for a refused connection.
    const QString refused = LocalHttpServer::refusedBase() + QStringLiteral("/zhcw/inc/ssq/ssq_wqhg.jsp");
    browser.Navigate(refused);
    QVERIFY(completed.wait());
    QVERIFY(!completed.wait(200));
    QCOMPARE(completed.count(), 1);
    QCOMPARE(completed[0][1].toString(), refused);
    QCOMPARE(browser.LocationURL(), refused);
    QVERIFY(browser.Document()->getElementsByTagName(QStringLiteral("table")).isEmpty());
}

QTEST_GUILESS_MAIN(PageLayerTest)
#include "tst_pagelayer.moc"
