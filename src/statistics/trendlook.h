#pragma once

// How the trend chart looks: its sizes, faces and colours, and the painting
// of a cell and of a column caption. The view's delegate and header paint
// through this, and so does the picture of the whole chart, so that a saved
// picture looks as the window does.

#include "statistics/trendmodel.h"

#include <QColor>
#include <QFont>
#include <QHash>
#include <QStaticText>
#include <QList>
#include <QRgb>

#include <array>

class QModelIndex;
class QPainter;
class QRect;
class QRectF;

struct TrendLook {
    // Sizes from the window's face; the issue column is wide enough for
    // `widestIssue` and the footer's captions.
    static TrendLook forFont(const QFont& font, const QString& widestIssue);

    int columnWidth(int column) const { return widths[size_t(column)]; }
    int chartWidth() const;

    // One cell of the chart or of its footer, as its model describes it.
    void paintCell(QPainter& painter, const QRect& cell, const QModelIndex& index, bool selected) const;
    // The caption of a column: in a group of columns the group's caption
    // stands over the column's own, across `groupArea` and cut to `cell`.
    void paintCaption(QPainter& painter, const QRect& cell, const QRect& groupArea, int column,
                      const QString& caption) const;

    // The colours of a picture of the chart: every colour the chart paints
    // and the shades between those that meet at the edge of a text or a ball.
    QList<QRgb> pictureColours() const;

    QFont font;
    QFont boldFont;
    QFont ballFont;
    QFont smallFont; // for omissions too long for their cell
    int ballDiameter = 0;
    int rowHeight = 0;
    int captionHeight = 0;
    std::array<int, trendcolumns::count> widths{};

private:
    enum Face { PlainFace, BoldFace, BallFace, SmallFace, faceCount };
    const QFont& faceOf(Face face) const;
    // Texts laid out once for each face they are drawn in: a chart repeats
    // a few hundred texts thousands of times.
    const QStaticText& laidOut(Face face, const QString& text) const;
    void drawCentred(QPainter& painter, const QRectF& area, Face face, const QString& text) const;

    mutable std::array<QHash<QString, QStaticText>, faceCount> m_laidOut;
};
