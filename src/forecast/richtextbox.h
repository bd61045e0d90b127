#pragma once

// The result box of the forecast and filter windows. Its Text keeps CR LF
// line ends, as the rest of the program reads and writes them, while the
// document inside knows only paragraphs; SelStart, SelLength and SelText
// count in that text, a line break being two characters.

#include "forecast/textholder.h"

#include <QPlainTextEdit>

class RichTextBox : public QPlainTextEdit, public TextHolder {
    Q_OBJECT

public:
    explicit RichTextBox(QWidget* parent = nullptr);

    // The text with CR LF between the lines.
    QString Text() const override;
    // CR LF, a lone CR and a lone LF each become a line break. The caret
    // goes to the start.
    void setText(const QString& text) override;

    // The caret, or the start of the selection, in characters of Text.
    qsizetype SelStart() const;
    // Puts the caret there, clamped to the text, and selects nothing.
    void setSelStart(qsizetype start);
    qsizetype SelLength() const;
    void setSelLength(qsizetype length);
    QString SelText() const;
    // Replaces the selection (at the caret: inserts) and leaves the caret
    // behind the new text.
    void setSelText(const QString& text);

private:
    // Positions in Text and in the document differ by one for every line
    // break before them.
    qsizetype textPosition(int documentPosition) const;
    int documentPosition(qsizetype textPosition) const;
};
