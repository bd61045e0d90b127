#pragma once

// What the buttons beside the boxes of the filter windows do to their box:
// clear it, select all of it, import a text file into it, save it. And the
// way those windows place a box: its caption above, its three buttons below.

#include <QRect>

#include <array>

class FileDialogs;
class QLabel;
class QPushButton;
class QWidget;
class RichTextBox;

namespace textboxcommands {

void clear(RichTextBox& box);
// SelStart 0, SelLength the length of the text, and the focus to the box.
void selectAll(RichTextBox& box);
// Replaces the box's text with the file's; a cancelled dialog or a file that
// can't be read leaves the box as it is.
void importInto(FileDialogs& dialogs, RichTextBox& box);
void saveFrom(FileDialogs& dialogs, const RichTextBox& box);

// A box of the filter windows, in their font, named as the window names it.
RichTextBox* box(QWidget* parent, const char* name);
// The caption over `boxArea`, the box in it and the three buttons in a row below.
void placeColumn(QLabel* caption, RichTextBox* box, const std::array<QPushButton*, 3>& buttons, const QRect& boxArea);

} // namespace textboxcommands
