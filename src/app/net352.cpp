#include "app/net352.h"

#include "app/net35.h"
#include "platform/appinfo.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"
#include "windowkit/programstyle.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>

namespace {

constexpr int sideWidth = 290; // the column beside the picture

} // namespace

Net352::Net352(AppContext& context, QWidget* parent) : ModalWindow(context, parent)
{
    setObjectName(QStringLiteral("Net352"));
    setWindowTitle(QStringLiteral("软件运行权限不足，或者缺少微软组件"));

    Label1 = controls::label(this, "Label1", QString());
    QFont heading = programstyle::ui(14);
    heading.setBold(true);
    Label1->setFont(heading);
    Label5 = controls::label(this, "Label5", QString());
    Picture1 = new QLabel(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setPixmap(QPixmap(QStringLiteral(":/net352.png")));
    Picture1->setFixedSize(377, 480);
    Picture1->setFrameShape(QFrame::NoFrame);
    Label4 = controls::label(this, "Label4", QString());
    Label2 = controls::label(
        this, "Label2", QStringLiteral("如果按照以上设置，仍然出现此弹出框，建议您下载并安装.NET Framework 3.5 中文版。"));
    Label3 = controls::label(this, "Label3", QStringLiteral("(以下下载链接来自微软网站)"));
    Command3 = controls::button(this, "Command3", QStringLiteral("点击进入微软.NET Framework 3.5 下载网页"));
    onClick(Command3, [this] { Command3_Click(); });
    // No button closes the window: Escape does nothing, the frame closes it.

    m_context.runEvent([this] { Form_Load(); });

    // Label5 spans the window; the picture it speaks of stands below it, and
    // the system line and the download beside the picture.
    const int fullWidth = Picture1->width() + 16 + sideWidth;
    controls::fitWrapped(Label5, fullWidth);
    auto* side = new QVBoxLayout;
    side->setSpacing(10);
    for (QLabel* label : {Label4, Label2, Label3}) {
        controls::fitWrapped(label, sideWidth);
        side->addWidget(label);
    }
    Command3->setMinimumHeight(30);
    side->addWidget(Command3);
    side->addStretch();
    auto* lower = new QHBoxLayout;
    lower->setSpacing(16);
    lower->addWidget(Picture1, 0, Qt::AlignTop);
    lower->addLayout(side);
    auto* window = new QVBoxLayout(this);
    window->setSizeConstraint(QLayout::SetFixedSize);
    window->setContentsMargins(16, 12, 16, 14);
    window->setSpacing(8);
    window->addWidget(Label1);
    window->addWidget(Label5);
    window->addLayout(lower);
}

void Net352::Form_Load()
{
    setWindowTitle(windowTitle() + QLatin1Char('-') + appinfo::title());
    Label1->setText(appinfo::exeName());
    Label4->setText(systemLine(m_context));
    Label5->setText(QStringLiteral("请找到安装本软件的目标文件夹，选中") + appinfo::exeName()
                    + QStringLiteral(".exe文件，右击鼠标，弹出菜单，点击“属性”，弹出属性窗口，切换到“兼容性”页标签，"
                                     "按照以下图片设置，点击确定。"));
}

void Net352::Command3_Click()
{
    openDotNetDownloadPage(m_context, *this);
}
