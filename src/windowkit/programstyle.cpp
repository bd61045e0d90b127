#include "windowkit/programstyle.h"

#include <QApplication>

namespace programstyle {

namespace {

// The first of these families that the machine has, at this size.
QFont face(const QStringList& families, qreal pointSize)
{
    QFont font;
    font.setFamilies(families);
    font.setPointSizeF(pointSize);
    return font;
}

} // namespace

QFont ui(qreal pointSize)
{
    return face({QStringLiteral("宋体"), QStringLiteral("SimSun"), QStringLiteral("Noto Sans CJK SC"),
                 QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("sans-serif")},
                pointSize);
}

QFont serif(qreal pointSize)
{
    return face({QStringLiteral("宋体"), QStringLiteral("SimSun"), QStringLiteral("Noto Serif CJK SC"),
                 QStringLiteral("AR PL UMing CN"), QStringLiteral("serif")},
                pointSize);
}

void applyTo(QApplication& application)
{
    application.setFont(ui());
    // A group's caption stands on its border line near the top, as the
    // controls inside were placed for: they begin a few pixels below it.
    application.setStyleSheet(QStringLiteral(
        "QGroupBox { border: 1px solid #a8a8a8; border-radius: 2px; margin-top: 7px; }"
        "QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left;"
        " left: 7px; top: 0px; padding: 0px 2px; }"));
}

} // namespace programstyle
