#pragma once

// The reds and blues a player chooses for a wheel, as typed into the boxes of
// the wheel window: numbers separated by blanks, commas, 、 or semicolons,
// with one or two digits ("7" or "07"); full-width digits and signs count as
// their plain forms. A refusal says what is wrong in words the player knows.

#include <QString>

#include <vector>

namespace wheel {

constexpr int HighestRed = 33;
constexpr int HighestBlue = 16;

struct ChosenNumbers {
    std::vector<int> numbers; // ascending, distinct
    QString refusal;          // empty when the choice is taken

    bool taken() const { return refusal.isEmpty(); }
};

// 7 to 20 distinct reds of 1 to 33.
ChosenNumbers readReds(const QString& text);
// 0 to 16 distinct blues of 1 to 16.
ChosenNumbers readBlues(const QString& text);

// The numbers of 1..highest that the text names, whatever else it holds:
// what the toggle buttons show while the player types.
std::vector<int> numbersNamed(const QString& text, int highest);
// The numbers ascending, two digits each, one blank between: "01 05 09".
QString numbersText(const std::vector<int>& numbers);

} // namespace wheel
