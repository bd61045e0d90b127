#include "app/net35.h"

#include "platform/appinfo.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int textWidth = 440;

} // namespace

void openDotNetDownloadPage(AppContext& context, QDialog& window)
{
    context.launcher.openAddress(context.addresses.microsoftSite
                                 + QStringLiteral("/zh-CN/download/details.aspx?id=21"));
    QCoreApplication::processEvents();
    window.accept();
}

QString systemLine(const AppContext& context)
{
    return QStringLiteral("您的操作系统是：") + context.OsDescription;
}

Net35::Net35(AppContext& context, QWidget* parent) : ModalWindow(context, parent)
{
    setObjectName(QStringLiteral("Net35"));
    setWindowTitle(QStringLiteral("缺少微软组件"));

    Label5 = controls::label(
        this, "Label5", QStringLiteral("如果您看到本窗口，说明您的操作系统缺少微软.NET Framework组件，本软件可能不能正常运行。"));
    Label4 = controls::label(this, "Label4", QString());
    Label2 = controls::label(this, "Label2", QStringLiteral("建议您下载并安装.NET Framework 3.5 中文版。"));
    Label3 = controls::label(this, "Label3", QStringLiteral("(以下下载链接来自微软网站)"));
    Command3 = controls::button(this, "Command3", QStringLiteral("点击进入微软.NET Framework 3.5 下载网页"));
    onClick(Command3, [this] { Command3_Click(); });
    // No button closes the window: Escape does nothing, the frame closes it.

    m_context.runEvent([this] { Form_Load(); });

    auto* window = new QVBoxLayout(this);
    window->setSizeConstraint(QLayout::SetFixedSize);
    window->setContentsMargins(16, 14, 16, 14);
    window->setSpacing(8);
    for (QLabel* label : {Label5, Label4, Label2, Label3}) {
        controls::fitWrapped(label, textWidth);
        window->addWidget(label);
    }
    window->addSpacing(4);
    Command3->setMinimumHeight(30);
    window->addWidget(Command3, 0, Qt::AlignHCenter);
}

void Net35::Form_Load()
{
    setWindowTitle(windowTitle() + QLatin1Char('-') + appinfo::title());
    Label4->setText(systemLine(m_context));
}

void Net35::Command3_Click()
{
    openDotNetDownloadPage(m_context, *this);
}
