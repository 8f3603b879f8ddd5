#pragma once

#include "TFileController.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QUuid>

class IPluginUnits;
class TDocument;
class WUnitBar;
struct TUnitPair;

/// Files that do not name their units: sets those that the user chose for their kind of file, or asks with a bar above
/// the page, once for all files that were opened together.
class TUnitsController : public QObject
{
    Q_OBJECT

public:
    TUnitsController(TKelmoraHost &host, TDocumentController &documents, TFileController &files);

signals:
    /// A text for the status bar.
    void told(const QString &text);

private:
    /// Files that one bar asks about.
    struct TQuestion
    {
        IPluginUnits *fPlugin = nullptr; // not owned
        QPointer<TDocument> fDocument;
        QPointer<WUnitBar> fBar;
        QList<QUuid> fItems; // they may come and go through undo
        QStringList fEndings;
    };

    void follow(const QList<TImportedFile> &files);
    bool setAsLastTime(IPluginUnits &plugin, const TImportedFile &file, const TCanvasItemList &items);
    void ask(IPluginUnits &plugin, const QList<TImportedFile> &files);
    void answer(const TQuestion &question);
    void showOpenQuestions();
    TCanvasItemList unknownItems(const TQuestion &question) const;
    IPluginUnits *pluginFor(const TImportedFile &file) const;
    static bool set(IPluginUnits &plugin, TDocument &document, const TCanvasItemList &items, const TUnitPair &units);

    TKelmoraHost &fHost;
    TDocumentController &fDocuments;
    QList<TQuestion> fQuestions;
};
