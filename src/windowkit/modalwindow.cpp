#include "windowkit/modalwindow.h"

#include "windowkit/appcontext.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPushButton>

ModalWindow::ModalWindow(AppContext& context, QWidget* parent) : QDialog(parent), m_context(context)
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void ModalWindow::done(int result)
{
    if (!m_unloaded) {
        m_unloaded = true;
        Form_Unload();
    }
    QDialog::done(result);
}

void ModalWindow::onClick(QAbstractButton* button, std::function<void()> routine)
{
    connect(button, &QAbstractButton::clicked, this,
            [this, routine = std::move(routine)] { m_context.runEvent(routine); });
}

void ModalWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        if (m_escapeButton && m_escapeButton->isEnabled() && m_escapeButton->isVisible())
            m_escapeButton->click();
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}
