#pragma once

// What every window that the main window opens is: a dialog shown modally,
// made for one use and unloaded when it closes. Its unload routine runs once,
// however it closes (a button, the frame, Escape). Escape presses the window's
// cancel or close button where it has one and does nothing elsewhere, so that
// a stray key never throws away what a window holds.

#include <QDialog>

#include <functional>

class AppContext;
class QAbstractButton;
class QKeyEvent;
class QPushButton;

class ModalWindow : public QDialog {
    Q_OBJECT

public:
    ModalWindow(AppContext& context, QWidget* parent);

    void done(int result) override;

protected:
    // What the window keeps when it closes: runs once, before it goes.
    virtual void Form_Unload() {}

    // Clicks on the button run `routine` as an event routine: a failure that
    // it does not handle itself ends the program with the run-time failure
    // report.
    void onClick(QAbstractButton* button, std::function<void()> routine);

    // The button that cancels or closes the window; Escape presses it.
    void setEscapeButton(QPushButton* button) { m_escapeButton = button; }

    void keyPressEvent(QKeyEvent* event) override;

    AppContext& m_context;

private:
    QPushButton* m_escapeButton = nullptr;
    bool m_unloaded = false;
};
