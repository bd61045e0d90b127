#include "online/drawupdate.h"

#include "history/drawhistory.h"
#include "history/insertline.h"
#include "online/htmldocument.h"
#include "online/onlineimport.h"
#include "online/pagebrowser.h"
#include "online/pagetext.h"
#include "online/xmlhttprequest.h"
#include "platform/textrules.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>

#include <algorithm>

namespace {

// The feed holds the newest draws; a history further behind than this asks
// for all it has.
constexpr int recentCount = 100;
constexpr int allCount = 5000;

QString readStage(int count)
{
    return QStringLiteral("已读取") + textrules::decimal(count) + QStringLiteral("期…");
}

bool isDigits(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// A ball of 1 to `highest`, written in one or two digits.
std::optional<int> ball(const QString& token, int highest)
{
    const QString number = textrules::trim(token);
    if (number.size() > 2 || !isDigits(number))
        return std::nullopt;
    const int value = number.toInt();
    return value >= 1 && value <= highest ? std::optional(value) : std::nullopt;
}

} // namespace

namespace drawfeed {

QString address(const QString& feedBase, int issueCount)
{
    return feedBase + QStringLiteral("/cwl_admin/front/cwlkj/search/kjxx/findDrawNotice?name=ssq&issueCount=")
           + textrules::decimal(issueCount);
}

QString referer(const QString& feedBase)
{
    return feedBase + QStringLiteral("/ygkj/wqkjgg/ssq/");
}

QNetworkRequest request(const QString& feedBase, int issueCount)
{
    QNetworkRequest request = browserRequest(QUrl(address(feedBase, issueCount)));
    request.setRawHeader("Accept", "application/json, text/javascript, */*; q=0.01");
    request.setRawHeader("Referer", referer(feedBase).toUtf8());
    request.setRawHeader("X-Requested-With", "XMLHttpRequest");
    return request;
}

std::optional<QList<SourceDraw>> read(const QByteArray& json)
{
    QJsonParseError error{};
    const QJsonDocument document =
        QJsonDocument::fromJson(json.startsWith("\xEF\xBB\xBF") ? json.mid(3) : json, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return std::nullopt;
    const QJsonValue result = document.object().value(QLatin1String("result"));
    if (!result.isArray())
        return std::nullopt;
    QList<SourceDraw> draws;
    for (const QJsonValue entry : result.toArray()) {
        const QJsonObject draw = entry.toObject(); // empty for anything but an object
        SourceDraw source{draw.value(QLatin1String("code")).toString(),
                          textrules::split(draw.value(QLatin1String("red")).toString(), QStringLiteral(","))};
        source.numbers.append(draw.value(QLatin1String("blue")).toString());
        draws.append(source);
    }
    return draws;
}

} // namespace drawfeed

namespace drawcheck {

SourceDraw fromPageLine(const QString& line)
{
    QStringList tokens = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString issue = tokens.isEmpty() ? QString() : tokens.takeFirst();
    return {issue, tokens};
}

std::optional<qint32> issueNumber(const QString& issue)
{
    return issue.size() <= 9 && isDigits(issue) ? std::optional(issue.toInt()) : std::nullopt;
}

std::optional<QString> insertLine(const SourceDraw& draw)
{
    if (!issueNumber(draw.issue) || draw.numbers.size() != 7)
        return std::nullopt;
    QString line = draw.issue;
    QList<int> reds;
    for (qsizetype i = 0; i < 7; ++i) {
        const std::optional<int> number = ball(draw.numbers[i], i < 6 ? 33 : 16);
        if (!number || (i < 6 && reds.contains(*number)))
            return std::nullopt;
        reds.append(*number);
        line += QLatin1Char(' ') + textrules::format00(double(*number));
    }
    return line;
}

std::optional<NewestIssue> newestIssue(const DrawHistory& history)
{
    std::optional<NewestIssue> newest;
    for (int row = 0; row < history.count(); ++row) {
        const QString text = history.text(row);
        const std::optional<qint32> number = textrules::toWhole(text);
        if (number && (!newest || *number > newest->number))
            newest = NewestIssue{*number, text};
    }
    return newest;
}

} // namespace drawcheck

void NewDrawChoice::offer(const SourceDraw& draw)
{
    const std::optional<qint32> issue = drawcheck::issueNumber(draw.issue);
    const std::optional<QString> line = drawcheck::insertLine(draw);
    if (line)
        ++m_good;
    if (!issue) {
        ++m_skippedUnnumbered;
        return;
    }
    if (m_newest && *issue <= *m_newest) {
        m_reachedHistory = true;
        return;
    }
    // A draw that a source repeats counts once, the first time.
    if (m_taken.contains(*issue) || m_skippedIssues.contains(*issue))
        return;
    if (line)
        m_taken.emplace(*issue, *line);
    else
        m_skippedIssues.insert(*issue);
}

QStringList NewDrawChoice::lines() const
{
    QStringList lines;
    for (const auto& [issue, line] : m_taken)
        lines.append(line);
    return lines;
}

QString NewDrawChoice::newestTaken() const
{
    return m_taken.empty() ? QString() : m_taken.rbegin()->second.section(QLatin1Char(' '), 0, 0);
}

DrawUpdate::DrawUpdate(const DrawHistory& history, QString feedBase, QString DrawSiteBase, QObject* parent)
    : QObject(parent), m_history(history), m_feedBase(std::move(feedBase)), DrawSiteBase(std::move(DrawSiteBase))
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        const std::function<void()> failed = m_failed;
        giveUpRequest();
        failed();
    });
}

