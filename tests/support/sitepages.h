#pragma once

// The draw-data site as the tests and benchmarks serve it: history pages of
// the real site's shape, GBK-encoded with the charset in the meta tag. Each
// page has one table of class "wqhgt": two header rows, twenty draw rows of
// seven cells (date, issue, the seven balls as <em> elements, sales, two prize
// counts, a link) and a pager row. Even rows part the balls with whitespace,
// odd rows run them together. The site has 118 pages.

#include "localhttpserver.h"

#include <QStringList>

namespace sitepages {

struct Draw {
    QString issue;     // "2016150"; every issue is unique
    QStringList balls; // six reds ascending, then the blue, two digits each
};

// The twenty draws of history page `page`, newest first.
QList<Draw> drawsOf(int page);
QString pageHtml(int page);
QByteArray gbk(const QString& text);

// Serves the first page and "?pageNum=N" for N up to `servedPages`; 404 for
// anything else.
LocalHttpServer::Handler site(int servedPages);

} // namespace sitepages
