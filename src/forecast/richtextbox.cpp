#include "forecast/richtextbox.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

const QString lineEnd = QStringLiteral("\r\n");

// The document's own line break.
QString toDocumentText(const QString& text)
{
    QString plain = text;
    plain.replace(lineEnd, QStringLiteral("\n"));
    plain.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return plain;
}

} // namespace

RichTextBox::RichTextBox(QWidget* parent) : QPlainTextEdit(parent)
{
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setUndoRedoEnabled(true);
}

QString RichTextBox::Text() const
{
    QString text = toPlainText();
    text.replace(QLatin1Char('\n'), lineEnd);
    return text;
}

void RichTextBox::setText(const QString& text)
{
    setPlainText(toDocumentText(text));
}

qsizetype RichTextBox::textPosition(int documentPosition) const
{
    const QTextBlock block = document()->findBlock(documentPosition);
    // Each block before this one ends in a break that Text writes as two characters.
    return qsizetype(documentPosition) + (block.isValid() ? block.blockNumber() : 0);
}

int RichTextBox::documentPosition(qsizetype textPosition) const
{
    if (textPosition <= 0)
        return 0;
    qsizetype remaining = textPosition;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const qsizetype length = block.length() - 1; // without the break
        if (remaining <= length || !block.next().isValid())
            return block.position() + int(std::min(remaining, length));
        remaining -= length + lineEnd.size();
        if (remaining < 0)
            return block.position() + int(length); // between CR and LF: at the break
    }
    return 0;
}

qsizetype RichTextBox::SelStart() const
{
    return textPosition(textCursor().selectionStart());
}

void RichTextBox::setSelStart(qsizetype start)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(documentPosition(start));
    setTextCursor(cursor);
}

qsizetype RichTextBox::SelLength() const
{
    const QTextCursor cursor = textCursor();
    return textPosition(cursor.selectionEnd()) - textPosition(cursor.selectionStart());
}

void RichTextBox::setSelLength(qsizetype length)
{
    QTextCursor cursor = textCursor();
    const qsizetype start = textPosition(cursor.selectionStart());
    cursor.setPosition(cursor.selectionStart());
    cursor.setPosition(documentPosition(start + std::max<qsizetype>(length, 0)), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

QString RichTextBox::SelText() const
{
    QString text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, lineEnd);
    return text;
}

void RichTextBox::setSelText(const QString& text)
{
    QTextCursor cursor = textCursor();
    cursor.insertText(toDocumentText(text));
    setTextCursor(cursor);
}
