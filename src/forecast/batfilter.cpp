#include "forecast/batfilter.h"

#include "forecast/groupfilter.h"
#include "forecast/richtextbox.h"
#include "forecast/textboxcommands.h"
#include "prize/prizecheckwindow.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int margin = 16;
constexpr int boxTop = 40;
constexpr int boxWidth = 260;
constexpr int boxHeight = 380;
constexpr int columnGap = 20;
constexpr int runWidth = 96;

} // namespace

BatFilter::BatFilter(AppContext& context, const DrawHistory& history, QWidget* parent)
    : ModalWindow(context, parent),
      Label1(controls::label(this, "Label1", QStringLiteral("现有号码组："))),
      RichTextBox1(textboxcommands::box(this, "RichTextBox1")),
      Command1(controls::button(this, "Command1", QStringLiteral("清空"))),
      Command2(controls::button(this, "Command2", QStringLiteral("全选"))),
      Command3(controls::button(this, "Command3", QStringLiteral("导入"))),
      Label2(controls::label(this, "Label2", QStringLiteral("过滤掉以下号码组："))),
      RichTextBox2(textboxcommands::box(this, "RichTextBox2")),
      Command4(controls::button(this, "Command4", QStringLiteral("清空"))),
      Command5(controls::button(this, "Command5", QStringLiteral("全选"))),
      Command6(controls::button(this, "Command6", QStringLiteral("导入"))),
      Command7(controls::button(this, "Command7", QStringLiteral("开始过滤"))),
      Label3(controls::label(this, "Label3", QStringLiteral("过滤后的号码组："))),
      RichTextBox3(textboxcommands::box(this, "RichTextBox3")),
      Command8(controls::button(this, "Command8", QStringLiteral("清空"))),
      Command9(controls::button(this, "Command9", QStringLiteral("全选"))),
      Command11(controls::button(this, "Command11", QStringLiteral("另存为"))),
      prizeCheckButton(controls::button(this, "prizeCheckButton", QStringLiteral("中奖查询"))),
      m_history(history)
{
    setObjectName(QStringLiteral("BatFilter"));
    setWindowTitle(QStringLiteral("号码组过滤"));
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint, true);

    // The list to keep from, the list to take out, the run button between
    // them and the result: the way the text goes, from left to right.
    const int secondLeft = margin + boxWidth + columnGap;
    const int runLeft = secondLeft + boxWidth + columnGap;
    const int thirdLeft = runLeft + runWidth + columnGap;
    textboxcommands::placeColumn(Label1, RichTextBox1, {Command1, Command2, Command3},
                                 QRect(margin, boxTop, boxWidth, boxHeight));
    textboxcommands::placeColumn(Label2, RichTextBox2, {Command4, Command5, Command6},
                                 QRect(secondLeft, boxTop, boxWidth, boxHeight));
    textboxcommands::placeColumn(Label3, RichTextBox3, {Command8, Command9, Command11},
                                 QRect(thirdLeft, boxTop, boxWidth, boxHeight));
    Command7->setGeometry(runLeft, boxTop + boxHeight / 2 - 20, runWidth, 40);
    Command7->setAutoDefault(false);
    // The prize check of the result stands in the run column below the run.
    prizeCheckButton->setGeometry(runLeft, Command7->geometry().bottom() + 1 + 24, runWidth, 32);
    prizeCheckButton->setAutoDefault(false);
    setFixedSize(thirdLeft + boxWidth + margin, Command8->geometry().bottom() + 1 + margin);

    onClick(Command1, [this] { Command1_Click(); });
    onClick(Command2, [this] { Command2_Click(); });
    onClick(Command3, [this] { Command3_Click(); });
    onClick(Command4, [this] { Command4_Click(); });
    onClick(Command5, [this] { Command5_Click(); });
    onClick(Command6, [this] { Command6_Click(); });
    onClick(Command7, [this] { Command7_Click(); });
    onClick(Command8, [this] { Command8_Click(); });
    onClick(Command9, [this] { Command9_Click(); });
    onClick(Command11, [this] { Command11_Click(); });
    onClick(prizeCheckButton, [this] { prizeCheckButton_Click(); });
}

void BatFilter::Command1_Click()
{
    textboxcommands::clear(*RichTextBox1);
}

void BatFilter::Command2_Click()
{
    textboxcommands::selectAll(*RichTextBox1);
}

void BatFilter::Command3_Click()
{
    textboxcommands::importInto(m_context.fileDialogs, *RichTextBox1);
}

void BatFilter::Command4_Click()
{
    textboxcommands::clear(*RichTextBox2);
}

void BatFilter::Command5_Click()
{
    textboxcommands::selectAll(*RichTextBox2);
}

void BatFilter::Command6_Click()
{
    textboxcommands::importInto(m_context.fileDialogs, *RichTextBox2);
}

void BatFilter::Command7_Click()
{
    // Pending events run while the filter works, and the user may edit the
    // boxes meanwhile: the filter works on the texts as they are now, and
    // only this button is kept from starting it again.
    Command7->setEnabled(false);
    const QString kept = RichTextBox1->Text();
    const QString takenOut = RichTextBox2->Text();
    const QString result = groupfilter::filterGroups(kept, takenOut, [] { QCoreApplication::processEvents(); });
    RichTextBox3->setText(result);
    Command7->setEnabled(true);
}

void BatFilter::Command8_Click()
{
    textboxcommands::clear(*RichTextBox3);
}

void BatFilter::Command9_Click()
{
    textboxcommands::selectAll(*RichTextBox3);
}

void BatFilter::Command11_Click()
{
    textboxcommands::saveFrom(m_context.fileDialogs, *RichTextBox3);
}

void BatFilter::prizeCheckButton_Click()
{
    PrizeCheckWindow window(m_context, m_history, RichTextBox3->Text(), this);
    window.exec();
}
