#include "forecast/textfiles.h"

#include "platform/services.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace textfiles {

namespace {

const QString filter = QStringLiteral("*.txt");
const QString defaultSuffix = QStringLiteral("txt");

QString decode(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8.decode(bytes);
    if (!utf8.hasError())
        return text;
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
