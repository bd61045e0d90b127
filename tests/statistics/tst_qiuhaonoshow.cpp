#include "history/drawhistory.h"
#include "statistics/qiuhaonoshow.h"
#include "testapp.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

class QiuhaonoshowTest : public QObject {
    Q_OBJECT

private slots:
    void undrawnRedsOfTheNewestDraws_data();
    void undrawnRedsOfTheNewestDraws();
};

void QiuhaonoshowTest::undrawnRedsOfTheNewestDraws_data()
{
    QTest::addColumn<QStringList>("groups"); // newest first
    QTest::addColumn<QString>("draws");
    QTest::addColumn<QString>("result"); // or the message
    const QString newest = QStringLiteral("08 09 17 25 27 32 06 15");
    const QString older = QStringLiteral("10 11 12 13 14 15 16 00");
    QTest::newRow("the newest draw, its blues stay")
        << QStringList{newest, older} << "1"
        << "01 02 03 04 05 06 07 10 11 12 13 14 15 16 18 19 20 21 22 23 24 26 28 29 30 31 33";
    QTest::newRow("twenty draws to the last row")
        << QStringList(19, QStringLiteral("01 02 03 04 05 06 07 00")) + QStringList{older} << "20"
        << "07 08 09 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 32 33";
    QTest::newRow("a short text runs into the next")
        << QStringList{"01 02 03 04 05 32", older} << "2"
        << "06 07 08 09 10 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 32 33";
    QTest::newRow("too few draws") << QStringList{newest} << "5" << "历史记录中的开奖数据不足5期，无法统计！";
}

void QiuhaonoshowTest::undrawnRedsOfTheNewestDraws()
{
    QFETCH(QStringList, groups);
    QFETCH(QString, draws);
    QFETCH(QString, result);
    TestApp app;
    DrawHistory history;
    for (int i = groups.size() - 1; i >= 0; --i) {
        const QString issue = QString::number(2007100 - i);
        history.add(DrawHistory::keyOf(issue), issue);
        history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, groups[i]);
    }
    history.setSortOrder(1); // as a descending sort by another column leaves it
    qiuhaonoshow form(app.context, history);
    QCOMPARE(form.Combo1->currentText(), QStringLiteral("5"));
    form.Combo1->setCurrentText(draws);
    form.Command1->click();
    const bool refused = !app.messages.shown.isEmpty();
    QCOMPARE(refused ? app.messages.shown[0].text : form.Text1->text(), result);
    QCOMPARE(form.Text1->text().isEmpty() && !app.process.ended(), refused);
    form.accept();
    QCOMPARE(issuesOf(history).first(), QStringLiteral("2007100"));
}

QTEST_MAIN(QiuhaonoshowTest)

#include "tst_qiuhaonoshow.moc"
