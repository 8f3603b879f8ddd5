#pragma once

#include "canvas/TCanvasItemList.h"
#include "commands/TCommand.h"

#include <QStringList>
#include <QVariantMap>
#include <QVector>

class TDocument;
class TPage;

/// Puts new items on a page. While it is undone it owns them.
class TCmdCreateItem : public TCommand
{
    Q_OBJECT

public:
    enum TReason { cOther = 0, cImport = 5 };
    enum TFlag { cLaidOut = 1, cOnNewPage = 2 };

    /// Without a document there is a page. Page null: the page on which an item says it stands, else the document's
    /// current empty page, else a new one. `info` tells where the items came from. Flag 1: the items are laid out
    /// already and keep their rectangles. Flag 2: without a page they get a new one, whatever is empty.
    TCmdCreateItem(int reason, const TCanvasItemList &items, TDocument *document, TPage *page, const QVariantMap &info,
                   int flag);
    ~TCmdCreateItem() override;

    /// The file whose import makes just these items; `format` names the converter outright where one was.
    void setFile(const QString &path, const QString &format);
    /// The files whose spectra make just this stack.
    void setStackedFiles(const QStringList &paths, const QString &format = QString());

    TScriptStep scriptStep() const override { return TScriptStep("insertItems"); }
    void completeScriptStep(TScriptStep &step) const override;
    void doHistoryCommand() override;
    void doCmd() override;
    void undoCmd() override;

private:
    TPage *targetPage(TPage *page);
    /// Whether the items went where scripts put those of a file: on the last page when that was empty, else on a new
    /// one.
    bool isUsualPage(const TDocument &document) const;

    TCanvasItemList fItems;
    TDocument *fDocument;
    TPage *fPage;
    TPage *fNewPage = nullptr; // made by this command; owned while undone
    QVariantMap fInfo;
    int fFlags;
    QString fFile;
    QString fFormat;
    QStringList fStackedFiles;
};
