#include "app/logo.h"

#include "online/uxmlhttp.h"
#include "windowkit/appcontext.h"
#include "windowkit/twips.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QPointer>
#include <QScreen>
#include <QTimer>

Logo::Logo(AppContext& context, QWidget& mainForm)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      Image1(new QLabel(this)),
      Timer1(new QTimer(this)),
      uXMLHTTP2(new uXMLHTTP(this)),
      m_context(context),
      m_mainForm(mainForm)
{
    setObjectName(QStringLiteral("Logo"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(twips::size(6540, 6120));

    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setPixmap(QPixmap(QStringLiteral(":/logo.jpg")));
    Image1->adjustSize();
    Image1->installEventFilter(this);

    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(6000);
    connect(Timer1, &QTimer::timeout, this, [this] { Timer1_Timer(); });

    Form_Resize();
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void Logo::Form_Load()
{
    show();
    QCoreApplication::processEvents(); // the splash paints before anything slow runs

    const StartupServices& startup = m_context.startup;
    if (startup.getOSName) {
        const QString width = startup.addressWidth ? startup.addressWidth() : QStringLiteral("32");
        m_context.OsDescription = startup.getOSName() + QLatin1Char('[') + width + QStringLiteral("位]");
    }
    if (startup.setBrowserEmulation)
        startup.setBrowserEmulation(QStringLiteral("IE10"), true);
    if (startup.startUpdateCheck) {
        m_updateCheckSent = true;
        startup.startUpdateCheck(*uXMLHTTP2, [self = QPointer<Logo>(this)] {
            if (self)
                ++self->m_requestsEnded;
        });
    }
    Timer1->start();
}

void Logo::Form_Resize()
{
    // The window takes the picture's size; it stays rectangular.
    Image1->move(0, 0);
    setFixedSize(Image1->size());
}

void Logo::Image1_Click()
{
    // Spares the user the wait; the timer keeps running and unloads the splash later.
    hide();
    m_mainForm.show();
}

void Logo::Timer1_Timer()
{
    if (isVisible())
        hide();
    m_mainForm.show();
    if (updateCheckEnded())
        close();
}

bool Logo::updateCheckEnded() const
{
    return !m_updateCheckSent || m_requestsEnded >= 1;
}

bool Logo::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Image1 && event->type() == QEvent::MouseButtonRelease
        && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton
        && Image1->rect().contains(static_cast<QMouseEvent*>(event)->position().toPoint())) {
        Image1_Click();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
