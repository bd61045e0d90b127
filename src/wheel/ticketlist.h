#pragma once

// The tickets of a wheel as a list of result lines, one row a line, made
// when a row is shown: with all 16 blues the largest wheel is some fifty
// thousand lines, which a list shows at once and a text box would lay out
// for a good part of a second.

#include "wheel/wheeltickets.h"

#include <QAbstractListModel>

class TicketList : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setTickets(std::vector<wheel::Ticket> tickets, std::vector<int> blues);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    // All the lines, each ended by CR LF, as they are copied and saved.
    QString text() const;

private:
    std::vector<wheel::Ticket> m_tickets;
    std::vector<int> m_blues;
};