DrawUpdate::~DrawUpdate()
{
    giveUpRequest();
}

void DrawUpdate::start()
{
    if (m_outcome != Outcome::NotStarted)
        return;
    m_outcome = Outcome::Running;
    m_newest = drawcheck::newestIssue(m_history);
    emit stageChanged(QStringLiteral("正在连接开奖数据源…"));
    askFeed(recentCount);
}

void DrawUpdate::cancel()
{
    if (m_outcome == Outcome::Running)
        end(Outcome::Cancelled);
}

void DrawUpdate::askFeed(int issueCount)
{
    const auto answer = [this, issueCount](const QByteArray& body, const QByteArray&) {
        const std::optional<QList<SourceDraw>> draws = drawfeed::read(body);
        if (!draws)
            return fallBack();
        m_choice = NewDrawChoice(m_newest ? std::optional(m_newest->number) : std::nullopt);
        for (const SourceDraw& draw : *draws)
            m_choice.offer(draw);
        if (m_choice.good() == 0)
            return fallBack(); // a feed of nothing but bad draws is no source
        emit stageChanged(readStage(int(draws->size())));
        if (issueCount == recentCount && !m_choice.reachedHistory())
            return askFeed(allCount); // a gap: the newest 100 are all new
        end(Outcome::Done);
    };
    fetch(drawfeed::request(m_feedBase, issueCount), answer, [this] { fallBack(); });
}

void DrawUpdate::fallBack()
{
    m_fromFallback = true;
    m_choice = NewDrawChoice(m_newest ? std::optional(m_newest->number) : std::nullopt);
    emit stageChanged(QStringLiteral("正在连接备用数据源…"));
    askPage(1);
}

void DrawUpdate::askPage(int page)
{
    const QString address = drawsite::page(DrawSiteBase, page);
    const auto answer = [this, page, address](const QByteArray& body, const QByteArray& contentType) {
        HtmlDocument document(pagetext::decodePage(body, contentType), QUrl(address));
        const QStringList lines = drawsite::drawLines(&document);
        if (lines.isEmpty())
            return end(Outcome::Failed); // the pages behind it would leave a gap
        for (const QString& line : lines)
            m_choice.offer(drawcheck::fromPageLine(line));
        m_read += int(lines.size());
        emit stageChanged(readStage(m_read));
        if (!m_choice.reachedHistory() && page < drawsite::PageCount)
            return askPage(page + 1);
        // A history that had no newest issue and gained none has nothing to report.
        end(m_newest || !m_choice.lines().isEmpty() ? Outcome::Done : Outcome::Failed);
    };
    fetch(browserRequest(QUrl(address)), answer, [this] { end(Outcome::Failed); });
}

void DrawUpdate::fetch(const QNetworkRequest& request, Answer answer, std::function<void()> failed)
{
    if (m_outcome != Outcome::Running)
        return; // cancelled by a listener of the stage
    QNetworkReply* reply = m_network.get(request);
    m_reply = reply;
    m_failed = failed;
    connect(reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64 total) {
        if (received > answerLimitBytes || total > answerLimitBytes) {
            const std::function<void()> failed = m_failed;
            giveUpRequest();
            failed();
        }
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply, answer = std::move(answer), failed] {
        m_limit.stop();
        m_reply = nullptr;
        reply->deleteLater();
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (reply->error() != QNetworkReply::NoError || status != 200)
            return failed();
        answer(reply->readAll(), reply->header(QNetworkRequest::ContentTypeHeader).toByteArray());
    });
    m_limit.start(requestLimitMs);
}

void DrawUpdate::giveUpRequest()
{
    m_limit.stop();
    abandonReply(m_reply, this);
}

void DrawUpdate::end(Outcome outcome)
{
    if (m_outcome != Outcome::Running)
        return;
    giveUpRequest();
    m_outcome = outcome;
    if (outcome != Outcome::Done)
        m_choice = NewDrawChoice(); // nothing of it is kept
    emit finished();
}

int DrawUpdate::insertInto(DrawHistory& history) const
{
    if (m_outcome != Outcome::Done)
        return 0;
    const int before = history.count();
    DrawHistory::Batch batch(history);
    for (QString line : m_choice.lines())
        导入一行(history, line);
    return history.count() - before;
}

QString DrawUpdate::report(int added) const
{
    QString text = added > 0 ? QStringLiteral("已更新") + textrules::decimal(added)
                                   + QStringLiteral("期开奖数据，最新一期：") + m_choice.newestTaken()
                                   + QStringLiteral("。")
                             : QStringLiteral("开奖数据已是最新（最新一期：") + (m_newest ? m_newest->text : QString())
                                   + QStringLiteral("）。");
    if (m_fromFallback)
        text += QStringLiteral("（数据来自备用来源）");
    if (m_choice.skipped() > 0)
        text += QStringLiteral("\n另有") + textrules::decimal(m_choice.skipped())
                + QStringLiteral("期数据不完整或有误，已跳过。");
    return text;
}
