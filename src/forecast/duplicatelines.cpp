#include "forecast/duplicatelines.h"

#include "forecast/textholder.h"
#include "platform/services.h"
#include "platform/textrules.h"

#include <algorithm>

namespace {

const QString lineEnd = QStringLiteral("\r\n");

constexpr int redLayout = 17;
constexpr int blueLayout = 21;

} // namespace

float AverageLineLength(const QString& text)
{
    qint64 total = 0;
    qint64 lines = 0;
    for (const QString& line : textrules::split(text, lineEnd)) {
        const QString trimmed = textrules::trim(line);
        if (!trimmed.isEmpty()) {
            total += trimmed.size();
            ++lines;
        }
    }
    if (lines == 0)
        return 0.0f;
    return static_cast<float>(double(total) / double(lines));
}

QStringList distinctFields(const QStringList& lines, int width)
{
    QStringList fields;
    fields.reserve(lines.size());
    for (const QString& line : lines) {
        const QString field = line.left(width);
        if (!textrules::trim(field).isEmpty())
            fields.append(field);
    }
    std::sort(fields.begin(), fields.end());
    fields.erase(std::unique(fields.begin(), fields.end()), fields.end());
    return fields;
}

void FilterDuplicateLines(TextHolder& box, MessageService& messages)
{
    QString s = box.Text();
    if (s.endsWith(lineEnd))
        s.chop(lineEnd.size());
    // Blank lines inside the text count here; an empty text has no lines.
    const qsizetype before = textrules::split(s, lineEnd).size();

    const float mean = AverageLineLength(s);
    int width = 0;
    if (mean == float(redLayout)) {
        width = redLayout;
    } else if (mean == float(blueLayout)) {
        width = blueLayout;
    } else {
        messages.show(MessageIcon::Critical, QStringLiteral("号码格式不对！请重新预测或者修正！"));
        return;
    }

    // The whole box, the trailing break too: a blank line gives no field.
    QString result;
    for (const QString& value : distinctFields(textrules::split(box.Text(), lineEnd), width)) {
        result += value;
        result += lineEnd;
    }
    if (result.endsWith(lineEnd))
        result.chop(lineEnd.size());

    box.setText(result);
    const qsizetype after = textrules::split(result, lineEnd).size();
    messages.show(MessageIcon::Information, QStringLiteral("过滤重复前：") + textrules::decimal(before)
                                                + QStringLiteral(" 行记录；过滤重复后：") + textrules::decimal(after)
                                                + QStringLiteral(" 行记录。"));
}
