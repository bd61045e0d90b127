// Times the online import against a local copy of the draw-data site: the
// run over pages 1 to 85 of 20 draws each, from the start of the run to the
// last insert, and one page through the decoder, the parser and the reading
// of its draw table; and a page nested 100,000 deep, of <div> and of
// <table><tr><td>, through the parser and the reading of a draw table. No
// window is drawn. Prints "name: value" lines, each the median of several
// runs.

#include "history/drawhistory.h"
#include "localhttpserver.h"
#include "online/htmldocument.h"
#include "online/onlineimport.h"
#include "online/pagebrowser.h"
#include "online/pagetext.h"
#include "platform/systemservices.h"
#include "sitepages.h"

#include "benchsupport.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <vector>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    LocalHttpServer site(sitepages::site(118));
    SystemClock clock;

    std::vector<double> runs;
    for (int run = 0; run < 5; ++run) {
        PageBrowser browser;
        DrawHistory history;
        OnlineImport import(browser, history, clock, site.base());
        QObject::connect(&browser, &PageBrowser::DocumentComplete, &import, &OnlineImport::DocumentComplete);
        QElapsedTimer timer;
        timer.start();
        const int read = import.importAllPages();
        runs.push_back(double(timer.nsecsElapsed()) / 1e6);
        if (read != 1700 || history.count() != 1700)
            qFatal("read %d rows, added %d", read, history.count());
    }

    const QByteArray page = sitepages::gbk(sitepages::pageHtml(1));
    const QUrl address(site.base() + QStringLiteral("/zhcw/inc/ssq/ssq_wqhg.jsp"));
    std::vector<double> pages;
    for (int run = 0; run < 200; ++run) {
        DrawHistory history;
        QElapsedTimer timer;
        timer.start();
        HtmlDocument document(pagetext::decodePage(page, "text/html"), address);
        const int read = 导入当前页数据(&document, history);
        pages.push_back(double(timer.nsecsElapsed()) / 1e3);
        if (read != 20)
            qFatal("read %d rows of a page", read);
    }
    const auto deep = [&](const QByteArray& level) {
        const QByteArray body = level.repeated(100'000);
        std::vector<double> ms;
        for (int run = 0; run < 9; ++run) {
            DrawHistory history;
            QElapsedTimer timer;
            timer.start();
            HtmlDocument document(pagetext::decodePage(body, "text/html"), address);
            const int read = 导入当前页数据(&document, history);
            ms.push_back(double(timer.nsecsElapsed()) / 1e6);
            if (read != 0)
                qFatal("read %d rows of a deep page", read);
        }
        return benchsupport::median(ms);
    };
    std::printf("import_85_pages_ms: %.1f\n", benchsupport::median(runs));
    std::printf("parse_page_us: %.1f\n", benchsupport::median(pages));
    std::printf("parse_deep_100000_ms: %.2f\n", deep("<div>"));
    std::printf("parse_deep_table_100000_ms: %.2f\n", deep("<table><tr><td>"));
    return 0;
}
