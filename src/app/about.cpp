#include "app/about.h"

#include "platform/appinfo.h"
#include "platform/sysinfoprogram.h"
#include "platform/textrules.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"
#include "windowkit/programstyle.h"

#include <QBoxLayout>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr int textWidth = 340;
constexpr int buttonWidth = 96;

// A web address shown as a link: a click on it opens it.
QLabel* link(QWidget* parent, const char* name, const QString& address)
{
    QLabel* label = controls::label(parent, name, address);
    label->setStyleSheet(QStringLiteral("color: #0000FF; text-decoration: underline;"));
    label->setCursor(Qt::PointingHandCursor);
    return label;
}

} // namespace

About::About(AppContext& context, QWidget* parent) : ModalWindow(context, parent)
{
    setObjectName(QStringLiteral("About"));

    lsoftname = controls::label(this, "lsoftname", appinfo::title());
    lsoftname->setFont(programstyle::ui(16));
    QFont bold = lsoftname->font();
    bold.setBold(true);
    lsoftname->setFont(bold);
    lblVersion = controls::label(this, "lblVersion", QStringLiteral("版本"));
    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true); // the user reads and copies it
    Text1->setFixedSize(textWidth, 84);

    Command2 = controls::button(this, "Command2", QStringLiteral("确定"));
    Command3 = controls::button(this, "Command3", QStringLiteral("系统信息"));
    Command1 = controls::button(this, "Command1", QStringLiteral("复制信息"));
    for (QPushButton* button : {Command2, Command3, Command1})
        button->setFixedWidth(buttonWidth);
    Command2->setDefault(true);

    auto* rule = new QFrame(this);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    Label7 = controls::label(this, "Label7", QStringLiteral("制作：澄川软件"));
    Label2 = link(this, "Label2", m_context.addresses.makerWebSite);
    Label3 = link(this, "Label3", m_context.addresses.makerSoftwareSite);
    Label2->installEventFilter(this);
    Label3->installEventFilter(this);

    auto* facts = new QVBoxLayout;
    facts->addWidget(lsoftname);
    facts->addWidget(lblVersion);
    facts->addSpacing(4);
    facts->addWidget(Text1);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(Command2);
    buttons->addWidget(Command3);
    buttons->addWidget(Command1);
    buttons->addStretch();
    auto* top = new QHBoxLayout;
    top->addLayout(facts);
    top->addSpacing(12);
    top->addLayout(buttons);
    auto* window = new QVBoxLayout(this);
    window->setSizeConstraint(QLayout::SetFixedSize);
    window->setContentsMargins(14, 12, 14, 12);
    window->addLayout(top);
    window->addSpacing(6);
    window->addWidget(rule);
    window->addWidget(Label7);
    window->addWidget(Label2);
    window->addWidget(Label3);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(100);
    connect(Timer1, &QTimer::timeout, this, [this] { m_context.runEvent([this] { Timer1_Timer(); }); });

    onClick(Command1, [this] { Command1_Click(); });
    onClick(Command2, [this] { Command2_Click(); });
    onClick(Command3, [this] { Command3_Click(); });
    setEscapeButton(Command2); // it only closes the window

    m_context.runEvent([this] { Form_Load(); });
}

void About::Form_Load()
{
    setWindowTitle(QStringLiteral("关于『") + appinfo::title() + QStringLiteral("』 "));
    lsoftname->setText(appinfo::title());
    lblVersion->setText(QStringLiteral("版本 ") + textrules::decimal(appinfo::major) + QLatin1Char('.')
                        + textrules::decimal(appinfo::minor) + QLatin1Char('.') + textrules::decimal(appinfo::revision));
    // The window shows at once with the waiting text; the system's line
    // follows at the first tick.
    Text1->setPlainText(QStringLiteral("正在加载信息，请稍候...\n"));
    Timer1->start();
}

void About::Timer1_Timer()
{
    Timer1->stop();
    Text1->setPlainText(QStringLiteral("操作系统：") + m_context.OsDescription + QLatin1Char('\n'));
}

void About::Command1_Click()
{
    m_context.clipboard.clear();
    m_context.clipboard.setText(Text1->toPlainText());
}

void About::Command2_Click()
{
    accept();
}

void About::Command3_Click()
{
    StartSysInfo();
}

void About::Label2_Click()
{
    m_context.launcher.openAddress(m_context.addresses.makerWebSite);
}

void About::Label3_Click()
{
    m_context.launcher.openAddress(m_context.addresses.makerSoftwareSite);
}

void About::StartSysInfo()
{
    // The Windows tool is found through the registry; here it is the
    // desktop's own tool on the PATH. Not found, or not started: one message.
    const QString program = sysinfoprogram::find();
    if (program.isEmpty() || !m_context.launcher.startProgram(program))
        m_context.messages.show(MessageIcon::None, QStringLiteral("此时系统信息不可用"));
}

bool About::eventFilter(QObject* watched, QEvent* event)
{
    if ((watched == Label2 || watched == Label3) && event->type() == QEvent::MouseButtonRelease
        && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        m_context.runEvent([&] { watched == Label2 ? Label2_Click() : Label3_Click(); });
        return true;
    }
    return ModalWindow::eventFilter(watched, event);
}
