#include "app/formuseage.h"

#include "windowkit/controls.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringList>

namespace {

constexpr int windowWidth = 560;
constexpr int windowHeight = 230;

const QStringList useage{
    QStringLiteral("本软件的使用非常简单，软件内部已经集成了大量科学的计算模式，"),
    QStringLiteral("不需要做繁杂的人为干预，操作步骤如下："),
    QStringLiteral("1、点击设置菜单，设置1－6号球的最大取值和最小取值；"),
    QStringLiteral("2、点击预测菜单，点击下期预测按钮，产生一组彩票预测值，如果需要多个，就多次点击即可；"),
    QStringLiteral("3、经常更新、增加双色球开奖历史清单，以保证数据的全面性和预测的科学性。"),
};

} // namespace

FormUseage::FormUseage(AppContext& context, QWidget* parent) : ModalWindow(context, parent)
{
    setObjectName(QStringLiteral("FormUseage"));
    setWindowTitle(QStringLiteral("软件使用方法"));
    setFixedSize(windowWidth, windowHeight);

    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setGeometry(12, 12, windowWidth - 24, windowHeight - 12 - 52);
    Text1->setPlainText(useage.join(QLatin1Char('\n')));

    Command1 = controls::button(this, "Command1", QStringLiteral("关闭"),
                                QRect((windowWidth - 90) / 2, windowHeight - 12 - 28, 90, 28));
    Command1->setDefault(true);
    onClick(Command1, [this] { Command1_Click(); });
    setEscapeButton(Command1);
}

void FormUseage::Command1_Click()
{
    accept();
}
