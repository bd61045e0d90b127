#include "history/forminput.h"

#include "app/appcontext.h"
#include "history/insertline.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

FormInput::FormInput(AppContext& context, DrawHistory& history, QWidget* parent)
    : QDialog(parent),
      Label1(new QLabel(QStringLiteral("注意格式："), this)),
      Label2(new QLabel(QStringLiteral("期号  6个红色球 1-2个蓝色球 （空格隔开数字） 例如："), this)),
      Label3(new QLabel(QStringLiteral("2007024 08 09 17 25 27 32 06 15"), this)),
      Text1(new QPlainTextEdit(this)),
      Command1(new QPushButton(QStringLiteral("导入"), this)),
      Command2(new QPushButton(QStringLiteral("取消"), this)),
      Command3(new QPushButton(QStringLiteral("清空"), this)),
      m_context(context),
      m_history(history)
{
    setObjectName(QStringLiteral("FormInput"));
    setWindowTitle(QStringLiteral("导入福彩开奖历史"));
    setFixedSize(540, 430);
    Label1->setGeometry(16, 12, 508, 20);
    Label2->setGeometry(16, 34, 508, 20);
    Label3->setGeometry(16, 56, 508, 20);
    Label3->setStyleSheet(QStringLiteral("color: #0000C0;"));
    Text1->setGeometry(16, 82, 508, 286);
    Text1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    Text1->setLineWrapMode(QPlainTextEdit::NoWrap);
    Command3->setGeometry(16, 384, 90, 30);
    Command1->setGeometry(330, 384, 90, 30);
    Command2->setGeometry(434, 384, 90, 30);
    Text1->setObjectName(QStringLiteral("Text1"));
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3->setObjectName(QStringLiteral("Command3"));

    connect(Command1, &QPushButton::clicked, this, [this] { m_context.runEvent([&] { Command1_Click(); }); });
    connect(Command2, &QPushButton::clicked, this, [this] { m_context.runEvent([&] { Command2_Click(); }); });
    connect(Command3, &QPushButton::clicked, this, [this] { m_context.runEvent([&] { Command3_Click(); }); });
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
