#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantMap>

class TCanvasItem;
class TCanvasItemList;

/// What a picture tells of where its data came from and what was done to them.
struct TPictureOrigin
{
    QString fTitle;
    QString fProgram;         // name and version, of the program that draws
    bool fHasFolders = false; // whether files are named with their folders
    QVariantMap fFacts;       // "Filename", "md5sum" (name to sum), and whatever else is known
    QByteArray fChain;        // JSON in one line; empty when the data have no chain

    /// The origin of one item's data; the program is this one.
    static TPictureOrigin of(const TCanvasItem &item);
    /// Of several items: the facts hold a list "items", the chain an array with the chain of each.
    static TPictureOrigin of(const TCanvasItemList &items);
    /// Name and version of this program.
    static QString program();
    /// The file name of the source, or the names of several, separated by "; ".
    QString source() const;
    /// The first checksum of the source, likewise; empty without one.
    QString checksum() const;
    /// Facts and chain as one JSON object.
    QByteArray description() const;
};
