#include "windowkit/screencentre.h"

#include <QEvent>
#include <QMargins>
#include <QScreen>
#include <QWidget>

namespace screencentre {

namespace {

QMargins frameOf(const QWidget* window)
{
    const QRect frame = window->frameGeometry();
    const QRect client = window->geometry();
    return {client.left() - frame.left(), client.top() - frame.top(), frame.right() - client.right(),
            frame.bottom() - client.bottom()};
}

// Places the window's frame, as far as it is known, in the middle of the
// screen's free area.
void centre(QWidget* window, const QMargins& frame)
{
    const QScreen* screen = window->screen();
    if (!screen)
        return;
    QRect framed(QPoint(), window->size().grownBy(frame));
    framed.moveCenter(screen->availableGeometry().center());
    window->move(framed.topLeft()); // move() places the frame's top left corner
}

class Centring final : public QObject {
public:
    explicit Centring(QWidget* window) : QObject(window), m_window(window) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched != m_window)
            return false;
        if (event->type() == QEvent::Show && !m_shown) {
            m_shown = true;
            m_placedWith = frameOf(m_window);
            centre(m_window, m_placedWith);
        } else if (m_shown && (event->type() == QEvent::Move || event->type() == QEvent::Paint)) {
            // The frame is known by the first paint of the framed window.
            const QMargins frame = frameOf(m_window);
            if (frame != m_placedWith) {
                centre(m_window, frame);
                deleteLater(); // placed for good
            }
        }
        return false;
    }

private:
    QWidget* m_window;
    QMargins m_placedWith;
    bool m_shown = false;
};

} // namespace

void onFirstShow(QWidget* window)
{
    window->installEventFilter(new Centring(window));
}

} // namespace screencentre
