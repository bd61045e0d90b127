#include "history/historyfile.h"

#include "history/drawhistory.h"
#include "platform/textrules.h"

#include <QDir>
#include <QFile>
#include <QStringView>

namespace historyfile {

namespace {

const QString fieldSeparator = QStringLiteral("*=*");

void readLine(const QString& line, DrawHistory& history)
{
    const QStringList fields = textrules::split(line, fieldSeparator);
    if (fields.size() < 3)
        return;
    const QString issue = textrules::trim(fields[0]);
    if (issue.isEmpty())
        return;
    // A repeated issue number: adding fails, and the line has no further effect.
    if (!history.add(DrawHistory::keyOf(issue), issue))
        return;
    history.setSubItem(history.count() - 1, DrawHistory::GroupSubItem, textrules::trim(fields[1]));
}

} // namespace

QString pathIn(const QString& programFolder)
{
    return QDir(programFolder).filePath(fileName);
}

void read(const QString& path, DrawHistory& history)
{
    QFile file(path);
    if (!file.exists())
        return;
    if (!file.open(QIODevice::ReadOnly))
        return; // an unreadable file adds nothing
    const QString contents = QString::fromLocal8Bit(file.readAll());

    DrawHistory::Batch batch(history);
    // Lines end in CR LF as written; a lone LF or CR ends one as well, so a file
    // that another editor saved still reads line by line.
    qsizetype start = 0;
    const qsizetype size = contents.size();
    while (start < size) {
        qsizetype end = start;
        while (end < size && contents[end] != QLatin1Char('\r') && contents[end] != QLatin1Char('\n'))
            ++end;
        readLine(contents.mid(start, end - start), history);
        if (end < size && contents[end] == QLatin1Char('\r') && end + 1 < size
            && contents[end + 1] == QLatin1Char('\n'))
            ++end;
        start = end + 1;
    }
}

void write(const QString& path, const DrawHistory& history)
{
    static const QString lineEnd = QStringLiteral("\r\n");
    QString contents;
    if (history.count() == 0) {
        contents = lineEnd;
    } else {
        contents.reserve(qsizetype(history.count()) * 40);
        for (int row = 0; row < history.count(); ++row) {
            contents += history.text(row);
            contents += fieldSeparator;
            contents += history.subItem(row, DrawHistory::GroupSubItem);
            contents += fieldSeparator;
            contents += history.subItem(row, 2);
            contents += lineEnd;
        }
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return; // nothing is written and nothing is reported
    file.write(contents.toLocal8Bit());
}

} // namespace historyfile
