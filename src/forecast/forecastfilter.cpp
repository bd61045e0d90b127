#include "forecast/forecastfilter.h"

#include "forecast/filterrule.h"
#include "settings/settingsstore.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QString section = QStringLiteral("ForecastFilter");
const QString forbiddenKey = QStringLiteral("过滤");

} // namespace

ForecastFilter::ForecastFilter(AppContext& context, const DrawHistory& history, QWidget* parent)
    // The draw rule reads Text3 afresh for every red, as it stands then.
    : ForecastWindow(context, history, section, filterrule::hooks([this] { return Text3->text(); }), parent)
{
    setWindowTitle(QStringLiteral("过滤式预测"));
    Label5 = controls::label(
        this, "Label5", QStringLiteral("过滤式预测：针对设置好了取值范围的6个球，再过滤掉不需要出现的号码，进行预测。"));
    Label6 = controls::label(this, "Label6", QStringLiteral("红色球不允许出现的号码："));
    Text3 = makeText3();
    Label7 = controls::label(this, "Label7", QStringLiteral("[多个号码用空格隔开.格式类似于：02 08 26]"));
    layoutCommon(layoutRule(Label5, Label6, Text3, Label7));

    onClick(Command1, [this] { Command1_Click(); });
    Form_Load();
}

void ForecastFilter::Form_Load()
{
    loadCommon();
    Text3->setText(m_context.settings.read(section, forbiddenKey, QString()));
    fillHistory();
}

void ForecastFilter::Form_Unload()
{
    unloadCommon();
    m_context.settings.write(section, forbiddenKey, Text3->text());
}

bool ForecastFilter::校验过滤号码的合法性() const
{
    return filterrule::校验过滤号码的合法性(Text3->text(), m_context.ranges);
}

bool ForecastFilter::ruleIsValid()
{
    // The focus stays where it is.
    if (!校验过滤号码的合法性()) {
        m_context.messages.show(MessageIcon::Critical,
                                QStringLiteral("“红色球不允许出现的号码”设置不合理，或者1-6号球设置的范围不合理！"));
        return false;
    }
    return true;
}

ForecastHooks ForecastFilter::ruleAsItStands()
{
    return filterrule::hooks([forbidden = Text3->text()] { return forbidden; });
}

void ForecastFilter::Command1_Click()
{
    // The forbidden numbers come before the group count.
    if (!ruleIsValid())
        return;
    if (!groupCountIsValid())
        return;
    run();
}
