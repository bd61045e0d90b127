#include "statistics/qiuhaonoshow.h"

#include "history/drawhistory.h"
#include "platform/textrules.h"
#include "statistics/undrawnreds.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

qiuhaonoshow::qiuhaonoshow(AppContext& context, DrawHistory& history, QWidget* parent)
    : ModalWindow(context, parent), m_history(history)
{
    setObjectName(QStringLiteral("qiuhaonoshow"));
    setWindowTitle(QStringLiteral("统计最近未开奖红色球球号"));
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint, true);

    const int margin = 16;
    Label1 = controls::label(this, "Label1", QStringLiteral("最近           期"));
    controls::fitGapCaption(Label1, QPoint(margin, 16), 28);
    // Pick-only: the count is one of the entries, never a typed text.
    Combo1 = controls::pickList(this, "Combo1", {}, controls::captionGap(Label1).adjusted(2, 1, -2, -1));
    Command1 = controls::button(this, "Command1", QStringLiteral("开始统计"));
    Command1->setGeometry(Label1->geometry().right() + 24, 16, 100, 28);
    Command1->setAutoDefault(false);
    Label3 = controls::label(this, "Label3", QStringLiteral("最近几期未开奖红色球号码，统计结果："));
    Label3->setGeometry(margin, 58, Label3->sizeHint().width(), 20);
    // Wide enough for the longest result, the 27 numbers that one draw leaves.
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    const QString longest = QStringLiteral("00 ").repeated(26) + QStringLiteral("00");
    Text1->setGeometry(margin, 82, Text1->fontMetrics().horizontalAdvance(longest) + 16, 26);
    Label2 = controls::label(this, "Label2", QStringLiteral("（使用本功能前，请先更新到最新数据！）"));
    Label2->setGeometry(margin, 118, Label2->sizeHint().width(), 20);
    setFixedSize(childrenRect().right() + 1 + margin, 118 + 20 + margin);

    onClick(Command1, [this] { Command1_Click(); });
    Form_Load();
}

void qiuhaonoshow::Form_Load()
{
    for (int n = 1; n <= 20; ++n)
        Combo1->addItem(textrules::decimal(n));
    Combo1->setCurrentText(QStringLiteral("5"));
}

void qiuhaonoshow::Command1_Click()
{
    const std::optional<qint32> draws = textrules::toWhole(Combo1->currentText());
    if (!draws)
        throw RuntimeError(RuntimeError::TypeMismatch);
    // Reading past the last row would end the program; the window says so
    // instead and leaves the result as it was.
    if (m_history.count() < *draws) {
        m_context.messages.show(MessageIcon::Critical, QStringLiteral("历史记录中的开奖数据不足%1期，无法统计！")
                                                           .arg(textrules::decimal(*draws)));
        return;
    }
    Text1->setText(undrawnreds::最近未出现号码(m_history, *draws));
}
