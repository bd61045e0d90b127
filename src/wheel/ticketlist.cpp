#include "wheel/ticketlist.h"

void TicketList::setTickets(std::vector<wheel::Ticket> tickets, std::vector<int> blues)
{
    beginResetModel();
    m_tickets = std::move(tickets);
    m_blues = std::move(blues);
    endResetModel();
}

int TicketList::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid())
        return 0;
    return int(m_tickets.size() * std::max<std::size_t>(1, m_blues.size()));
}

QVariant TicketList::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rowCount())
        return {};
    const std::size_t row = std::size_t(index.row());
    if (m_blues.empty())
        return wheel::ticketLine(m_tickets[row], 0);
    return wheel::ticketLine(m_tickets[row / m_blues.size()], m_blues[row % m_blues.size()]);
}

QString TicketList::text() const
{
    return wheel::ticketLines(m_tickets, m_blues);
}
