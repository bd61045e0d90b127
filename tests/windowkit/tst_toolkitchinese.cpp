#include "testapp.h"
#include "windowkit/desktopservices.h"
#include "windowkit/programstyle.h"
#include "windowkit/toolkitchinese.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(QMessageBox::StandardButton)

namespace {

// The captions of the box's buttons as the user reads them, in the box's order.
QStringList captionsOf(const QMessageBox* box)
{
    QStringList captions;
    for (const QAbstractButton* button : box->buttons())
        captions << button->text();
    captions.sort();
    return captions;
}

} // namespace

class ToolkitChineseTest : public QObject {
    Q_OBJECT

private slots:
    void boxesSpeakChinese_data();
    void boxesSpeakChinese();
    void textBoxMenuSpeaksChinese();
};

void ToolkitChineseTest::boxesSpeakChinese_data()
{
    QTest::addColumn<bool>("question");
    QTest::addColumn<QMessageBox::StandardButton>("press");
    QTest::addColumn<QStringList>("captions");
    QTest::addColumn<bool>("answer");
    QTest::newRow("question answered yes") << true << QMessageBox::Yes << QStringList{"否(&N)", "是(&Y)"} << true;
    QTest::newRow("question answered no") << true << QMessageBox::No << QStringList{"否(&N)", "是(&Y)"} << false;
    QTest::newRow("message") << false << QMessageBox::Ok << QStringList{"确定"} << false;
}

void ToolkitChineseTest::boxesSpeakChinese()
{
    QFETCH(bool, question);
    QFETCH(QMessageBox::StandardButton, press);
    QFETCH(QStringList, captions);
    QFETCH(bool, answer);
    QtMessageService messages;
    QStringList shown;
    whenWindowShown<QMessageBox>([&](QMessageBox* box) {
        shown = captionsOf(box);
        box->button(press)->click();
    });
    const QString text = QStringLiteral("清空列表，将导致很多功能无法正常工作！你打算清空吗？");
    bool answered = false;
    if (question)
        answered = messages.askYesNo(text);
    else
        messages.show(MessageIcon::Information, text);
    QCOMPARE(shown, captions);
    QCOMPARE(answered, answer);
}

void ToolkitChineseTest::textBoxMenuSpeaksChinese()
{
    QLineEdit box(QStringLiteral("08 09 17 25 27 32"));
    const std::unique_ptr<QMenu> menu(box.createStandardContextMenu());
    QStringList entries;
    for (const QAction* action : menu->actions())
        if (!action->isSeparator())
            entries << action->text().section(QLatin1Char('\t'), 0, 0);
    QVERIFY2(entries.contains(QStringLiteral("复制(&C)")) && entries.contains(QStringLiteral("粘贴(&P)")),
             qPrintable(entries.join(QLatin1Char('|'))));
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    programstyle::applyTo(application);
    if (!toolkitchinese::load(application))
        qFatal("the toolkit's Chinese translations are not installed");
    ToolkitChineseTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_toolkitchinese.moc"
