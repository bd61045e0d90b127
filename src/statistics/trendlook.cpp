#include "statistics/trendlook.h"

#include <QFontMetrics>
#include <QModelIndex>
#include <QPainter>
#include <QStaticText>

#include <algorithm>
#include <numeric>

namespace {

constexpr int longestText = 32;

const QColor paper(0xff, 0xff, 0xff);
const QColor middleZonePaper(0xfd, 0xf1, 0xef);
const QColor bluePaper(0xee, 0xf4, 0xfd);
const QColor labelPaper(0xf4, 0xf4, 0xf4);
const QColor selectedPaper(0xff, 0xef, 0xb0);
const QColor captionPaper(0xe9, 0xe9, 0xe9);
const QColor grid(0xdd, 0xdd, 0xdd);
const QColor groupLine(0x80, 0x80, 0x80);
const QColor ink(0x22, 0x22, 0x22);
const QColor omissionInk(0xa8, 0xa8, 0xa8);
const QColor redBall(0xe0, 0x2f, 0x26);
const QColor blueBall(0x1f, 0x63, 0xc8);
const QColor redCaption(0xb0, 0x1e, 0x16);
const QColor blueCaption(0x17, 0x4a, 0x9a);

QColor paperOf(int column)
{
    switch (trendcolumns::groupOf(column)) {
    case trendcolumns::IssueGroup:
        return labelPaper;
    case trendcolumns::RedZone2:
        return middleZonePaper;
    case trendcolumns::BlueGroup:
        return bluePaper;
    default:
        return paper;
    }
}

QColor ballColourOf(int column)
{
    return trendcolumns::blueOf(column) ? blueBall : redBall;
}

// The grid on the right and at the bottom of a cell, a heavier line where a
// group of columns ends.
void paintBorders(QPainter& painter, const QRect& cell, int column)
{
    painter.fillRect(QRect(cell.left(), cell.bottom(), cell.width(), 1), grid);
    if (trendcolumns::endsGroup(column))
        painter.fillRect(QRect(cell.right() - 1, cell.top(), 2, cell.height()), groupLine);
    else
        painter.fillRect(QRect(cell.right(), cell.top(), 1, cell.height()), grid);
}

} // namespace

TrendLook TrendLook::forFont(const QFont& font, const QString& widestIssue)
{
    TrendLook look;
    look.font = font;
    look.boldFont = font;
    look.boldFont.setBold(true);
    look.ballFont = look.boldFont;
    look.smallFont = font;
    look.smallFont.setPointSizeF(font.pointSizeF() * 0.8);

    const QFontMetrics metrics(font);
    const QFontMetrics ballMetrics(look.ballFont);
    look.ballDiameter = std::max(ballMetrics.height() + 2, ballMetrics.horizontalAdvance(QStringLiteral("00")) + 6);
    look.rowHeight = look.ballDiameter + 3;
    look.captionHeight = 2 * (metrics.height() + 4);

    const int padding = 9;
    int issueWidth = metrics.horizontalAdvance(QStringLiteral("期号"));
    issueWidth = std::max(issueWidth, metrics.horizontalAdvance(widestIssue));
    for (int line = 0; line < trendchart::footerLineCount; ++line)
        issueWidth = std::max(issueWidth, QFontMetrics(look.boldFont).horizontalAdvance(trendchart::footerLineName(line)));
    look.widths[trendcolumns::issue] = std::min(issueWidth, 20 * metrics.averageCharWidth()) + padding;

    const int numberWidth = look.ballDiameter + 3;
    for (int column = trendcolumns::firstRed; column < trendcolumns::firstIndicator; ++column)
        look.widths[size_t(column)] = numberWidth;
    // The widest value of each indicator: a three-digit sum, "2:2:2".
    for (int indicator = 0; indicator < trendchart::indicatorCount; ++indicator) {
        const QString widest = indicator == trendchart::ZoneRatio ? QStringLiteral("0:0:0")
                               : indicator == trendchart::OddEven || indicator == trendchart::BigSmall
                                   ? QStringLiteral("0:0")
                                   : QStringLiteral("000");
        const int width = std::max(metrics.horizontalAdvance(trendchart::indicatorName(indicator)),
                                   metrics.horizontalAdvance(widest));
        look.widths[size_t(trendcolumns::firstIndicator + indicator)] = width + padding;
    }
    return look;
}

QList<QRgb> TrendLook::pictureColours() const
{
    const std::pair<QColor, QColor> edges[] = {
        {ink, paper},           {ink, middleZonePaper},         {ink, bluePaper},          {ink, labelPaper},
        {ink, captionPaper},    {omissionInk, paper},           {omissionInk, middleZonePaper},
        {omissionInk, bluePaper}, {redBall, paper},            {redBall, middleZonePaper}, {blueBall, bluePaper},
        {paper, redBall},       {paper, blueBall},              {redCaption, captionPaper}, {blueCaption, captionPaper},
    };
    const int steps = 16;
    QList<QRgb> colours{grid.rgb(), grid.darker(115).rgb(), groupLine.rgb()};
    for (const auto& [front, back] : edges) {
        for (int step = 0; step < steps; ++step) {
            const auto mix = [step](int a, int b) { return (a * step + b * (steps - 1 - step)) / (steps - 1); };
            const QRgb shade = qRgb(mix(front.red(), back.red()), mix(front.green(), back.green()),
                                    mix(front.blue(), back.blue()));
            if (!colours.contains(shade))
                colours.append(shade);
        }
    }
    return colours;
}

