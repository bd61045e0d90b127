#include "forecast/forecastwindow.h"

#include "forecast/duplicatelines.h"
#include "forecast/grouphistory.h"
#include "forecast/historycheck.h"
#include "forecast/resultoutput.h"
#include "forecast/richtextbox.h"
#include "platform/textrules.h"
#include "prize/prizecheckwindow.h"
#include "settings/settingsstore.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"
#include "windowkit/programstyle.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QString groupCountKey = QStringLiteral("组数");

constexpr int margin = 16;
constexpr int buttonHeight = 28;
constexpr int boxWidth = 330;
constexpr int boxHeight = 296;
constexpr int sideButtonWidth = 120;

} // namespace

ForecastWindow::ForecastWindow(AppContext& context, const DrawHistory& history, const QString& section,
                               ForecastCore::Hooks hooks, QWidget* parent)
    : ModalWindow(context, parent),
      m_history(history),
      m_section(section),
      m_core(context.random, context.ranges, forecastHistory(), std::move(hooks))
{
    setObjectName(section);
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint, true);

    Label1 = controls::label(this, "Label1", QStringLiteral("每次预测           组号码"));
    Text2 = new QLineEdit(QStringLiteral("1"), this);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setAlignment(Qt::AlignCenter);
    Check1 = controls::tick(this, "Check1", QStringLiteral("预测蓝色球"));
    Check2 = controls::tick(this, "Check2", QStringLiteral("不出现历史开过奖的号码组"));
    Command1 = controls::button(this, "Command1", QStringLiteral("下期预测"));
    Label4 = controls::label(this, "Label4", QStringLiteral("预测中，请稍候..."));
    Label4->setStyleSheet(QStringLiteral("color: #FF0000;"));
    Label3 = controls::label(this, "Label3", QStringLiteral("预测结果[请选择使用]："));
    RichTextBox1 = new RichTextBox(this);
    RichTextBox1->setObjectName(QStringLiteral("RichTextBox1"));
    RichTextBox1->setFont(programstyle::serif(15.75));
    Command2 = controls::button(this, "Command2", QStringLiteral("清空预测结果"));
    Command3 = controls::button(this, "Command3", QStringLiteral("复制全部"));
    Command4 = controls::button(this, "Command4", QStringLiteral("导出到WORD"));
    Command5 = controls::button(this, "Command5", QStringLiteral("滤掉重复"));
    // A button runs only when it is clicked: none becomes the default of the window.
    for (QPushButton* widget : {Command1, Command2, Command3, Command4, Command5})
        widget->setAutoDefault(false);

    m_core.letEventsRun = [] { QCoreApplication::processEvents(); };
    connectCommon();
}

void ForecastWindow::connectCommon()
{
    onClick(Command2, [this] { Command2_Click(); });
    onClick(Command3, [this] { Command3_Click(); });
    onClick(Command4, [this] { Command4_Click(); });
    onClick(Command5, [this] { Command5_Click(); });
}

void ForecastWindow::layoutCommon(int top)
{
    // Text2 stands in the run of blanks of Label1's caption.
    const int rowHeight = 24;
    controls::fitGapCaption(Label1, QPoint(margin, top), rowHeight);
    Text2->setGeometry(controls::captionGap(Label1).adjusted(3, 0, -3, 0));

    const int tickLeft = Label1->geometry().right() + 24;
    Check1->setGeometry(tickLeft, top, Check1->sizeHint().width(), rowHeight);
    Check2->setGeometry(Check1->geometry().right() + 20, top, Check2->sizeHint().width(), rowHeight);

    const int runTop = top + rowHeight + 14;
    Command1->setGeometry(margin, runTop, 104, buttonHeight);
    Label4->setGeometry(Command1->geometry().right() + 16, runTop, 200, buttonHeight);

    const int headingTop = runTop + buttonHeight + 14;
    Label3->setGeometry(margin, headingTop, boxWidth, 20);
    const int boxTop = headingTop + 24;
    RichTextBox1->setGeometry(margin, boxTop, boxWidth, boxHeight);

    const int sideLeft = margin + boxWidth + 16;
    int sideTop = boxTop;
    for (QPushButton* side : {Command2, Command3, Command4, Command5}) {
        side->setGeometry(sideLeft, sideTop, sideButtonWidth, buttonHeight + 4);
        sideTop += buttonHeight + 4 + 12;
    }
    m_nextSideTop = sideTop;

    setFixedSize(childrenRect().right() + 1 + margin, boxTop + boxHeight + margin);

    prizeCheckButton = addSideButton("prizeCheckButton", QStringLiteral("中奖查询"));
    onClick(prizeCheckButton, [this] { prizeCheckButton_Click(); });
    historyCheckButton = addSideButton("historyCheckButton", QStringLiteral("历史验证"));
    onClick(historyCheckButton, [this] { historyCheckButton_Click(); });
}

