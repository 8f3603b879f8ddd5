#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QString>

class TDataStream;

enum TTitlePosition { titleOnTop = 0, titleAtLeft = 1, titleAtRight = 2, titleInside = 3 };

enum TTitleAlignment { alignTitleLeft = 0, alignTitleCentre = 1, alignTitleRight = 2 };

/// The title of a plot: its looks and the format that its text is made from.
struct TTitleProperties
{
    bool visible = true;
    QColor color = Qt::black;
    QFont font; // the point size is the height in canvas units
    QString format;
    int position = titleOnTop;
    int alignment = alignTitleLeft;
    QPointF offset;      // canvas units, positive right and down
    bool stacked = true; // one title per spectrum in stacks

    explicit TTitleProperties(const QString &titleFormat = QStringLiteral("{Title}"));

    void store(TDataStream &stream) const;
    /// Keeps the values as they were when the stream holds none or broken ones.
    void load(TDataStream &stream);
    bool operator==(const TTitleProperties &other) const;
    bool operator!=(const TTitleProperties &other) const { return !(*this == other); }
};
