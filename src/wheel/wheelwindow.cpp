#include "wheel/wheelwindow.h"

#include "forecast/resultoutput.h"
#include "forecast/textfiles.h"
#include "platform/textrules.h"
#include "prize/prizecheckwindow.h"
#include "wheel/wheelinput.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"
#include "windowkit/programstyle.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int TogglesPerRow = 11;
constexpr int ToggleWidth = 36;
constexpr int ToggleHeight = 28;

QString noteOf(wheel::Guarantee guarantee)
{
    return QStringLiteral("开奖的 6 个红球中有 %1 个在所选红球里时，至少有一注中其中 %2 个。")
        .arg(guarantee.drawn)
        .arg(guarantee.held);
}

} // namespace

WheelWindow::WheelWindow(AppContext& context, const DrawHistory& history, QWidget* parent)
    : ModalWindow(context, parent),
      redCaption(controls::label(this, "redCaption", QStringLiteral("红球："))),
      redBox(new QLineEdit(this)),
      blueCaption(controls::label(this, "blueCaption", QStringLiteral("蓝球："))),
      blueBox(new QLineEdit(this)),
      guaranteeCaption(controls::label(this, "guaranteeCaption", QStringLiteral("保证："))),
      guaranteeList(controls::pickList(this, "guaranteeList")),
      guaranteeNote(controls::label(this, "guaranteeNote", QString())),
      makeButton(controls::button(this, "makeButton", QStringLiteral("生成"))),
      resultCaption(controls::label(this, "resultCaption", QStringLiteral("旋转矩阵号码："))),
      resultList(new QListView(this)),
      countLabel(controls::label(this, "countLabel", QString())),
      verifiedLabel(controls::label(this, "verifiedLabel", QString())),
      resultButtons(new QHBoxLayout),
      copyButton(controls::button(this, "copyButton", QStringLiteral("复制全部"))),
      saveButton(controls::button(this, "saveButton", QStringLiteral("另存为"))),
      prizeCheckButton(controls::button(this, "prizeCheckButton", QStringLiteral("中奖查询"))),
      closeButton(controls::button(this, "closeButton", QStringLiteral("关闭"))),
      m_history(history)
{
    setObjectName(QStringLiteral("WheelWindow"));
    setWindowTitle(QStringLiteral("旋转矩阵"));

    redBox->setObjectName(QStringLiteral("redBox"));
    redBox->setPlaceholderText(QStringLiteral("7 到 20 个红球，例如 01 05 08 12 17 23 30"));
    blueBox->setObjectName(QStringLiteral("blueBox"));
    blueBox->setPlaceholderText(QStringLiteral("可不填；每注红球配每个所选蓝球各一注"));
    for (const wheel::Guarantee& guarantee : wheel::guarantees())
        guaranteeList->addItem(wheel::guaranteeName(guarantee));
    guaranteeList->setCurrentIndex(3); // 中5保4, the usual choice
    guaranteeNote->setWordWrap(true);
    resultList->setObjectName(QStringLiteral("resultList"));
    resultList->setModel(&tickets);
    resultList->setFont(programstyle::serif(12));
    resultList->setUniformItemSizes(true);
    resultList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    resultList->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verifiedLabel->setStyleSheet(QStringLiteral("color: #007000;"));
    for (QPushButton* button : {makeButton, copyButton, saveButton, prizeCheckButton, closeButton})
        button->setAutoDefault(false);
    setEscapeButton(closeButton);

    auto* toggles = new QGridLayout;
    toggles->setSpacing(4);
    for (int number = 1; number <= wheel::HighestRed; ++number) {
        QPushButton* toggle = controls::button(this, "redToggle", textrules::format00(number));
        toggle->setObjectName(QStringLiteral("redToggle%1").arg(number));
        toggle->setCheckable(true);
        toggle->setAutoDefault(false);
        toggle->setFocusPolicy(Qt::TabFocus);
        toggle->setFixedSize(ToggleWidth, ToggleHeight);
        toggle->setStyleSheet(QStringLiteral("QPushButton:checked { background: #D42020; color: white; "
                                             "border: 1px solid #901010; border-radius: 3px; }"));
        toggles->addWidget(toggle, (number - 1) / TogglesPerRow, (number - 1) % TogglesPerRow);
        redToggles[std::size_t(number - 1)] = toggle;
        connect(toggle, &QPushButton::clicked, this, [this] { redToggled(); });
    }
    toggles->setColumnStretch(TogglesPerRow, 1);

    auto* guaranteeRow = new QHBoxLayout;
    guaranteeRow->addWidget(guaranteeCaption);
    guaranteeRow->addWidget(guaranteeList);
    guaranteeRow->addWidget(guaranteeNote, 1);
    guaranteeRow->addWidget(makeButton);
    makeButton->setMinimumWidth(96);

    resultButtons->addWidget(copyButton);
    resultButtons->addWidget(saveButton);
    resultButtons->addWidget(prizeCheckButton);
    resultButtons->addStretch(1);
    resultButtons->addWidget(closeButton);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 12, 16, 12);
    layout->addWidget(redCaption);
    layout->addWidget(redBox);
    layout->addLayout(toggles);
    layout->addSpacing(6);
    layout->addWidget(blueCaption);
    layout->addWidget(blueBox);
    layout->addSpacing(6);
    layout->addLayout(guaranteeRow);
    layout->addSpacing(6);
    layout->addWidget(resultCaption);
    layout->addWidget(resultList, 1);
    layout->addWidget(countLabel);
    layout->addWidget(verifiedLabel);
    layout->addLayout(resultButtons);
    resize(560, 680);

    connect(redBox, &QLineEdit::textEdited, this, [this] { redBoxEdited(); });
    connect(guaranteeList, &QComboBox::currentIndexChanged, this, [this] { showGuaranteeNote(); });
    showGuaranteeNote();
    onClick(makeButton, [this] { makeButton_Click(); });
    onClick(copyButton, [this] { copyButton_Click(); });
    onClick(saveButton, [this] { saveButton_Click(); });
    onClick(prizeCheckButton, [this] { prizeCheckButton_Click(); });
    onClick(closeButton, [this] { close(); });
}

