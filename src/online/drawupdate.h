#pragma once

// The one-click update of the history: the draws that are newer than the
// history's newest, from the lottery centre's data feed, or from the
// draw-data site's history pages when the feed can't be had. Everything is
// fetched and checked first; only a finished update hands its draws to
// 导入一行, oldest first, so that a cancel or a failure leaves the history as
// it was.

#include <QList>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <map>
#include <optional>

class DrawHistory;
class QNetworkReply;

// One draw as a source gives it, not yet checked.
struct SourceDraw {
    QString issue;
    QStringList numbers; // the six reds, then the blue
};

namespace drawfeed {

// The feed's address for the newest `issueCount` draws.
QString address(const QString& feedBase, int issueCount);
// The lottery centre's own page of past draws, from which a browser asks.
QString referer(const QString& feedBase);
// The request as a browser sends it from that page: JSON accepted.
QNetworkRequest request(const QString& feedBase, int issueCount);

// The draws of a feed answer, an object whose array "result" holds one
// object per draw with "code", "red" ("05,11,21,23,24,29") and "blue"
// ("06"). Nothing when the text is not such an object; an entry of another
// shape gives a draw that the checks refuse.
std::optional<QList<SourceDraw>> read(const QByteArray& json);

} // namespace drawfeed

namespace drawcheck {

// A line of a history page, "issue numbers", as a draw.
SourceDraw fromPageLine(const QString& line);

// The issue number of a source: one to nine digits.
std::optional<qint32> issueNumber(const QString& issue);

// The line that 导入一行 takes, "issue r r r r r r b" in two digits, for a
// draw with an issue number, six different reds of 1 to 33 and a blue of 1
// to 16; nothing for any other.
std::optional<QString> insertLine(const SourceDraw& draw);

struct NewestIssue {
    qint32 number;
    QString text; // as the row has it
};
// The history's newest issue: the largest issue number among the rows, read
// as whole numbers; nothing for a history without one.
std::optional<NewestIssue> newestIssue(const DrawHistory& history);

} // namespace drawcheck

// What a source's draws bring: every good draw newer than the history's
// newest, once; the bad ones counted.
class NewDrawChoice {
public:
    explicit NewDrawChoice(std::optional<qint32> newest = std::nullopt) : m_newest(newest) {}

    void offer(const SourceDraw& draw);

    // A draw as old as the history's newest or older has come.
    bool reachedHistory() const { return m_reachedHistory; }
    // Draws that passed the checks, new or not.
    int good() const { return m_good; }
    // Draws newer than the history's newest, or of no issue number at all,
    // that fail the checks.
    int skipped() const { return m_skippedUnnumbered + int(m_skippedIssues.size()); }
    // The lines for 导入一行, oldest first.
    QStringList lines() const;
    // The issue of the newest draw taken; empty when none was.
    QString newestTaken() const;

private:
    std::optional<qint32> m_newest;
    std::map<qint32, QString> m_taken; // by issue number
    QSet<qint32> m_skippedIssues;
    int m_skippedUnnumbered = 0;
    int m_good = 0;
    bool m_reachedHistory = false;
};

// One update, from start to its end. The feed is asked for the newest 100
// draws, and for 5,000 when none of them reaches back to the history. A feed
// that can't be reached, answers with anything but 200, takes longer than the
// limit, gives more than the answer limit or no good draw sends the update to
// the site's pages 1, 2, ... until one holds a draw that is not newer than the
// history's newest, or page 85. A page that can't be had, or holds no draws,
// fails the update.
class DrawUpdate : public QObject {
    Q_OBJECT

public:
    enum class Outcome { NotStarted, Running, Done, Failed, Cancelled };

    DrawUpdate(const DrawHistory& history, QString feedBase, QString DrawSiteBase, QObject* parent = nullptr);
    ~DrawUpdate() override;

    // Each request gives up after this long.
    int requestLimitMs = 15000;
    // An answer longer than this is given up as it comes.
    qint64 answerLimitBytes = 16 * 1024 * 1024;

    void start();
    // Ends a running update at once; nothing of it is kept.
    void cancel();

    Outcome outcome() const { return m_outcome; }
    bool fromFallback() const { return m_fromFallback; }
    const NewDrawChoice& choice() const { return m_choice; }

    // Hands the new draws of a done update to 导入一行, oldest first, in one
    // batch; the rows added.
    int insertInto(DrawHistory& history) const;
    // The report of a done update that added `added` rows.
    QString report(int added) const;

signals:
    void stageChanged(const QString& text);
    void finished();

private:
    using Answer = std::function<void(const QByteArray& body, const QByteArray& contentType)>;

    void askFeed(int issueCount);
    void askPage(int page);
    void fallBack();
    // Gets the address; `answer` hears a 200 in time, any other end fails over.
    void fetch(const QNetworkRequest& request, Answer answer, std::function<void()> failed);
    void giveUpRequest();
    void end(Outcome outcome);

    const DrawHistory& m_history;
    QString m_feedBase;
    QString DrawSiteBase;
    std::optional<drawcheck::NewestIssue> m_newest;
    NewDrawChoice m_choice;
    int m_read = 0; // draws read from the pages so far
    bool m_fromFallback = false;
    Outcome m_outcome = Outcome::NotStarted;

    QNetworkAccessManager m_network;
    QPointer<QNetworkReply> m_reply;
    QTimer m_limit;
    std::function<void()> m_failed; // of the request under way
};
