#pragma once

// The rows of a history as "issue | group" texts, so that a test compares a
// whole list at once and a failure shows every row.

#include "history/drawhistory.h"

#include <QStringList>

inline QStringList rowsOf(const DrawHistory& history)
{
    QStringList rows;
    for (int row = 0; row < history.count(); ++row)
        rows.append(history.text(row) + QStringLiteral(" | ") + history.subItem(row, DrawHistory::GroupSubItem));
    return rows;
}
