#include "prize/prizecheckwindow.h"

#include "forecast/resultoutput.h"
#include "forecast/richtextbox.h"
#include "forecast/textboxcommands.h"
#include "platform/textrules.h"
#include "prize/prizecheck.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString wholeHistory = QStringLiteral("全部历史");

// A row of controls; a null entry is the room that grows with the window.
QHBoxLayout* row(std::initializer_list<QWidget*> widgets)
{
    auto* layout = new QHBoxLayout;
    for (QWidget* widget : widgets) {
        if (widget)
            layout->addWidget(widget);
        else
            layout->addStretch(1);
    }
    return layout;
}

} // namespace

PrizeCheckWindow::PrizeCheckWindow(AppContext& context, const DrawHistory& history, const QString& bets,
                                   QWidget* parent)
    : ModalWindow(context, parent),
      betsHeading(controls::label(this, "betsHeading", QStringLiteral("投注号码（每行一注，或一组复式、胆拖）："))),
      betsBox(textboxcommands::box(this, "betsBox")),
      formsHint(controls::label(this, "formsHint",
                                QStringLiteral("单式：08 09 17 25 27 32 + 06　　复式：01 02 03 04 05 06 07 + 08 09　　"
                                               "胆拖：01 02 # 03 04 05 06 07 + 08"))),
      drawHeading(controls::label(this, "drawHeading", QStringLiteral("开奖期号："))),
      drawPicker(controls::pickList(this, "drawPicker")),
      drawNumbers(controls::label(this, "drawNumbers", QString())),
      checkButton(controls::button(this, "checkButton", QStringLiteral("开始查询"))),
      countButton(controls::button(this, "countButton", QStringLiteral("计算注数"))),
      resultHeading(controls::label(this, "resultHeading", QStringLiteral("查询结果："))),
      resultBox(textboxcommands::box(this, "resultBox")),
      copyButton(controls::button(this, "copyButton", QStringLiteral("复制结果"))),
      closeButton(controls::button(this, "closeButton", QStringLiteral("关闭"))),
      m_draws(prize::checkableDraws(history))
{
    setObjectName(QStringLiteral("PrizeCheckWindow"));
    setWindowTitle(QStringLiteral("中奖查询"));
    setSizeGripEnabled(true);

    formsHint->setWordWrap(true);
    formsHint->setStyleSheet(QStringLiteral("color: #404040;"));
    resultBox->setReadOnly(true);
    for (QPushButton* button : {checkButton, countButton, copyButton, closeButton}) {
        button->setAutoDefault(false);
        button->setMinimumWidth(96);
    }
    drawPicker->setMinimumWidth(150);
    drawPicker->setMaxVisibleItems(20);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 12, 16, 12);
    layout->addWidget(betsHeading);
    layout->addWidget(betsBox, 3);
    layout->addWidget(formsHint);
    layout->addSpacing(6);
    layout->addLayout(row({drawHeading, drawPicker, drawNumbers, nullptr, checkButton, countButton}));
    layout->addSpacing(6);
    layout->addWidget(resultHeading);
    layout->addWidget(resultBox, 4);
    layout->addLayout(row({nullptr, copyButton, closeButton}));
    resize(780, 640);
    setMinimumSize(600, 460);

    enableControls(true);
    if (m_draws.empty()) {
        drawNumbers->setText(QStringLiteral("历史中没有开奖号码，只能计算注数"));
    } else {
        drawPicker->addItem(wholeHistory);
        for (const prize::IssuedDraw& draw : m_draws)
            drawPicker->addItem(draw.issue);
        drawPicker->setCurrentIndex(1);
    }
    showPickedDraw();
    connect(drawPicker, &QComboBox::currentIndexChanged, this, [this] { showPickedDraw(); });

    betsBox->setText(bets);
    setEscapeButton(closeButton);
    onClick(checkButton, [this] { checkBets(); });
    onClick(countButton, [this] { countBets(); });
    onClick(copyButton, [this] { copyResult(); });
    onClick(closeButton, [this] { reject(); });
}

void PrizeCheckWindow::showPickedDraw()
{
    const int picked = drawPicker->currentIndex();
    if (picked == 0)
        drawNumbers->setText(QStringLiteral("共") + textrules::decimal(qint64(m_draws.size())) + QStringLiteral("期"));
    else if (picked > 0)
        drawNumbers->setText(QStringLiteral("开奖号码：") + prize::drawNumbers(m_draws[size_t(picked - 1)].draw));
}

void PrizeCheckWindow::enableControls(bool idle)
{
    checkButton->setEnabled(idle && !m_draws.empty());
    drawPicker->setEnabled(idle && !m_draws.empty());
    countButton->setEnabled(idle);
}

template <class Report>
void PrizeCheckWindow::run(Report report)
{
    if (m_running)
        return;
    const std::vector<prize::BetLine> lines = prize::readBets(betsBox->Text());
    if (lines.empty()) {
        m_context.messages.show(MessageIcon::Critical, QStringLiteral("请先填写投注号码！"));
        betsBox->setFocus();
        return;
    }
    // The draw picked stays as it was when the run began.
    m_running = true;
    enableControls(false);
    resultBox->setText(report(lines, [] { QCoreApplication::processEvents(); }));
    enableControls(true);
    m_running = false;
}

void PrizeCheckWindow::checkBets()
{
    const int picked = drawPicker->currentIndex();
    if (picked < 0 || m_draws.empty())
        return;
    run([&](const std::vector<prize::BetLine>& lines, const prize::LetEventsRun& letEventsRun) {
        if (picked == 0)
            return prize::historyReport(lines, m_draws, letEventsRun);
        return prize::drawReport(lines, m_draws[size_t(picked - 1)].draw, letEventsRun);
    });
}

void PrizeCheckWindow::countBets()
{
    run([](const std::vector<prize::BetLine>& lines, const prize::LetEventsRun&) {
        return prize::countReport(lines);
    });
}

void PrizeCheckWindow::copyResult()
{
    resultoutput::copyAll(m_context.clipboard, resultBox->Text());
}
