// The wheels the program gives: for every number of reds from 7 to 20 and
// every guarantee the number of tickets, as "wheel_<v>_<m>_<t>: count",
// with "(on the spot)" where the table lacked it. Then the time of the
// largest, C(20,6,5), as the median of several runs:
//   wheel_check_largest_ms   the exhaustive check of the design alone
//   wheel_verify_largest_ms  table look-up, mapping onto the reds, the check
//                            of the tickets as they stand and their text
//   wheel_show_largest_ms    the window: from a press of 生成 until the
//                            tickets stand in the box, checked (offscreen)
//   wheel_show_largest_16_blues_ms  the same with all 16 blues
//   wheel_quick_largest_ms   the wheel made on the spot, had the table lacked it

#include "benchsupport.h"
#include "testapp.h"
#include "wheel/quickwheel.h"
#include "wheel/wheelinput.h"
#include "wheel/wheeltable.h"
#include "wheel/wheeltickets.h"
#include "wheel/wheelwindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QComboBox>

#include <cstdio>
#include <functional>

namespace {

double medianMs(int runs, const std::function<void()>& work)
{
    std::vector<double> ms;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    return benchsupport::median(ms);
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);

    std::vector<int> reds20;
    for (int red = 1; red <= 33 && reds20.size() < 20; red += red % 3 == 0 ? 2 : 1)
        reds20.push_back(red);
    for (int points = wheel::FewestPoints; points <= wheel::MostPoints; ++points) {
        const std::vector<int> reds(reds20.begin(), reds20.begin() + points);
        for (const wheel::Guarantee& guarantee : wheel::guarantees()) {
            const auto made = wheel::makeWheel(reds, guarantee);
            if (!made)
                qFatal("no wheel for v=%d", points);
            std::printf("wheel_%d_%d_%d: %zu%s\n", points, guarantee.drawn, guarantee.held, made->tickets.size(),
                        made->fromTable ? "" : " (on the spot)");
        }
    }

    const wheel::Guarantee largest{5, 5};
    const auto design = wheel::shippedDesign(wheel::MostPoints, largest);
    if (!design)
        qFatal("the table lacks C(20,6,5)");
    const double checkMs = medianMs(21, [&] {
        if (!wheel::guaranteeHolds(*design))
            qFatal("C(20,6,5) fails");
    });
    const double verifyMs = medianMs(21, [&] {
        const auto made = wheel::makeWheel(reds20, largest);
        if (!made || !made->fromTable || wheel::ticketLines(made->tickets, {}).isEmpty())
            qFatal("C(20,6,5) not made");
    });

    TestApp app;
    DrawHistory history;
    WheelWindow window(app.context, history);
    window.show();
    window.redBox->setText(wheel::numbersText(reds20));
    window.guaranteeList->setCurrentText(wheel::guaranteeName(largest));
    const auto showMs = [&](const QString& blues) {
        window.blueBox->setText(blues);
        return medianMs(9, [&] {
            window.tickets.setTickets({}, {});
            window.makeButton->click();
            QApplication::processEvents();
            if (window.tickets.rowCount() < int(design->blocks.size()))
                qFatal("the window shows no wheel");
        });
    };
    const double shownMs = showMs(QString());
    const double shownBluesMs = showMs(QStringLiteral("1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16"));
    const double quickMs = medianMs(3, [&] {
        if (!wheel::guaranteeHolds(wheel::greedyDesign(wheel::MostPoints, largest)))
            qFatal("the quick wheel fails");
    });

    std::printf("wheel_check_largest_ms: %.3f\n", checkMs);
    std::printf("wheel_verify_largest_ms: %.3f\n", verifyMs);
    std::printf("wheel_show_largest_ms: %.2f\n", shownMs);
    std::printf("wheel_show_largest_16_blues_ms: %.2f\n", shownBluesMs);
    std::printf("wheel_quick_largest_ms: %.2f (%zu tickets)\n", quickMs,
                wheel::greedyDesign(wheel::MostPoints, largest).blocks.size());
    return 0;
}
