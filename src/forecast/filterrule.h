#pragma once

// The rule of the filter forecast: red numbers that the user forbids. The
// window checks the list before a run and refuses a drawn red in the draw.
// Both read the text as the user typed it, each in its own way: the check
// splits it into tokens, the draw rule searches it whole.

#include "forecast/forecastcore.h"

#include <QString>

#include <functional>

struct BallRanges;

namespace filterrule {

// True if every one of the six balls keeps something of its range once the
// forbidden tokens are taken out of the range's text. The removal works on
// characters: "2" takes the digit 2 out of "02", "12", "20" ... and leaves the
// rest of them, so it empties no range; "02" takes out the number 2.
bool 校验过滤号码的合法性(const QString& forbidden, const BallRanges& ranges);

// True if the red number, written with two digits, stands anywhere in the
// text: "2" forbids nothing, "02" forbids 2, and any separator will do.
bool refusesRed(const QString& forbidden, qint32 red);

// The hooks of the filter forecast: every drawn red is put to refusesRed with
// the text as `forbidden` gives it at that moment, before the repeat test.
ForecastHooks hooks(std::function<QString()> forbidden);

} // namespace filterrule
