#pragma once

// The lottery centre's data feed as the tests and benchmarks serve it: the
// draws of the site's history pages (sitepages), newest first, in the feed's
// JSON, with more fields than the program reads, as the centre sends them.

#include "sitepages.h"

namespace feedanswers {

// The newest `count` draws of the history pages, newest first.
inline QList<sitepages::Draw> newest(int count)
{
    QList<sitepages::Draw> draws;
    for (int page = 1; draws.size() < count; ++page)
        draws += sitepages::drawsOf(page);
    return draws.mid(0, count);
}

inline QByteArray json(const QList<sitepages::Draw>& draws)
{
    QStringList result;
    for (const sitepages::Draw& draw : draws)
        result << QString::fromUtf8(R"j({"name":"双色球","code":"%1","date":"2016-12-29(四)","red":"%2","blue":"%3",)j"
                                    R"j("blue2":"","sales":"351584786","poolmoney":"1003004628","content":"北京1注。",)j"
                                    R"j("prizegrades":[{"type":1,"typenum":"3","typemoney":"7000000"},{"type":2}]})j")
                      .arg(draw.issue, draw.balls.mid(0, 6).join(','), draw.balls[6]);
    return (R"({"state":0,"message":"查询成功","result":[)" + result.join(',') + "]}").toUtf8();
}

// The draws a feed request asks for; 0 for a target that is not the feed's.
inline int issueCount(const QByteArray& target)
{
    const QByteArray feedPath = "/cwl_admin/front/cwlkj/search/kjxx/findDrawNotice?name=ssq&issueCount=";
    return target.startsWith(feedPath) ? target.mid(feedPath.size()).toInt() : 0;
}

} // namespace feedanswers
