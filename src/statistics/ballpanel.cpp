#include "statistics/ballpanel.h"

#include "platform/textrules.h"
#include "settings/ballranges.h"
#include "settings/settingsstore.h"

#include <optional>

namespace ballpanel {

namespace {

// The balls that have a range, by the panel's text.
std::optional<int> rangedBall(const QString& ball)
{
    for (int n = 1; n <= BallRanges::RedBalls; ++n) {
        if (ball == textrules::decimal(n))
            return n;
    }
    return std::nullopt;
}

} // namespace

QString minKey(const QString& ball)
{
    return QStringLiteral("球") + ball + QStringLiteral("取值MIN");
}

QString maxKey(const QString& ball)
{
    return QStringLiteral("球") + ball + QStringLiteral("取值MAX");
}

int storedPosition(const QString& stored, int otherwise, int entries, int current)
{
    int wanted = otherwise;
    if (textrules::isNumeric(stored)) {
        const std::optional<qint32> value = textrules::toWhole(stored);
        if (!value)
            return current; // too large for a whole number: the statement fails
        wanted = *value;
    }
    if (wanted < -1 || wanted >= entries)
        return current; // the list has no such position: setting it fails
    return wanted;
}

ListPositions loadPositions(const SettingsStore& store, const QString& ball, int minEntries, int maxEntries,
                            ListPositions current)
{
    ListPositions positions;
    const QString storedMin = store.read(section, minKey(ball), QStringLiteral("0"));
    positions.minIndex = storedPosition(storedMin, 0, minEntries, current.minIndex);
    const QString lastEntry = textrules::decimal(maxEntries - 1);
    const QString storedMax = store.read(section, maxKey(ball), lastEntry);
    positions.maxIndex = storedPosition(storedMax, maxEntries - 1, maxEntries, current.maxIndex);
    return positions;
}

void confirm(SettingsStore& store, BallRanges& ranges, const QString& ball, int minIndex, const QString& minText,
             int maxIndex, const QString& maxText)
{
    store.write(section, minKey(ball), textrules::decimal(minIndex));
    store.write(section, maxKey(ball), textrules::decimal(maxIndex));
    const std::optional<int> n = rangedBall(ball);
    if (!n)
        return; // balls 7 and 8 have no range
    // An entry that isn't a number (no entry selected) leaves the value as it was.
    if (const std::optional<qint32> value = textrules::toWhole(minText))
        ranges.min(*n) = *value;
    if (const std::optional<qint32> value = textrules::toWhole(maxText))
        ranges.max(*n) = *value;
}

} // namespace ballpanel
