#pragma once

// Acts on a modal window of one kind once it is shown, from the event loop of
// that window. Where one modal window opens another, the outer one is
// already the active modal window: this waits for the kind asked for.

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

template <class Window>
void whenWindowShown(std::function<void(Window*)> action)
{
    auto* poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, action = std::move(action)] {
        auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
        if (!window || !window->isVisible())
            return;
        poll->stop();
        poll->deleteLater();
        action(window);
    });
    poll->start();
}
