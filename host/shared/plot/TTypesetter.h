#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVector>

class QPainter;
class QRectF;

/// Sets titles and labels in one font, with superscripts and subscripts.
///
/// In a text `^` raises what follows and `_` lowers it: an optional sign and digits ("cm^-1", "H_2O"), or anything in
/// braces ("SO_4^{2-}"). A backslash before either takes it literally. Raised and lowered parts have 70 % of the size.
/// Text stays text in SVG and PDF.
class TTypesetter
{
public:
    struct TRun
    {
        QString text;
        int level; // 1 raised, 0 on the line, -1 lowered
    };

    /// `font` with its size in canvas units as pixel size (Utils::Painter::fontSizeInPixels).
    explicit TTypesetter(const QFont &font);

    static QVector<TRun> parsed(const QString &text);
    /// The text with every sign of the typesetter taken literally.
    static QString escaped(const QString &text);
    /// The text without signs of the typesetter.
    static QString plainText(const QString &text);

    double width(const QString &text) const;
    double ascent() const { return fMetrics.ascent(); }
    double descent() const { return fMetrics.descent(); }
    /// Height of a line, raised and lowered parts included.
    double height() const { return fMetrics.height(); }
    /// Height of a digit: what the eye takes for the height of a number.
    double digitHeight() const { return fDigitHeight; }
    const QFont &font() const { return fFont; }

    /// The text in lines of at most that width, broken at blanks; what does not fit in the last line ends in "…".
    QStringList wrapped(const QString &text, double width, int maxLines) const;

    /// Draws one line; `pos` is the left end of the base line. Pen colour and opacity are the painter's.
    void draw(QPainter &painter, const QPointF &pos, const QString &text) const;
    /// Draws one line into a rectangle, with Qt::Alignment; vertically without a flag: centred.
    void draw(QPainter &painter, const QRectF &rect, int alignment, const QString &text) const;

private:
    QString elided(const QString &text, double width) const;

    QFont fFont;
    QFont fSmallFont;
    QFontMetricsF fMetrics;
    QFontMetricsF fSmallMetrics;
    double fDigitHeight;
};
