#include "sitepages.h"

#include <QDate>
#include <QStringEncoder>

#include <algorithm>

namespace sitepages {

QList<Draw> drawsOf(int page)
{
    QList<Draw> draws;
    for (int index = (page - 1) * 20; index < page * 20; ++index) { // 0 is the newest draw
        const int ordinal = 2016 * 153 + 150 - index, low = index * 7 % 21;
        draws.append({QString::asprintf("%04d%03d", ordinal / 153, ordinal % 153 + 1), {}});
        for (int ball : {low + 1, low + 3, low + 4, low + 8, low + 10, low + 13, index % 16 + 1})
            draws.last().balls.append(QString::asprintf("%02d", ball));
    }
    return draws;
}

QString pageHtml(int page)
{
    const int pageCount = 118;
    QString html = QStringLiteral(R"(<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Transitional//EN"><html><head>
<meta http-equiv="Content-Type" content="text/html; charset=gb2312" /><title>双色球往期回顾</title>
<script type="text/javascript">window.status = '中彩网';</script></head><body>
<table class="wqhgt" width="100%" border="0" cellspacing="0" cellpadding="0">
  <tr><td rowspan="2">开奖日期</td><td rowspan="2">期号</td><td rowspan="2">中奖号码</td><td rowspan="2">销售额(元)</td>
    <td colspan="2">中奖注数</td><td rowspan="2">详细</td></tr>
  <tr><td align="center">一等奖</td><td align="center">二等奖</td></tr>
)");
    const QList<Draw> draws = drawsOf(page);
    for (qsizetype row = 0; row < draws.size(); ++row) {
        QString balls;
        for (qsizetype ball = 0; ball < 7; ++ball)
            balls += (row % 2 ? "" : "\n      ") + QString(ball < 6 ? "<em class=\"rr\">" : "<em>")
                     + draws[row].balls[ball] + "</em>";
        const QDate date = QDate(2016, 12, 29).addDays(-((page - 1) * 20 + row) * 7 / 3);
        html += QStringLiteral(R"(  <tr>
    <td align="center">%1</td> <td align="center">%2</td> <td align="center" style="padding-left:10px;">%3</td>
    <td><strong>351,584,786</strong></td><td align="left" style="color:#999;"><strong>%4</strong></td>
    <td align="center"><strong class="rc">%5</strong></td>
    <td><a href="http://www.zhcw.com/ssq/kjgg/%2.shtml" target="_blank"><img src="/images/kjgg.gif" /></a></td></tr>
)").arg(date.toString(Qt::ISODate), draws[row].issue, balls, QString::number(row % 9), QString::number(100 + row));
    }
    QString pager = QStringLiteral("共<strong>118</strong> 页 /<strong>2360 </strong>条记录 ");
    const QString link = QStringLiteral("<strong><a href=\"/zhcw/inc/ssq/ssq_wqhg.jsp?pageNum=%1\">%2</a></strong> ");
    for (const auto& [target, caption] : {std::pair{1, "首页"}, {std::max(1, page - 1), "上一页"},
                                          {std::min(pageCount, page + 1), "下一页"}, {pageCount, "末页"}})
        pager += link.arg(target).arg(caption);
    return html + QStringLiteral("  <tr><td colspan=\"7\"><p class=\"pg\"> %1当前第<strong>%2</strong>页</p></td></tr>\n"
                                 "</table>\n<a href=\"http://www.zhcw.com/\">中彩网首页</a></body></html>\n")
                      .arg(pager, QString::number(page));
}

QByteArray gbk(const QString& text)
{
    return QStringEncoder("GBK").encode(text);
}

LocalHttpServer::Handler site(int servedPages)
{
    return [servedPages](const QByteArray& target) {
        const QByteArray first = "/zhcw/inc/ssq/ssq_wqhg.jsp", query = first + "?pageNum=";
        const int page = target == first ? 1 : target.startsWith(query) ? target.mid(query.size()).toInt() : 0;
        return page < 1 || page > servedPages ? HttpAnswer::error(404) : HttpAnswer{200, gbk(pageHtml(page))};
    };
}

} // namespace sitepages
