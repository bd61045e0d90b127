#include "settings/optionform.h"

#include "platform/textrules.h"
#include "settings/rangetexts.h"
#include "statistics/chartcommands.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <optional>

namespace {

constexpr int windowWidth = 300;
constexpr int windowHeight = 150;
constexpr int rowHeight = 24;
constexpr int ballListWidth = 56;

const QString ballPrefix = QStringLiteral("设置球：");
const QString ballGap = QStringLiteral("              "); // the room for Combo1 in Label2's caption

} // namespace

OptionForm::OptionForm(AppContext& context, DrawHistory& history, QWidget* parent)
    : ModalWindow(context, parent), m_history(history)
{
    setObjectName(QStringLiteral("OptionForm"));
    setWindowTitle(QStringLiteral("设置"));
    setFixedSize(windowWidth, windowHeight);

    Label2 = controls::label(this, "Label2", ballPrefix + ballGap + QStringLiteral("的取值范围"));
    controls::fitGapCaption(Label2, QPoint(0, 22), rowHeight);
    Label2->move((windowWidth - Label2->width()) / 2, 22);

    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setEditable(false);
    for (int ball = 1; ball <= 8; ++ball)
        Combo1->addItem(textrules::decimal(ball));
    // The list stands in the middle of the blanks, never wider than they are.
    const QRect gap = controls::captionGap(Label2);
    const int listWidth = std::min(ballListWidth, gap.width() - 8);
    Combo1->setGeometry(gap.left() + (gap.width() - listWidth) / 2, 22, listWidth, rowHeight);

    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label1->setGeometry(windowWidth / 2 - 26 - 70, 60, 70, rowHeight);
    Label3 = new QLabel(QStringLiteral("---"), this);
    Label3->setObjectName(QStringLiteral("Label3"));
    Label3->setAlignment(Qt::AlignCenter);
    Label3->setGeometry(windowWidth / 2 - 22, 60, 44, rowHeight);
    Label4 = new QLabel(this);
    Label4->setObjectName(QStringLiteral("Label4"));
    Label4->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Label4->setGeometry(windowWidth / 2 + 26, 60, 70, rowHeight);

    Command3 = new QPushButton(QStringLiteral("设置"), this);
    Command3->setObjectName(QStringLiteral("Command3"));
    Command3->setGeometry(windowWidth / 2 - 10 - 90, 104, 90, 28);
    Command1 = new QPushButton(QStringLiteral("关闭"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setGeometry(windowWidth / 2 + 10, 104, 90, 28);
    Command3->setDefault(true);

    connect(Combo1, &QComboBox::currentIndexChanged, this,
            [this] { m_context.runEvent([&] { Combo1_Click(); }); });
    onClick(Command3, [this] { Command3_Click(); });
    onClick(Command1, [this] { Command1_Click(); });
    setEscapeButton(Command1);

    m_context.runEvent([&] { Form_Load(); });
}

void OptionForm::Form_Load()
{
    Combo1->setCurrentIndex(0);
    Combo1_Click();
}

void OptionForm::Combo1_Click()
{
    // A text that isn't a number shows nothing new.
    if (const std::optional<qint32> ball = textrules::toWhole(Combo1->currentText()))
        显示最大最小设置(*ball);
}

void OptionForm::显示最大最小设置(qint32 ball)
{
    if (const std::optional<rangetexts::ShownRange> range = rangetexts::rangeOf(m_context.ranges, ball)) {
        Label1->setText(range->minimum);
        Label4->setText(range->maximum);
    }
}

void OptionForm::Command3_Click()
{
    Command3->setEnabled(false);
    // From here on a failing statement is skipped: without a ball number no
    // chart opens, and the button comes back all the same.
    const std::optional<qint32> ball = textrules::toWhole(Combo1->currentText());
    if (ball)
        chartcommands::showBallChart(m_context, m_history, *ball, this);
    Command3->setEnabled(true);
    if (ball)
        显示最大最小设置(*ball); // what has just been set
}

void OptionForm::Command1_Click()
{
    close();
}
