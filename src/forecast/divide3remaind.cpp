#include "forecast/divide3remaind.h"

#include "forecast/richtextbox.h"
#include "forecast/textboxcommands.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int margin = 16;
constexpr int boxWidth = 300;
constexpr int boxHeight = 330;
constexpr int columnGap = 20;
constexpr int runWidth = 96;

QLineEdit* field(QWidget* parent, const char* name)
{
    auto* control = new QLineEdit(parent);
    control->setObjectName(QLatin1String(name));
    return control;
}

} // namespace

divide3remaind::divide3remaind(AppContext& context, DrawHistory& history, QWidget* parent)
    : ModalWindow(context, parent),
      Label1(controls::label(this, "Label1", QStringLiteral("上期开奖红色球："))),
      Text1(field(this, "Text1")),
      Label2(controls::label(this, "Label2", QStringLiteral("对应的除3余数："))),
      Text2(field(this, "Text2")),
      Label5(controls::label(this, "Label5",
                             QStringLiteral("除3余数过滤：针对上一次开奖的6个红色球，每一个位置的球除3的余数，"
                                            "不会出现在下一期的对应位置的除3余数里面。"))),
      Label3(controls::label(this, "Label3", QStringLiteral("（使用本功能前，请先更新到最新数据！）"))),
      Label6(controls::label(this, "Label6", QStringLiteral("现有号码组："))),
      RichTextBox1(textboxcommands::box(this, "RichTextBox1")),
      Command1(controls::button(this, "Command1", QStringLiteral("清空"))),
      Command2(controls::button(this, "Command2", QStringLiteral("全选"))),
      Command3(controls::button(this, "Command3", QStringLiteral("导入"))),
      Command4(controls::button(this, "Command4", QStringLiteral("开始过滤"))),
      Label4(controls::label(this, "Label4", QStringLiteral("过滤后的号码组："))),
      RichTextBox3(textboxcommands::box(this, "RichTextBox3")),
      Command8(controls::button(this, "Command8", QStringLiteral("清空"))),
      Command9(controls::button(this, "Command9", QStringLiteral("全选"))),
      Command11(controls::button(this, "Command11", QStringLiteral("另存为"))),
      m_history(history)
{
    setObjectName(QStringLiteral("divide3remaind"));
    setWindowTitle(QStringLiteral("除3余数过滤"));
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint, true);

    const int runLeft = margin + boxWidth + columnGap;
    const int secondLeft = runLeft + runWidth + columnGap;
    const int width = secondLeft + boxWidth + margin;

    // The newest draw and its remainders on one row, the explanation and the
    // reminder under it, then the boxes.
    Label1->setGeometry(margin, 14, 120, 24);
    Text1->setGeometry(margin + 120, 14, 180, 24);
    Label2->setGeometry(secondLeft, 14, 120, 24);
    Text2->setGeometry(secondLeft + 120, 14, 180, 24);
    Label5->setWordWrap(true);
    Label5->setGeometry(margin, 50, width - 2 * margin, 40);
    Label3->setGeometry(margin, 94, width - 2 * margin, 20);
    Label3->setStyleSheet(QStringLiteral("color: #FF0000;"));

    const int boxTop = 146;
    textboxcommands::placeColumn(Label6, RichTextBox1, {Command1, Command2, Command3},
                                 QRect(margin, boxTop, boxWidth, boxHeight));
    textboxcommands::placeColumn(Label4, RichTextBox3, {Command8, Command9, Command11},
                                 QRect(secondLeft, boxTop, boxWidth, boxHeight));
    Command4->setGeometry(runLeft, boxTop + boxHeight / 2 - 20, runWidth, 40);
    Command4->setAutoDefault(false);
    setFixedSize(width, Command8->geometry().bottom() + 1 + margin);

    onClick(Command1, [this] { Command1_Click(); });
    onClick(Command2, [this] { Command2_Click(); });
    onClick(Command3, [this] { Command3_Click(); });
    onClick(Command4, [this] { Command4_Click(); });
    onClick(Command8, [this] { Command8_Click(); });
    onClick(Command9, [this] { Command9_Click(); });
    onClick(Command11, [this] { Command11_Click(); });
    m_context.runEvent([&] { Form_Load(); });
}

void divide3remaind::Form_Load()
{
    const QString reds = RemainderFilter::newestReds(m_history);
    Text1->setText(reds);
    const QString remainders = RemainderFilter::remaindersOf(reds);
    Text2->setText(remainders);
    m_filter = RemainderFilter(remainders);
}

void divide3remaind::Command1_Click()
{
    textboxcommands::clear(*RichTextBox1);
}

void divide3remaind::Command2_Click()
{
    textboxcommands::selectAll(*RichTextBox1);
}

void divide3remaind::Command3_Click()
{
    textboxcommands::importInto(m_context.fileDialogs, *RichTextBox1);
}

void divide3remaind::Command4_Click()
{
    Command4->setEnabled(false);
    RichTextBox3->setText(m_filter.filterLines(RichTextBox1->Text()));
    Command4->setEnabled(true);
}

void divide3remaind::Command8_Click()
{
    textboxcommands::clear(*RichTextBox3);
}

void divide3remaind::Command9_Click()
{
    textboxcommands::selectAll(*RichTextBox3);
}

void divide3remaind::Command11_Click()
{
    textboxcommands::saveFrom(m_context.fileDialogs, *RichTextBox3);
}
