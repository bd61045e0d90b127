#include "fakes.h"
#include "forecast/duplicatelines.h"
#include "forecast/textholder.h"

#include <QtTest>

#include <type_traits>

namespace {

class FakeBox final : public TextHolder {
public:
    QString Text() const override { return text; }
    void setText(const QString& value) override
    {
        text = value;
        ++writes;
    }
    QString text;
    int writes = 0;
};

QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("\r\n"));
}

QString report(int before, int after)
{
    return QStringLiteral("过滤重复前：%1 行记录；过滤重复后：%2 行记录。").arg(before).arg(after);
}

const QString refused = QStringLiteral("号码格式不对！请重新预测或者修正！");

} // namespace

class DuplicateLinesTest : public QObject {
    Q_OBJECT

private slots:
    void averageLineLength_data();
    void averageLineLength();
    void filtersAndReports_data();
    void filtersAndReports();
    void refusesTextThatIsNoResult_data();
    void refusesTextThatIsNoResult();
};

void DuplicateLinesTest::averageLineLength_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("mean");
    QTest::newRow("empty") << "" << 0.0f;
    QTest::newRow("blank lines only") << "  \r\n\r\n " << 0.0f;
    QTest::newRow("blank lines don't count") << "abc\r\n  \r\nabcde" << 4.0f;
    QTest::newRow("trimmed lengths") << "  abc  \r\nabcd" << 3.5f;
    QTest::newRow("a lone LF is no line break") << "ab\ncd\r\nabcde" << 5.0f;
    QTest::newRow("a third") << "a\r\na\r\nab" << float(4.0 / 3.0);
}

void DuplicateLinesTest::averageLineLength()
{
    QFETCH(QString, text);
    QFETCH(float, mean);
    static_assert(std::is_same_v<decltype(AverageLineLength(text)), float>, "the mean is single precision");
    QCOMPARE(AverageLineLength(text), mean);
}

void DuplicateLinesTest::filtersAndReports_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("message");
    const QString a = QStringLiteral("08 09 17 25 27 32");
    const QString b = QStringLiteral("01 05 09 12 20 33");
    const QString c = QStringLiteral("03 09 17 20 27 30");
    QStringList ten;
    for (int i = 0; i < 10; ++i)
        ten.append(a);
    QTest::newRow("ten identical lines") << lines(ten) + "\r\n" << a << report(10, 1);
    QTest::newRow("no repeats come back sorted") << lines({a, b, c}) + "\r\n" << lines({b, c, a}) << report(3, 3);
    QTest::newRow("a blank line counts before and is gone after")
        << lines({a, "", b, a}) << lines({b, a}) << report(4, 2);
    QTest::newRow("a line of blanks is gone too") << lines({a, "     ", b}) << lines({b, a}) << report(3, 2);
    QTest::newRow("two breaks at the end: one pair is cut, the other counts")
        << lines({a, b}) + "\r\n\r\n" << lines({b, a}) << report(3, 2);
    QTest::newRow("same reds, other blue: both stay")
        << lines({"08 09 17 25 27 32  06", "08 09 17 25 27 32  01", "08 09 17 25 27 32  06"})
        << lines({"08 09 17 25 27 32  01", "08 09 17 25 27 32  06"}) << report(3, 2);
    QTest::newRow("lines of 16 and 18 pass as 17 and compare on 17")
        << lines({"01 02 03 04 05 0", "01 02 03 04 05 066", "01 02 03 04 05 06"})
        << lines({"01 02 03 04 05 0", "01 02 03 04 05 06"}) << report(3, 2);
    QTest::newRow("blanks around a line pass the mean; the field is its first 17 characters") << lines({"  " + a + "  ", b, a})
                                                                << lines({"  08 09 17 25 27 ", b, a}) << report(3, 3);
}

void DuplicateLinesTest::filtersAndReports()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    QFETCH(QString, message);
    FakeBox box;
    box.text = text;
    FakeMessages messages;
    FilterDuplicateLines(box, messages);
    QCOMPARE(box.text, result);
    QVERIFY(!box.text.endsWith(QStringLiteral("\r\n")));
    QCOMPARE(messages.shown.size(), 1);
    QCOMPARE(messages.shown[0].icon, MessageIcon::Information);
    QCOMPARE(messages.shown[0].text, message);
}

void DuplicateLinesTest::refusesTextThatIsNoResult_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("blanks and breaks") << "   \r\n\r\n";
    QTest::newRow("one line of each layout: 19") << lines({"08 09 17 25 27 32", "08 09 17 25 27 32  06"});
    QTest::newRow("layouts mixed") << lines({"08 09 17 25 27 32", "01 05 09 12 20 33", "08 09 17 25 27 32  06"});
    QTest::newRow("history form of 20") << lines({"08 09 17 25 27 32 06", "01 05 09 12 20 33 11"});
    QTest::newRow("single digits") << "8 9 17 25 27 32";
}

void DuplicateLinesTest::refusesTextThatIsNoResult()
{
    QFETCH(QString, text);
    FakeBox box;
    box.text = text;
    FakeMessages messages;
    FilterDuplicateLines(box, messages);
    QCOMPARE(box.writes, 0);
    QCOMPARE(box.text, text);
    QCOMPARE(messages.shown.size(), 1);
    QCOMPARE(messages.shown[0].icon, MessageIcon::Critical);
    QCOMPARE(messages.shown[0].text, refused);
}

QTEST_GUILESS_MAIN(DuplicateLinesTest)

#include "tst_duplicatelines.moc"