void WheelWindow::redBoxEdited()
{
    const std::vector<int> named = wheel::numbersNamed(redBox->text(), wheel::HighestRed);
    for (int number = 1; number <= wheel::HighestRed; ++number) {
        redToggles[std::size_t(number - 1)]->setChecked(std::binary_search(named.begin(), named.end(), number));
    }
}

void WheelWindow::redToggled()
{
    std::vector<int> chosen;
    for (int number = 1; number <= wheel::HighestRed; ++number) {
        if (redToggles[std::size_t(number - 1)]->isChecked())
            chosen.push_back(number);
    }
    redBox->setText(wheel::numbersText(chosen));
}

void WheelWindow::showGuaranteeNote()
{
    const auto guarantee = wheel::guaranteeNamed(guaranteeList->currentText());
    guaranteeNote->setText(guarantee ? noteOf(*guarantee) : QString());
}

void WheelWindow::refuse(QLineEdit* box, const QString& text)
{
    m_context.messages.show(MessageIcon::Critical, text);
    box->setFocus();
}

void WheelWindow::makeButton_Click()
{
    const wheel::ChosenNumbers reds = wheel::readReds(redBox->text());
    if (!reds.taken()) {
        refuse(redBox, reds.refusal);
        return;
    }
    const wheel::ChosenNumbers blues = wheel::readBlues(blueBox->text());
    if (!blues.taken()) {
        refuse(blueBox, blues.refusal);
        return;
    }
    const auto guarantee = wheel::guaranteeNamed(guaranteeList->currentText());
    if (!guarantee)
        return;
    const std::optional<wheel::Wheel> made = wheel::makeWheel(reds.numbers, *guarantee);
    if (!made) {
        m_context.messages.show(MessageIcon::Critical,
                                QStringLiteral("无法为这些红球生成“%1”的旋转矩阵。").arg(wheel::guaranteeName(*guarantee)));
        return;
    }
    // The boxes show the choice the tickets were made from, in order.
    redBox->setText(wheel::numbersText(reds.numbers));
    redBoxEdited();
    blueBox->setText(wheel::numbersText(blues.numbers));
    countLabel->setText(QStringLiteral("%1 个红球，%2：").arg(reds.numbers.size()).arg(wheel::guaranteeName(*guarantee)) +
                        wheel::costText(qsizetype(made->tickets.size()), qsizetype(blues.numbers.size())));
    tickets.setTickets(made->tickets, blues.numbers);
    verifiedLabel->setText(QStringLiteral("已验证：保证成立"));
}

void WheelWindow::copyButton_Click()
{
    resultoutput::copyAll(m_context.clipboard, tickets.text());
}

void WheelWindow::saveButton_Click()
{
    textfiles::saveText(m_context.fileDialogs, tickets.text());
}

void WheelWindow::prizeCheckButton_Click()
{
    PrizeCheckWindow window(m_context, m_history, tickets.text(), this);
    window.exec();
}
