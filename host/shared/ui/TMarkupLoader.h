#pragma once

#include "ui/TMarkup.h"

#include <QXmlStreamReader>

class QIODevice;

/// Reads mark-up files (.mui). Unknown elements and attributes are logged with their line and passed over, so that a
/// file of a newer version still gives its menus.
class TMarkupLoader
{
public:
    /// Reads a file or resource; one that is missing gives an empty mark-up and a line in the log.
    static TMarkup loadFile(const QString &path);
    static TMarkup load(QIODevice &device, const QString &name);

private:
    TMarkupLoader(QIODevice &device, const QString &name);

    TMarkup read();
    void readAction();
    void readActionPart(TMarkupAction &action);
    TMarkupMenu readMenu();
    TMarkupRibbonPage readRibbonPage();
    TMarkupRibbonGroup readRibbonGroup();
    /// An entry; false when the element is none, which is then left to the caller.
    bool readItem(QVector<TMarkupItem> &items, bool inRibbon);
    void readItems(TMarkupItem &parent, bool inRibbon);
    /// Logs the attributes of the present element that are not among the known ones.
    void checkAttributes(const QStringList &known);
    QString attribute(const char *name) const { return fXml.attributes().value(QLatin1String(name)).toString(); }
    void passOver();
    void problem(const QString &text);

    QXmlStreamReader fXml;
    QString fFile;
    TMarkup fMarkup;
};
