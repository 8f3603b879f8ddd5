#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QLineF>
#include <QString>

class QPainter;
class QRectF;

/// Helpers for painters that are scaled to canvas units (0.1 mm).
namespace Utils {
namespace Painter {

/// A copy of the font whose pixel size is its point size, so that a font of 28 points is 28 canvas units high. Hinting
/// is off: the advances, and with them the layout, are then the same on every device and at every zoom.
QFont fontSizeInPixels(const QFont &font);
/// The font of plots in a size in canvas units, as properties hold it (a point size).
QFont plotFont(int size);
/// Width of the rectangle that the text covers or advances over, whichever is larger.
double boundingRectWidth(const QFontMetricsF &metrics, const QString &text);

/// Whether the painter makes shapes and text (SVG, PDF, a recorded picture) instead of pixels.
bool isVectorOutput(const QPainter &painter);
/// Device pixels per canvas unit along each direction; 1 for a painter that cannot tell.
double deviceScale(const QPainter &painter);

/// A horizontal or vertical line with flat ends: on pixels it covers whole device pixels, at least one, so that axes
/// and ticks are crisp; elsewhere it is a line of exactly that width.
void drawCrispLine(QPainter &painter, const QLineF &line, double width, const QColor &color);

/// While one lives, the text of plots is drawn as filled outlines: for files that are read where the font is missing.
class TOutlinedText
{
public:
    explicit TOutlinedText(bool isOn = true);
    ~TOutlinedText();
    TOutlinedText(const TOutlinedText &) = delete;
    TOutlinedText &operator=(const TOutlinedText &) = delete;
    static bool isOn();

private:
    bool fBefore;
};

} // namespace Painter
} // namespace Utils
