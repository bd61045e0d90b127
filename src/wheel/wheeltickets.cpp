#include "wheel/wheeltickets.h"

#include "platform/textrules.h"
#include "wheel/quickwheel.h"
#include "wheel/wheeltable.h"

#include <algorithm>
#include <bit>

namespace wheel {

namespace {

constexpr int YuanPerTicket = 2;

} // namespace

std::vector<Ticket> ticketsOf(const Design& design, const std::vector<int>& reds)
{
    std::vector<Ticket> tickets;
    tickets.reserve(design.blocks.size());
    for (Block block : design.blocks) {
        Ticket ticket{};
        int at = 0;
        for (; block && at < TicketReds; block &= block - 1) {
            const int point = std::countr_zero(block);
            ticket[std::size_t(at++)] = point < int(reds.size()) ? reds[std::size_t(point)] : 0;
        }
        tickets.push_back(ticket);
    }
    std::sort(tickets.begin(), tickets.end());
    return tickets;
}

bool ticketsKeep(const std::vector<int>& reds, Guarantee guarantee, const std::vector<Ticket>& tickets)
{
    if (reds.empty() || reds.size() > 32 || !std::is_sorted(reds.begin(), reds.end()) ||
        std::adjacent_find(reds.begin(), reds.end()) != reds.end())
        return false;
    std::vector<Block> blocks;
    blocks.reserve(tickets.size());
    for (const Ticket& ticket : tickets) {
        Block block = 0;
        for (int red : ticket) {
            const auto found = std::lower_bound(reds.begin(), reds.end(), red);
            if (found == reds.end() || *found != red)
                return false;
            block |= Block(1) << (found - reds.begin());
        }
        blocks.push_back(block); // a red twice leaves fewer than six points, which the check refuses
    }
    return guaranteeHolds(int(reds.size()), guarantee, blocks);
}

std::optional<Wheel> makeWheel(const std::vector<int>& reds, Guarantee guarantee)
{
    return makeWheel(reds, guarantee, shippedDesign(int(reds.size()), guarantee));
}

std::optional<Wheel> makeWheel(const std::vector<int>& reds, Guarantee guarantee,
                               const std::optional<Design>& tableDesign)
{
    const int points = int(reds.size());
    if (points < FewestPoints || points > MostPoints)
        return std::nullopt;
    if (tableDesign && tableDesign->points == points && tableDesign->guarantee == guarantee) {
        Wheel wheel{ticketsOf(*tableDesign, reds), true};
        if (ticketsKeep(reds, guarantee, wheel.tickets))
            return wheel;
    }
    Wheel wheel{ticketsOf(greedyDesign(points, guarantee), reds), false};
    if (ticketsKeep(reds, guarantee, wheel.tickets))
        return wheel;
    return std::nullopt;
}

namespace {

const QString& numberText(int number)
{
    static const std::array<QString, 34> written = [] {
        std::array<QString, 34> texts;
        for (int i = 0; i < int(texts.size()); ++i)
            texts[std::size_t(i)] = textrules::format00(i);
        return texts;
    }();
    static const QString other;
    return number >= 0 && number < int(written.size()) ? written[std::size_t(number)] : other;
}

QString redsText(const Ticket& ticket)
{
    QString reds;
    reds.reserve(17);
    for (int i = 0; i < TicketReds; ++i) {
        if (i > 0)
            reds += QLatin1Char(' ');
        reds += numberText(ticket[std::size_t(i)]);
    }
    return reds;
}

} // namespace

QString ticketLine(const Ticket& ticket, int blue)
{
    return blue == 0 ? redsText(ticket) : redsText(ticket) + QStringLiteral("  ") + numberText(blue);
}

QString ticketLines(const std::vector<Ticket>& tickets, const std::vector<int>& blues)
{
    const QString lineEnd = QStringLiteral("\r\n");
    QString text;
    text.reserve(qsizetype(tickets.size()) * qsizetype(std::max<std::size_t>(1, blues.size())) * 23);
    for (const Ticket& ticket : tickets) {
        const QString reds = redsText(ticket);
        if (blues.empty())
            text += reds + lineEnd;
        for (int blue : blues)
            text += reds + QStringLiteral("  ") + numberText(blue) + lineEnd;
    }
    return text;
}

QString costText(qsizetype tickets, qsizetype blues)
{
    const qsizetype total = tickets * std::max<qsizetype>(1, blues);
    const QString cost = QStringLiteral("共 %1 注，金额 %2 元").arg(total).arg(total * YuanPerTicket);
    if (blues == 0)
        return cost;
    return QStringLiteral("%1 组红球 × %2 个蓝球，").arg(tickets).arg(blues) + cost;
}

} // namespace wheel
