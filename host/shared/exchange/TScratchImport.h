#pragma once

#include "canvas/TPage.h"
#include "plugin/IConverterHost.h"
#include "services/TImportDriver.h"

/// A file that is read without becoming part of a document: its items stand on a page of their own until they are taken
/// or this goes.
class TScratchImport : private IConverterHost
{
public:
    /// `format` names the converter outright.
    TScratchImport(const TImportDriver &driver, const QString &path, const QString &format = QString());

    QString path() const { return fPath; }
    /// With the items on the page only.
    const TImportResult &result() const { return fResult; }
    bool isOk() const;
    TPage &page() { return fPage; }
    /// Where the items came from.
    const QVariantMap &provenance() const { return fProvenance; }
    /// Of all items.
    int spectrumCount() const;
    /// Gives the items up to the caller.
    TCanvasItemList take();

private:
    void commitImport(const TCanvasItemList &items, const QVariantMap &info,
                      const std::function<void(QByteArray &)> &titleWriter) override;
    QVariant request(int what, const QVariant &a, const QVariant &b, const QVariant &c) override;
    void scriptRequest(const QVariant &, const QVariant &) override {}

    QString fPath;
    TPage fPage;
    TImportResult fResult;
    QVariantMap fProvenance;
    IConverterHost *fUsual; // of the program
};