QPushButton* ForecastWindow::addSideButton(const char* name, const QString& caption)
{
    QPushButton* side = controls::button(this, name, caption);
    side->setAutoDefault(false);
    side->setGeometry(Command5->x(), m_nextSideTop, sideButtonWidth, buttonHeight + 4);
    m_nextSideTop += buttonHeight + 4 + 12;
    return side;
}

QLineEdit* ForecastWindow::makeText3()
{
    auto* text3 = new QLineEdit(this);
    text3->setObjectName(QStringLiteral("Text3"));
    text3->setMaxLength(70);
    return text3;
}

int ForecastWindow::layoutRule(QLabel* explanation, QLabel* heading, QLineEdit* text3, QLabel* hint)
{
    explanation->setGeometry(margin, 12, explanation->sizeHint().width(), 22);
    heading->setGeometry(margin, 42, heading->sizeHint().width(), 20);
    text3->setGeometry(margin, 64, boxWidth + 16 + sideButtonWidth, 24);
    hint->setGeometry(margin, 92, hint->sizeHint().width(), 20);
    return 122;
}

void ForecastWindow::loadCommon()
{
    Label4->setVisible(false);
    Text2->setText(m_context.settings.read(m_section, groupCountKey, QStringLiteral("1")));
}

void ForecastWindow::fillHistory()
{
    FillHistoryCollections(m_history);
}

void ForecastWindow::unloadCommon()
{
    m_context.settings.write(m_section, groupCountKey, Text2->text());
}

bool ForecastWindow::groupCountIsValid()
{
    if (!textrules::isNumeric(Text2->text())) {
        m_context.messages.show(MessageIcon::Critical, QStringLiteral("每次预测的号码数，必须是数字！"));
        Text2->setFocus();
        return false;
    }
    const std::optional<qint32> count = textrules::toWhole(Text2->text());
    if (!count)
        throw RuntimeError(RuntimeError::Overflow); // a number beyond 32 bits is not caught
    if (*count > 10000 || *count < 1) {
        m_context.messages.show(MessageIcon::Critical, QStringLiteral("每次预测的号码数，必须是1-10000的数字！"));
        Text2->setFocus();
        return false;
    }
    return true;
}

void ForecastWindow::beginRun()
{
    Command1->setEnabled(false);
    m_core.WantBlue = Check1->isChecked() ? 1 : 0;
    m_core.NoHistory = Check2->isChecked() ? 1 : 0;
    const std::optional<qint32> count = textrules::toWhole(Text2->text());
    if (!count)
        throw RuntimeError(RuntimeError::Overflow);
    m_core.GroupCount = *count;
    Label4->setVisible(true);
    QCoreApplication::processEvents();
}

void ForecastWindow::endRun()
{
    Label4->setVisible(false);
    Command1->setEnabled(true);
}

void ForecastWindow::run()
{
    beginRun();
    if (m_core.GroupCount == 1) {
        const QString line = m_core.预测号码();
        // Only a forecast with an attempt limit gives up, with an empty text;
        // the others always find their group.
        if (line.size() < 9) {
            m_context.messages.show(MessageIcon::Critical, QStringLiteral("无法预测，设置的条件不合理，请重新设置！"));
        } else {
            // Earlier lines stay: the new one goes behind them, at the caret
            // put at the very end.
            RichTextBox1->setSelStart(RichTextBox1->Text().size());
            RichTextBox1->setSelText(line + QStringLiteral("\r\n"));
        }
    } else {
        // A batch replaces the whole box, in one assignment; a forecast that
        // gives up leaves its missing groups out without a word.
        RichTextBox1->setText(m_core.batchText());
    }
    endRun();
}

void ForecastWindow::historyCheckButton_Click()
{
    if (!ruleIsValid())
        return;
    ForecastConditions conditions;
    conditions.ranges = m_context.ranges;
    conditions.hooks = ruleAsItStands();
    conditions.wantBlue = Check1->isChecked();
    conditions.noHistory = Check2->isChecked();
    // The count lets pending events run now and then; the button waits.
    historyCheckButton->setEnabled(false);
    const QString report =
        historycheck::report(m_history, conditions, [] { QCoreApplication::processEvents(); });
    historyCheckButton->setEnabled(true);
    // A window closed meanwhile has no one left to tell.
    if (isVisible())
        m_context.messages.show(MessageIcon::Information, report);
}

void ForecastWindow::Command2_Click()
{
    RichTextBox1->setText(QString());
}

void ForecastWindow::Command3_Click()
{
    resultoutput::copyAll(m_context.clipboard, RichTextBox1->Text());
}

void ForecastWindow::Command4_Click()
{
    resultoutput::exportToWord(m_context.launcher, m_context.programFolder, RichTextBox1->Text());
}

void ForecastWindow::Command5_Click()
{
    Command5->setEnabled(false);
    FilterDuplicateLines(*RichTextBox1, m_context.messages);
    Command5->setEnabled(true);
}

void ForecastWindow::prizeCheckButton_Click()
{
    PrizeCheckWindow window(m_context, m_history, RichTextBox1->Text(), this);
    window.exec();
}
