#include "forecast/textfiles.h"

#include "platform/services.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace textfiles {

namespace {

const QString filter = QStringLiteral("*.txt");
const QString defaultSuffix = QStringLiteral("txt");

// How many bytes at the end of `bytes` begin a UTF-8 sequence that they do
// not finish: a lead byte and as many fitting continuation bytes as came
// before the end. 0 when the end is whole or is no such beginning.
qsizetype cutSequenceLength(QByteArrayView bytes)
{
    for (qsizetype back = 1; back <= 3 && back <= bytes.size(); ++back) {
        const auto lead = uchar(bytes[bytes.size() - back]);
        if ((lead & 0xC0) == 0x80)
            continue; // a continuation byte: the lead stands further back
        const int length = lead >= 0xC2 && lead <= 0xDF ? 2 : lead >= 0xE0 && lead <= 0xEF ? 3
                           : lead >= 0xF0 && lead <= 0xF4                            ? 4
                                                                                     : 0;
        if (back >= length)
            return 0;
        if (back >= 2) {
            // The second byte's range narrows after these leads (no overlong
            // forms, no surrogates, nothing beyond U+10FFFF).
            const auto second = uchar(bytes[bytes.size() - back + 1]);
            const uchar low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
            const uchar high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
            if (second < low || second > high)
                return 0;
        }
        return back;
    }
    return 0;
}

// UTF-8, where the end may cut off the last character (a copy or a save that
// was interrupted): it stands as one U+FFFD, so that the damage shows. Any
// other fault makes it an older file in GBK, read as GB18030.
QString decode(const QByteArray& bytes)
{
    const qsizetype cut = cutSequenceLength(bytes);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(QByteArrayView(bytes).first(bytes.size() - cut));
    if (!utf8.hasError()) {
        if (cut > 0)
            text += QChar(QChar::ReplacementCharacter);
        return text;
    }
    QStringDecoder gb18030("GB18030");
    return gb18030.decode(bytes);
}

std::optional<QString> read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return decode(bytes);
}

bool write(const QString& path, const QString& text)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = text.toUtf8();
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

} // namespace

std::optional<QString> importText(FileDialogs& dialogs)
{
    const QString path = dialogs.openFileName(filter, defaultSuffix);
    if (path.isEmpty())
        return std::nullopt;
    return read(path);
}

void saveText(FileDialogs& dialogs, const QString& text)
{
    const QString path = dialogs.saveFileName(filter, defaultSuffix);
    if (!path.isEmpty())
        write(path, text);
}

} // namespace textfiles
