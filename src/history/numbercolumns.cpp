#include "history/numbercolumns.h"

#include "history/drawhistory.h"
#include "platform/runtimefailure.h"
#include "platform/textrules.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace numbercolumns {

void split(DrawHistory& history)
{
    static const QString blank = QStringLiteral(" ");
    constexpr int firstNumberSubItem = 2;
    constexpr int tokensUsed = 8;

    DrawHistory::Batch batch(history);
    for (int row = 0; row < history.count(); ++row) {
        const QStringList tokens = textrules::split(history.subItem(row, DrawHistory::GroupSubItem), blank);
        for (int token = 0; token < tokensUsed; ++token) {
            if (token >= tokens.size())
                throw RuntimeError(RuntimeError::SubscriptOutOfRange);
            history.setSubItem(row, firstNumberSubItem + token, tokens[token]);
        }
    }
}

void clearScratch(DrawHistory& history)
{
    DrawHistory::Batch batch(history);
    for (int row = 0; row < history.count(); ++row)
        history.setSubItem(row, DrawHistory::ScratchSubItem, QString());
}

} // namespace numbercolumns

std::vector<qint32>& 排序6个数字(std::vector<qint32>& numbers)
{
    constexpr size_t sorted = 6;
    if (numbers.size() < sorted)
        throw RuntimeError(RuntimeError::SubscriptOutOfRange);

    std::array<std::pair<QString, qint32>, sorted> entries;
    for (size_t i = 0; i < sorted; ++i)
        entries[i] = {textrules::format00(double(numbers[i])), numbers[i]};
    std::stable_sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return QString::compare(a.first, b.first, Qt::CaseInsensitive) < 0;
    });
    for (size_t i = 0; i < sorted; ++i)
        numbers[i] = entries[i].second;
    return numbers;
}
