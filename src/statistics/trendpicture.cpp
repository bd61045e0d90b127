#include "statistics/trendpicture.h"

#include "statistics/trendlook.h"

#include <QAbstractItemModel>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>

#include <QHash>

#include <limits>

namespace trendpicture {

namespace {

constexpr int stripRows = 200;

// One row of a model at the top of the strip, its cells left to right.
void paintRow(QPainter& painter, const TrendLook& look, const QAbstractItemModel& model, int row, int top)
{
    int left = 0;
    for (int column = 0; column < model.columnCount(); ++column) {
        const int width = look.columnWidth(column);
        look.paintCell(painter, QRect(left, top, width, look.rowHeight), model.index(row, column), false);
        left += width;
    }
}

void paintCaptions(QPainter& painter, const TrendLook& look, const QAbstractItemModel& model)
{
    std::array<int, trendcolumns::count + 1> lefts{};
    for (int column = 0; column < trendcolumns::count; ++column)
        lefts[size_t(column + 1)] = lefts[size_t(column)] + look.columnWidth(column);
    for (int column = 0; column < trendcolumns::count; ++column) {
        const trendcolumns::Group group = trendcolumns::groupOf(column);
        const int groupLeft = lefts[size_t(trendcolumns::firstColumnOf(group))];
        const int groupRight = lefts[size_t(trendcolumns::lastColumnOf(group) + 1)];
        look.paintCaption(painter, QRect(lefts[size_t(column)], 0, look.columnWidth(column), look.captionHeight),
                          QRect(groupLeft, 0, groupRight - groupLeft, look.captionHeight), column,
                          model.headerData(column, Qt::Horizontal).toString());
    }
}

// Maps the lines of a painted strip to the colours of the picture, each
// pixel to the nearest colour of the table. The chart's pixels come in long
// runs of one colour and in few colours, so a pixel like the one before it
// costs a compare and the others mostly a look-up.
class ColourMap {
public:
    explicit ColourMap(const QList<QRgb>& colours) : m_colours(colours) {}

    void map(const QImage& strip, int lines, QImage& picture, int top)
    {
        const int width = strip.width();
        for (int line = 0; line < lines; ++line) {
            const auto* pixels = reinterpret_cast<const QRgb*>(strip.constScanLine(line));
            uchar* indices = picture.scanLine(top + line);
            QRgb before = pixels[0] + 1;
            uchar index = 0;
            for (int x = 0; x < width; ++x) {
                if (pixels[x] != before) {
                    before = pixels[x];
                    index = indexOf(before);
                }
                indices[x] = index;
            }
        }
    }

private:
    uchar indexOf(QRgb pixel)
    {
        const auto known = m_known.constFind(pixel);
        if (known != m_known.constEnd())
            return *known;
        int nearest = 0;
        int nearestDistance = std::numeric_limits<int>::max();
        for (int i = 0; i < m_colours.size(); ++i) {
            const int red = qRed(pixel) - qRed(m_colours[i]);
            const int green = qGreen(pixel) - qGreen(m_colours[i]);
            const int blue = qBlue(pixel) - qBlue(m_colours[i]);
            const int distance = red * red + green * green + blue * blue;
            if (distance < nearestDistance) {
                nearestDistance = distance;
                nearest = i;
            }
        }
        m_known.insert(pixel, uchar(nearest));
        return uchar(nearest);
    }

    const QList<QRgb>& m_colours;
    QHash<QRgb, uchar> m_known;
};

} // namespace

QImage paint(const TrendLook& look, const QAbstractItemModel& chart, const QAbstractItemModel& footer,
             const std::function<void()>& pending)
{
    const int width = look.chartWidth();
    const int chartRows = chart.rowCount();
    const int footerRows = footer.rowCount();
    // The chart's rows, then a gap as high as a row, then the footer.
    const qint64 height = look.captionHeight + qint64(chartRows + 1 + footerRows) * look.rowHeight;
    if (height > std::numeric_limits<int>::max() / std::max(width, 1))
        return {};
    QImage picture(width, int(height), QImage::Format_Indexed8);
    if (picture.isNull())
        return {};
    const QList<QRgb> colours = look.pictureColours();
    picture.setColorTable(colours);
    ColourMap colourMap(colours);

    // The rows of the picture, each one a row of one of the models, or the
    // captions (-1) or the gap (-2).
    struct Line {
        const QAbstractItemModel* model;
        int row;
    };
    std::vector<Line> lines;
    lines.reserve(size_t(chartRows + footerRows + 2));
    lines.push_back({nullptr, -1});
    for (int row = 0; row < chartRows; ++row)
        lines.push_back({&chart, row});
    lines.push_back({nullptr, -2});
    for (int row = 0; row < footerRows; ++row)
        lines.push_back({&footer, row});

    QImage strip(width, stripRows * look.rowHeight + look.captionHeight, QImage::Format_RGB32);
    if (strip.isNull())
        return {};
    int top = 0; // in the picture
    for (size_t first = 0; first < lines.size(); first += stripRows) {
        const size_t last = std::min(lines.size(), first + stripRows);
        strip.fill(Qt::white);
        int y = 0;
        {
            QPainter painter(&strip);
            for (size_t i = first; i < last; ++i) {
                if (lines[i].model) {
                    paintRow(painter, look, *lines[i].model, lines[i].row, y);
                    y += look.rowHeight;
                } else if (lines[i].row == -1) {
                    paintCaptions(painter, look, chart);
                    y += look.captionHeight;
                } else {
                    y += look.rowHeight;
                }
            }
        }
        colourMap.map(strip, y, picture, top);
        top += y;
        if (pending)
            pending();
    }
    return picture;
}

bool savePng(const QImage& picture, const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QImageWriter writer(&file, "png");
    // The chart is mostly plain areas, which zlib's fastest level packs nearly
    // as well as its default and in half the time; Qt takes quality 80 for it.
    writer.setQuality(80);
    if (!writer.write(picture)) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

} // namespace trendpicture
