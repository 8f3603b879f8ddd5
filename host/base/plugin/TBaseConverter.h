#pragma once

#include "plugin/IConverter.h"

#include <QObject>
#include <QRegularExpression>
#include <QVector>

/// Filters, provenance and the import driver that all converters share.
class TBaseConverter : public IConverter
{
public:
    enum TFlag : quint32 {
        cRecordProvenance = 1, // after a good import, record where it came from
        cReserved = 2,
        cNeedsFilter = 4, // the content has no signature: takes no part when no filter was chosen
        cTestsFileName = 8
    };

    /// `plugin` is not owned and may be null.
    TBaseConverter(const QStringList &importFilters, const QStringList &exportFilters, QObject *plugin);

    QStringList importFilterList() const override { return fImportFilterTitles; }
    QStringList exportFilterList() const override { return fExportFilterTitles; }
    QStringList extraFilterList() const override { return fExtraFilters; }
    int importFile(const QString &fileName, ICanvas *parent) override;
    QVariantMap metaData(const QString &fileName, const QStringList &keys) override;
    IPluginInfo *pluginInfo() const override;
    bool acceptsFilter(const QString &filter, bool forImport) const override;
    bool acceptsFile(const QString &fileName, const QString &filter) override;
    TCanvasItemList importedItems() const override { return fItems; }
    QString problem() const override { return fProblem; }

    /// Reads a file into items without recording it. Returns a TConverterCode.
    virtual int convert(const QString &fileName, ICanvas *parent) = 0;
    /// Writes the title of the import command.
    virtual void nameCommand(QByteArray &title) const;
    virtual void afterImport() {}
    virtual void afterProvenance() {}
    /// Hands the import to the host's history; without a host nothing is recorded.
    virtual void recordProvenance(const QVariantMap &info);
    /// "Filename" and, where there are checksums, "md5sum"; empty for an empty name.
    virtual QVariantMap provenance(const QString &fileName) const;
    /// File name to MD5 of a file, or folder name to the map of a directory's files.
    virtual QVariantMap checksums(const QString &fileName) const;
    virtual QVariant hostRequest(int what, const QVariant &a, const QVariant &b);
    virtual void scriptRequest(const QVariant &a, const QVariant &b);

    quint32 flags() const { return fFlags; }
    void setFlags(quint32 flags) { fFlags = flags; }
    bool isInteractive() const { return fInteractive; }

protected:
    QObject *plugin() const { return fPlugin; }
    TCanvasItemList &items() { return fItems; }
    /// What the reader expected at which offset or line, and what stood there; shown with the code of a failure.
    void setProblem(const QString &text) { fProblem = text; }

private:
    void buildWildcards();

    QStringList fImportFilterTitles;
    QStringList fExportFilterTitles;
    QStringList fImportFilters;
    QStringList fExportFilters;
    QStringList fExtraFilters;
    QObject *fPlugin;
    TCanvasItemList fItems;
    quint32 fFlags = cRecordProvenance | cReserved;
    bool fInteractive = true;
    QVector<QRegularExpression> fWildcards; // of the import filters, built on first use
    QString fProblem;
};
