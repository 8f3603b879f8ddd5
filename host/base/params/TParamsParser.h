#pragma once

#include "params/TSpectrumParamsTemplate.h"

#include <QDir>
#include <QHash>
#include <QPair>
#include <QSet>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <memory>

class QIODevice;
class TParamsBundle;

/// Turns the raw sources of a file format into parameter texts by the format's template.
///
/// A source is a blob of the bundle that the parser works on (setBundle) or, where the bundle has none of that name or
/// there is no bundle, the file itself. One parser serves a whole process and is not locked.
class TParamsParser
{
public:
    TParamsParser();
    virtual ~TParamsParser();
    TParamsParser(const TParamsParser &) = delete;
    TParamsParser &operator=(const TParamsParser &) = delete;

    /// The value of one template entry. The base answers formulas, literals in double quotes and the time of the data
    /// file, and a null text for any other key: an override asks the base first and looks further when it gets null.
    virtual QString value(const QString &source, const QString &key, const QString &path);
    /// Drops what loadSource keeps.
    virtual void reset();
    /// Adapts the template to the number of dimensions; nothing to do for one dimension.
    virtual void patchTemplates(int dim);
    /// The base has the entries that every format has: description, comment and experiment, all without expression.
    virtual TSpectrumParamsTemplate defaultTemplates() const;
    /// The name under which a key of a source is shown; the key itself here.
    virtual QString parseParameterName(const QString &source, const QString &key) const;
    /// Whether this parser serves a source of that name; here every name but the empty one.
    virtual bool isParseable(const QString &source) const;
    /// Keeps the content of a source for the calls of `value` that follow. Other sources are ignored.
    virtual void loadSource(const QString &source, const QString &path);

    /// The value of "name(key)", of a formula or of a literal, out of a bundle; null for anything else.
    QString value(const QString &entry, const TParamsBundle &bundle);
    /// The value of a template entry; each source is loaded once until the bundle changes. Null for an entry without
    /// expression and for one that gives nothing.
    QString entryValue(const TSpectrumParam &entry, const QString &path);
    /// The values of several keys of one source, in order, an invalid one where there is none. `name` is a blob of the
    /// bundle that is set, else a file in `dir`.
    QVariantList valuesFromDir(const QString &name, const QStringList &arguments, const QDir &dir);

    /// The template in use; a constructor sets the default one.
    const TSpectrumParamsTemplate &templates() const { return fTemplates; }
    void setTemplates(const TSpectrumParamsTemplate &templates) { fTemplates = templates; }

    /// The bundle to work on, not owned; null takes it back. Either drops what was loaded before.
    void setBundle(const TParamsBundle *bundle);
    const TParamsBundle *bundle() const { return fBundle; }

    /// Whether the text begins with "=".
    static bool isFormula(const QString &text);
    /// Splits "name(argument)"; false, with both untouched, for anything else and for formulas.
    static bool parseParamStr(const QString &entry, QString &name, QString &argument);

protected:
    /// The opened content of a source: the bytes of the bundle's blob, else the file of that path; null when that
    /// cannot be opened.
    std::unique_ptr<QIODevice> sourceDevice(const QString &source, const QString &path) const;
    /// Whether a source that the bundle lacks is missing, so that the file is not asked; not here.
    virtual bool needsBlob(const QString &source) const;

private:
    struct TCachedText
    {
        QVector<QPair<QString, QByteArray>> fSources; // the bytes are held, so that their address stays theirs
        QString fText;
    };

    QString evaluate(const QString &source, const QString &expression, const QString &path);
    QString cachedOrEvaluated(const QString &source, const QString &expression, const QString &path);
    QString sourceValue(const QString &source, const QString &key, const QString &path);
    QString formulaValue(const QString &formula, const QString &path);
    QString datafileTime(const QString &path) const;
    bool isCurrent(const TCachedText &cached) const;

    TSpectrumParamsTemplate fTemplates;
    const TParamsBundle *fBundle = nullptr;
    QSet<QString> fLoaded;                        // sources loaded for fBundle
    bool fInSession = false;                      // between two resets: fLoaded counts
    bool fInFormula = false;                      // a key of a field is never a formula itself
    bool fCacheable = false;                      // whether the evaluation at hand depends on blobs only
    QVector<QPair<QString, QByteArray>> fTouched; // and on which
    QHash<QPair<QString, QString>, TCachedText> fCache;
};
