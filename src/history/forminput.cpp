#include "history/forminput.h"

#include "history/insertline.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

FormInput::FormInput(AppContext& context, DrawHistory& history, QWidget* parent)
    : ModalWindow(context, parent),
      Label1(controls::label(this, "Label1", QStringLiteral("注意格式："), QRect(16, 12, 508, 20))),
      Label2(controls::label(this, "Label2", QStringLiteral("期号  6个红色球 1-2个蓝色球 （空格隔开数字） 例如："),
                             QRect(16, 34, 508, 20))),
      Label3(controls::label(this, "Label3", QStringLiteral("2007024 08 09 17 25 27 32 06 15"), QRect(16, 56, 508, 20))),
      Text1(new QPlainTextEdit(this)),
      Command1(controls::button(this, "Command1", QStringLiteral("导入"), QRect(330, 384, 90, 30))),
      Command2(controls::button(this, "Command2", QStringLiteral("取消"), QRect(434, 384, 90, 30))),
      Command3(controls::button(this, "Command3", QStringLiteral("清空"), QRect(16, 384, 90, 30))),
      m_history(history)
{
    setObjectName(QStringLiteral("FormInput"));
    setWindowTitle(QStringLiteral("导入福彩开奖历史"));
    setFixedSize(540, 430);
    Label3->setStyleSheet(QStringLiteral("color: #0000C0;"));
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setGeometry(16, 82, 508, 286);
    // A vertical scroll bar only: long lines wrap at the box's edge, also
    // where they have no blank, and stay one line each for the import.
    Text1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    Text1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Text1->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    Text1->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);

    onClick(Command1, [this] { Command1_Click(); });
    onClick(Command2, [this] { Command2_Click(); });
    onClick(Command3, [this] { Command3_Click(); });
    setEscapeButton(Command2);
}

QString FormInput::text() const
{
    // The editor keeps its lines apart by itself; each line the user sees is
    // one line ended by CR LF.
    return Text1->toPlainText().replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}

void FormInput::Command1_Click()
{
    importLines(m_history, text());
    accept();
}

void FormInput::Command2_Click()
{
    reject();
}

void FormInput::Command3_Click()
{
    Text1->clear();
}
