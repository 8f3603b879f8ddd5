#pragma once

#include <QColor>
#include <QFont>
#include <QSizeF>
#include <QVector>

class QPainter;
class TTypesetter;
struct TTableContent;

/// Sets a table of a page: rules above, below the head and at the end, numbers under each other at their decimal
/// signs. Lengths are canvas units.
class TTableLayout
{
public:
    /// The content is not copied and lives longer.
    TTableLayout(const TTableContent &content, int fontSize);

    /// The room that it takes in letters of its size.
    QSizeF size() const;
    /// Draws it from the top left corner. Where there is less room the letters get smaller, down to six tenths; then
    /// rows are left out, and a last line tells how many.
    void draw(QPainter &painter, const QSizeF &room, const QColor &ink, bool onDark) const;
    /// The rows that are drawn in that room.
    int rowsIn(const QSizeF &room) const;

private:
    struct TColumn
    {
        double fWidth = 0.0;
        double fBehindSign = 0.0; // widest part of a number from its decimal sign on
    };

    double scaleIn(const QSizeF &room) const;
    double rowHeight() const;
    double headHeight() const;
    void measure();
    void drawHead(QPainter &painter, double top) const;
    void drawRow(QPainter &painter, int row, double top, bool onDark) const;
    void drawNote(QPainter &painter, int leftOut, double top) const;
    void drawRule(QPainter &painter, double y, double width, const QColor &ink) const;

    const TTableContent &fContent;
    QFont fFont;
    QFont fHeadFont;
    double fSize;
    bool fHasSamples = false;
    QVector<TColumn> fColumns;
};
