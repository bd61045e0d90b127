#include "online/pagetext.h"

#include <QRegularExpression>
#include <QStringDecoder>

namespace pagetext {

namespace {

// A declared name as the decoder knows it. Browsers read the labels
// "gb2312" and "gbk" with the GB18030 decoder, which reads both exactly and
// more besides; ICU's GBK table differs from it in a few places.
QByteArray decoderName(QByteArray charset)
{
    charset = charset.trimmed().toLower();
    if (charset == "gb2312" || charset == "gbk" || charset == "x-gbk" || charset == "gb_2312-80")
        return "GB18030";
    return charset;
}

// Decodes with the first of the charsets that the decoder knows; UTF-8 when
// it knows none. A byte-order mark wins over every declaration.
QString decodeWith(const QByteArray& body, std::initializer_list<QByteArray> charsets)
{
    if (const std::optional<QStringConverter::Encoding> bom = QStringConverter::encodingForData(body)) {
        QStringDecoder decoder(*bom);
        return decoder.decode(body);
    }
    for (const QByteArray& charset : charsets) {
        if (charset.isEmpty())
            continue;
        QStringDecoder decoder(decoderName(charset).constData());
        if (decoder.isValid())
            return decoder.decode(body);
    }
    return QString::fromUtf8(body);
}

} // namespace

QByteArray charsetOfContentType(const QByteArray& contentType)
{
    static const QRegularExpression charset(QStringLiteral("charset\\s*=\\s*[\"']?([^\"';\\s]+)"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = charset.match(QString::fromLatin1(contentType));
    return match.hasMatch() ? match.captured(1).toLatin1() : QByteArray();
}

QByteArray charsetOfMeta(const QByteArray& page)
{
    static const QRegularExpression meta(QStringLiteral("<meta\\b[^>]*>"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression direct(QStringLiteral("\\bcharset\\s*=\\s*[\"']?([^\"'\\s/>;]+)"),
                                           QRegularExpression::CaseInsensitiveOption);
    // Browsers look for the declaration in the first 1024 bytes only.
    const QString head = QString::fromLatin1(page.left(1024));
    for (QRegularExpressionMatchIterator tags = meta.globalMatch(head); tags.hasNext();) {
        const QRegularExpressionMatch declared = direct.match(tags.next().captured(0));
        if (declared.hasMatch())
            return declared.captured(1).toLatin1();
    }
    return {};
}

QString decodePage(const QByteArray& body, const QByteArray& contentType)
{
    return decodeWith(body, {charsetOfContentType(contentType), charsetOfMeta(body), QByteArrayLiteral("GB18030")});
}

QString decodeText(const QByteArray& body, const QByteArray& contentType)
{
    return decodeWith(body, {charsetOfContentType(contentType)});
}

} // namespace pagetext
