#include "forecast/resultoutput.h"

#include "platform/services.h"
#include "platform/textrules.h"

#include <QDir>
#include <QSaveFile>
#include <QTemporaryFile>

namespace resultoutput {

void copyAll(ClipboardService& clipboard, const QString& boxText)
{
    // A box of nothing but blanks and line breaks has nothing to copy, and
    // the clipboard keeps what it held.
    QString withoutBreaks = boxText;
    withoutBreaks.remove(QLatin1Char('\r')).remove(QLatin1Char('\n'));
    if (textrules::trim(withoutBreaks).isEmpty())
        return;
    clipboard.clear();
    clipboard.setText(boxText);
}

QByteArray printDocument(const QString& boxText)
{
    const QString text = boxText + QStringLiteral("\r\n");
    QByteArray body;
    body.reserve(text.size() + text.size() / 4 + 16);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c == u'\r' || c == u'\n') {
            // CR LF, a lone CR and a lone LF each end a paragraph.
            if (c == u'\r' && i + 1 < text.size() && text[i + 1] == QLatin1Char('\n'))
                ++i;
            body += "\\par\r\n";
        } else if (c == u'\\' || c == u'{' || c == u'}') {
            body += '\\';
            body += char(c);
        } else if (c == u'\t') {
            body += "\\tab ";
        } else if (c >= 0x20 && c < 0x80) {
            body += char(c);
        } else if (c >= 0x80) {
            // Beyond ASCII as a signed 16-bit code with a "?" for readers
            // that don't know it; a surrogate pair gives two codes.
            body += "\\u" + QByteArray::number(qint16(c)) + '?';
        }
        // Other control characters have no place in the document.
    }
    return QByteArray("{\\rtf1\\ansi\\ansicpg936\\deff0\\uc1"
                      "{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\r\n"
                      "\\pard\\plain\\f0 ")
           + body + "}\r\n";
}

QString documentPath(const QString& programFolder)
{
    return QDir(programFolder).filePath(documentName);
}

void exportToWord(DesktopLauncher& launcher, const QString& programFolder, const QString& boxText)
{
    const QByteArray document = printDocument(boxText);
    // Each step that fails is passed over in silence; what it leaves behind:
    // - the document can't be made or written whole in the program folder:
    //   an older "PrintTemp.doc" stays as it was (a half-written copy is
    //   thrown away), and the new document opens all the same, unsaved as it
    //   were, from a file of its own in the temporary folder;
    // - not even that file can be written: nothing opens;
    // - the default application doesn't start: the document stays where it
    //   was written, and the user is not told.
    QSaveFile saved(documentPath(programFolder));
    if (saved.open(QIODevice::WriteOnly) && saved.write(document) == document.size() && saved.commit()) {
        launcher.openDocument(saved.fileName());
        return;
    }
    QTemporaryFile unsaved(QDir(QDir::tempPath()).filePath(QStringLiteral("PrintTemp-XXXXXX.doc")));
    unsaved.setAutoRemove(false); // the word processor reads it after this routine has ended
    if (!unsaved.open() || unsaved.write(document) != document.size() || !unsaved.flush())
        return;
    unsaved.close();
    launcher.openDocument(unsaved.fileName());
}

} // namespace resultoutput
