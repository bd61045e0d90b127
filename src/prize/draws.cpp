#include "prize/draws.h"

#include "history/drawhistory.h"
#include "platform/textrules.h"

#include <algorithm>
#include <optional>

namespace prize {

namespace {

std::optional<Draw> drawOf(const QString& group)
{
    const QStringList tokens = textrules::split(textrules::trim(group), QStringLiteral(" "));
    if (tokens.size() < 7)
        return std::nullopt;
    Draw draw;
    for (int i = 0; i < 6; ++i) {
        const std::optional<qint32> red = textrules::toWhole(tokens[i]);
        if (!red || *red < 1 || *red > 33 || (draw.reds >> *red) & 1u)
            return std::nullopt;
        draw.reds |= RedMask(1) << *red;
    }
    const std::optional<qint32> blue = textrules::toWhole(tokens[6]);
    if (!blue || *blue < 1 || *blue > 16)
        return std::nullopt;
    draw.blue = *blue;
    return draw;
}

} // namespace

std::vector<IssuedDraw> checkableDraws(const DrawHistory& history)
{
    struct Found {
        std::optional<qint32> number;
        IssuedDraw draw;
    };
    std::vector<Found> found;
    found.reserve(size_t(history.count()));
    for (int row = 0; row < history.count(); ++row) {
        if (const std::optional<Draw> draw = drawOf(history.subItem(row, DrawHistory::GroupSubItem)))
            found.push_back({textrules::toWhole(history.text(row)), {history.text(row), *draw}});
    }
    std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
        if (a.number && b.number)
            return *a.number > *b.number;
        return a.number.has_value() && !b.number.has_value();
    });
    std::vector<IssuedDraw> draws;
    draws.reserve(found.size());
    for (Found& each : found)
        draws.push_back(std::move(each.draw));
    return draws;
}

QString drawNumbers(const Draw& draw)
{
    QString text;
    for (int red = 1; red <= 33; ++red) {
        if ((draw.reds >> red) & 1u)
            text += textrules::format00(double(red)) + QLatin1Char(' ');
    }
    return text + QStringLiteral("+ ") + textrules::format00(double(draw.blue));
}

} // namespace prize
