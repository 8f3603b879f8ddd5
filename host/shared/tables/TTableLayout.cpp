#include "tables/TTableLayout.h"

#include "plot/ColorUtils.h"
#include "plot/PainterUtils.h"
#include "plot/TTypesetter.h"
#include "tables/TTableContent.h"

#include <QCoreApplication>
#include <QPainter>
#include <cmath>

namespace {

constexpr double cLeastScale = 0.6;
// of the letters' size
constexpr double cColumnGap = 0.9;
constexpr double cMargin = 0.35;
constexpr double cSampleWidth = 0.9;
constexpr double cSampleGap = 0.4;
constexpr double cLineSpacing = 1.25;
constexpr double cRuleGap = 0.3;
// canvas units
constexpr double cThickRule = 3.0;
constexpr double cThinRule = 1.8;

/// Place of the decimal sign of a number, or of its end.
int signPlace(const QString &text)
{
    const int place = text.indexOf('.');
    const int power = text.indexOf(QChar(0x00D7));
    return place >= 0 ? place : power >= 0 ? power : text.size();
}

} // namespace

TTableLayout::TTableLayout(const TTableContent &content, int fontSize)
    : fContent(content)
    , fFont(Utils::Painter::fontSizeInPixels(Utils::Painter::plotFont(fontSize)))
    , fHeadFont(fFont)
    , fSize(fontSize)
{
    fHeadFont.setBold(true);
    measure();
}

void TTableLayout::measure()
{
    const TTypesetter letters(fFont);
    const TTypesetter head(fHeadFont);
    for (int i = 0; i < fContent.fColumns.size(); ++i) {
        TColumn column;
        double before = 0.0;
        for (const TTableContent::TRow &row : fContent.fRows) {
            const QString &cell = row.fCells.at(i);
            const int place = fContent.fColumns.at(i).fIsNumber ? signPlace(cell) : cell.size();
            before = qMax(before, letters.width(cell.left(place)));
            column.fBehindSign = qMax(column.fBehindSign, letters.width(cell.mid(place)));
        }
        column.fWidth = qMax(head.width(fContent.fColumns.at(i).fTitle), before + column.fBehindSign);
        fColumns.append(column);
    }
    for (const TTableContent::TRow &row : fContent.fRows)
        fHasSamples = fHasSamples || row.fColor.isValid();
}

double TTableLayout::rowHeight() const
{
    return cLineSpacing * TTypesetter(fFont).height();
}

double TTableLayout::headHeight() const
{
    return rowHeight() + 2 * cRuleGap * fSize;
}

QSizeF TTableLayout::size() const
{
    double width = 2 * cMargin * fSize + (fHasSamples ? (cSampleWidth + cSampleGap) * fSize : 0.0);
    for (const TColumn &column : fColumns)
        width += column.fWidth;
    width += qMax(0, fColumns.size() - 1) * cColumnGap * fSize;
    const int lines = qMax(1, fContent.fRows.size() + (fContent.fLeftOut > 0 ? 1 : 0));
    return {std::ceil(width), std::ceil(headHeight() + lines * rowHeight() + 2 * cRuleGap * fSize)};
}

double TTableLayout::scaleIn(const QSizeF &room) const
{
    const QSizeF wanted = size();
    return qBound(cLeastScale, qMin(room.width() / wanted.width(), room.height() / wanted.height()), 1.0);
}

int TTableLayout::rowsIn(const QSizeF &room) const
{
    const double free = room.height() / scaleIn(room) - headHeight() - 2 * cRuleGap * fSize;
    constexpr double cRounding = 1e-6;
    const int lines = qMax(0, int(std::floor(free / rowHeight() + cRounding)));
    const int all = fContent.fRows.size();
    const bool fits = all <= lines && (fContent.fLeftOut == 0 || all < lines);
    return fits ? all : qBound(0, lines - 1, all);
}

void TTableLayout::drawRule(QPainter &painter, double y, double width, const QColor &ink) const
{
    Utils::Painter::drawCrispLine(painter, QLineF(0.0, y, size().width(), y), width, ink);
}

void TTableLayout::drawHead(QPainter &painter, double top) const
{
    const TTypesetter letters(fHeadFont);
    double x = (cMargin + (fHasSamples ? cSampleWidth + cSampleGap : 0.0)) * fSize;
    for (int i = 0; i < fColumns.size(); ++i) {
        const QRectF cell(x, top, fColumns.at(i).fWidth, rowHeight());
        letters.draw(painter, cell, fContent.fColumns.at(i).fIsNumber ? Qt::AlignRight : Qt::AlignLeft,
                     fContent.fColumns.at(i).fTitle);
        x += fColumns.at(i).fWidth + cColumnGap * fSize;
    }
}

void TTableLayout::drawRow(QPainter &painter, int row, double top, bool onDark) const
{
    const TTypesetter letters(fFont);
    const TTableContent::TRow &shown = fContent.fRows.at(row);
    double x = cMargin * fSize;
    if (fHasSamples) {
        const QRectF sample(x, top + 0.5 * rowHeight() - 0.5 * cThickRule, cSampleWidth * fSize, 2 * cThickRule);
        if (shown.fColor.isValid())
            painter.fillRect(sample, onDark ? Utils::Color::onDarkPaper(shown.fColor) : shown.fColor);
        x += (cSampleWidth + cSampleGap) * fSize;
    }
    for (int i = 0; i < fColumns.size(); ++i) {
        const QString &text = shown.fCells.at(i);
        QRectF cell(x, top, fColumns.at(i).fWidth, rowHeight());
        if (fContent.fColumns.at(i).fIsNumber) {
            const double behind = letters.width(text.mid(signPlace(text)));
            cell.setRight(cell.right() - fColumns.at(i).fBehindSign + behind);
        }
        letters.draw(painter, cell, fContent.fColumns.at(i).fIsNumber ? Qt::AlignRight : Qt::AlignLeft, text);
        x += fColumns.at(i).fWidth + cColumnGap * fSize;
    }
}

void TTableLayout::drawNote(QPainter &painter, int leftOut, double top) const
{
    const QString text = QCoreApplication::translate("TTableLayout", "... and %1 more").arg(leftOut);
    TTypesetter(fFont).draw(painter, QRectF(cMargin * fSize, top, size().width(), rowHeight()), Qt::AlignLeft, text);
}

void TTableLayout::draw(QPainter &painter, const QSizeF &room, const QColor &ink, bool onDark) const
{
    if (room.isEmpty() || fColumns.isEmpty())
        return;
    painter.save();
    painter.setClipRect(QRectF(QPointF(), room), Qt::IntersectClip);
    painter.scale(scaleIn(room), scaleIn(room));
    painter.setPen(ink);
    const double gap = cRuleGap * fSize;
    drawRule(painter, cThickRule / 2, cThickRule, ink);
    drawHead(painter, gap);
    drawRule(painter, gap + rowHeight() + gap / 2, cThinRule, ink);
    double top = headHeight();
    const int rows = rowsIn(room);
    for (int row = 0; row < rows; ++row, top += rowHeight())
        drawRow(painter, row, top, onDark);
    const int leftOut = fContent.fRows.size() - rows + fContent.fLeftOut;
    if (leftOut > 0)
        drawNote(painter, leftOut, top);
    if (leftOut > 0 || rows == 0)
        top += rowHeight();
    drawRule(painter, top + gap, cThickRule, ink);
    painter.restore();
}