int TrendLook::chartWidth() const
{
    return std::accumulate(widths.begin(), widths.end(), 0);
}

const QStaticText& TrendLook::laidOut(Face face, const QString& text) const
{
    QHash<QString, QStaticText>& texts = m_laidOut[size_t(face)];
    auto found = texts.find(text);
    if (found == texts.end()) {
        found = texts.insert(text, QStaticText(text));
        found->setTextFormat(Qt::PlainText);
        found->prepare(QTransform(), faceOf(face));
    }
    return *found;
}

const QFont& TrendLook::faceOf(Face face) const
{
    switch (face) {
    case BallFace:
        return ballFont;
    case BoldFace:
        return boldFont;
    case SmallFace:
        return smallFont;
    default:
        return font;
    }
}

void TrendLook::drawCentred(QPainter& painter, const QRectF& area, Face face, const QString& text) const
{
    const QStaticText& laid = laidOut(face, text);
    const QSizeF size = laid.size();
    painter.setFont(faceOf(face));
    painter.drawStaticText(QPointF(area.center().x() - size.width() / 2, area.center().y() - size.height() / 2), laid);
}

void TrendLook::paintCell(QPainter& painter, const QRect& cell, const QModelIndex& index, bool selected) const
{
    const int column = index.column();
    const auto kind = TrendCell(index.data(trendroles::CellKind).toInt());
    // No cell has room for more than a few characters; a mistyped issue of
    // any length is cut before it is laid out.
    const QString text = index.data(Qt::DisplayRole).toString().left(longestText);
    painter.fillRect(cell, selected ? selectedPaper : paperOf(column));

    painter.save();
    const bool picked = kind == TrendCell::Pick && index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    if (kind == TrendCell::Ball || kind == TrendCell::Pick) {
        const QColor colour = ballColourOf(column);
        const QRectF ball(cell.left() + (cell.width() - ballDiameter) / 2.0,
                          cell.top() + (cell.height() - 1 - ballDiameter) / 2.0, ballDiameter, ballDiameter);
        const bool filled = kind == TrendCell::Ball || picked;
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(filled ? QPen(Qt::NoPen) : QPen(colour, 1.2));
        painter.setBrush(filled ? colour : paper);
        painter.drawEllipse(ball.adjusted(0.5, 0.5, -0.5, -0.5));
        painter.setPen(filled ? paper : colour);
        drawCentred(painter, ball, BallFace, text);
    } else if (!text.isEmpty()) {
        const bool faint = kind == TrendCell::Omission;
        painter.setPen(faint ? omissionInk : ink);
        Face face = kind == TrendCell::LineCaption ? BoldFace : PlainFace;
        // A long omission in a narrow cell gets a smaller face.
        if (faint && laidOut(face, text).size().width() > cell.width() - 2)
            face = SmallFace;
        drawCentred(painter, QRectF(cell).adjusted(1, 0, -2, -1), face, text);
    }
    painter.restore();
    paintBorders(painter, cell, column);
}

void TrendLook::paintCaption(QPainter& painter, const QRect& cell, const QRect& groupArea, int column,
                             const QString& caption) const
{
    const trendcolumns::Group group = trendcolumns::groupOf(column);
    const QString groupCaption = trendcolumns::groupCaption(group);
    const QColor captionInk = group == trendcolumns::BlueGroup ? blueCaption
                              : trendcolumns::redOf(column)   ? redCaption
                                                              : ink;
    painter.save();
    painter.setClipRect(cell);
    painter.fillRect(cell, captionPaper);
    painter.setPen(captionInk);
    if (groupCaption.isEmpty()) {
        painter.setFont(font);
        painter.drawText(cell.adjusted(1, 0, -2, -1), Qt::AlignCenter, caption);
    } else {
        // The group's caption over the upper half of all its columns, the
        // column's own below, a line between them.
        const int half = cell.height() / 2;
        painter.setFont(boldFont);
        painter.drawText(QRect(groupArea.left(), cell.top(), groupArea.width(), half), Qt::AlignCenter, groupCaption);
        painter.fillRect(QRect(cell.left(), cell.top() + half, cell.width(), 1), grid.darker(115));
        painter.setFont(font);
        painter.drawText(QRect(cell.left(), cell.top() + half, cell.width() - 1, cell.height() - half - 1),
                         Qt::AlignCenter, caption);
    }
    painter.fillRect(QRect(cell.left(), cell.bottom(), cell.width(), 1), groupLine);
    if (trendcolumns::endsGroup(column))
        painter.fillRect(QRect(cell.right() - 1, cell.top(), 2, cell.height()), groupLine);
    else
        painter.fillRect(QRect(cell.right(), cell.top(), 1, cell.height()), grid.darker(115));
    painter.restore();
}
