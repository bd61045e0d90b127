#pragma once

// The explanation texts of the download control, one slot for each HTTP
// status from 0 to 600. A status that the table does not name has the empty
// text.

#include <QString>

#include <array>

using StatusTextTable = std::array<QString, 601>;

void FillStatusTexts(StatusTextTable& texts);
