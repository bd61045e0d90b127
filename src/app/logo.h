#pragma once

// The splash window: the product's picture, borderless, centred, shown while
// the main window loads. It gives way to the main window at the first tick of
// Timer1 or at a click on the picture, and stays loaded, hidden, until the
// update check has ended: it hosts that check.

#include <QWidget>

class AppContext;
class QLabel;
class QTimer;
class uXMLHTTP;

class Logo : public QWidget {
    Q_OBJECT

public:
    Logo(AppContext& context, QWidget& mainForm);

    void Form_Load();
    void Form_Resize();
    void Image1_Click();
    void Timer1_Timer();

    // True once the update check has ended, or when there is no check to wait for.
    bool updateCheckEnded() const;

    QLabel* Image1;
    QTimer* Timer1;
    uXMLHTTP* uXMLHTTP2; // carries the update check

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    AppContext& m_context;
    QWidget& m_mainForm;
    bool m_updateCheckSent = false;
    int m_requestsEnded = 0; // web requests that have ended
};
