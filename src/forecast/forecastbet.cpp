#include "forecast/forecastbet.h"

#include "forecast/betrule.h"
#include "platform/textrules.h"
#include "settings/settingsstore.h"
#include "statistics/undrawnreds.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QString section = QStringLiteral("ForecastBet");
const QString betNumbersKey = QStringLiteral("过滤");
const QString countKey = QStringLiteral("投注个数");

} // namespace

ForecastBet::ForecastBet(AppContext& context, DrawHistory& history, QWidget* parent)
    : ForecastWindow(context, history, section,
                     betrule::hooks([this](QStringView reds) { return 符合投注条件判断(reds); }), parent),
      m_rows(history)
{
    setWindowTitle(QStringLiteral("投注式预测"));
    Label5 = controls::label(
        this, "Label5",
        QStringLiteral("投注式预测：针对设置好了取值范围的6个球，同时要满足指定个数的投注号码，进行预测。"));
    Label6 = controls::label(this, "Label6", QStringLiteral("投注红色球的号码："));
    Text3 = makeText3();
    Label7 = controls::label(this, "Label7", QStringLiteral("[多个号码用空格隔开.格式类似于：02 08 26]"));
    Label2 = controls::label(this, "Label2", QStringLiteral("要求出现投注号码的个数："));
    Combo1 = controls::pickList(this, "Combo1", betrule::counts());
    Command6 = controls::button(this, "Command6", QStringLiteral("最近5期未出现号码"));
    Command6->setAutoDefault(false);

    const int top = layoutRule(Label5, Label6, Text3, Label7);
    Label2->setGeometry(16, top, Label2->sizeHint().width(), 28);
    Combo1->setGeometry(Label2->geometry().right() + 6, top + 1, 90, 26);
    Command6->setGeometry(Combo1->geometry().right() + 20, top, Command6->sizeHint().width() + 16, 28);
    layoutCommon(top + 28 + 12);

    onClick(Command1, [this] { Command1_Click(); });
    onClick(Command6, [this] { Command6_Click(); });
    Form_Load();
}

void ForecastBet::Form_Load()
{
    loadCommon();
    Text3->setText(m_context.settings.read(section, betNumbersKey, QString()));
    // A stored index that names no entry, which only a hand-edited store can
    // hold, gives the first entry.
    const std::optional<qint32> index =
        textrules::toWhole(m_context.settings.read(section, countKey, QStringLiteral("0")));
    Combo1->setCurrentIndex(index && *index >= 0 && *index < Combo1->count() ? *index : 0);
    fillHistory();
}

void ForecastBet::Form_Unload()
{
    unloadCommon();
    m_context.settings.write(section, betNumbersKey, Text3->text());
    m_context.settings.write(section, countKey, textrules::decimal(Combo1->currentIndex()));
}

bool ForecastBet::判断TEXT3的合法性()
{
    const betrule::Text3Check check = betrule::判断TEXT3的合法性(Combo1->currentText(), Text3->text());
    BetMin = check.BetMin;
    BetMax = check.BetMax;
    Text3->setText(check.text);
    return check.valid;
}

bool ForecastBet::符合投注条件判断(QStringView line) const
{
    return betrule::符合投注条件判断(Text3->text(), BetMin, BetMax, line);
}

bool ForecastBet::ruleIsValid()
{
    // Text3 is rewritten also when the check fails; the focus stays.
    if (!判断TEXT3的合法性()) {
        m_context.messages.show(MessageIcon::Critical,
                                QStringLiteral("要求出现投注号码的个数不合理，或者投注号码不规范！\r\n请重新选择和设置！"));
        return false;
    }
    return true;
}

ForecastHooks ForecastBet::ruleAsItStands()
{
    return betrule::hooks([bets = betrule::BetNumbers(Text3->text()), betMin = BetMin,
                           betMax = BetMax](QStringView reds) { return betrule::符合投注条件判断(bets, betMin, betMax, reds); });
}

void ForecastBet::Command1_Click()
{
    if (!ruleIsValid())
        return;
    if (!groupCountIsValid())
        return;
    run();
}

void ForecastBet::Command6_Click()
{
    // Fewer than five rows is a failure that nothing here handles.
    Text3->setText(undrawnreds::最近未出现号码(m_rows, 5));
}
