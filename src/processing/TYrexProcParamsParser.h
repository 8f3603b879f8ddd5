#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

/// Splits a dotted parameter path into its parts. The one class that the plug-in exports by name.
class Q_DECL_EXPORT TYrexProcParamsParser
{
public:
    /// Splits at every "."; an empty path has one empty part. The cursor stands on the first part.
    explicit TYrexProcParamsParser(const QString &path);

    const QStringList &parts() const { return fParts; }
    /// The part under the cursor; a null string behind the last one.
    QString current() const { return fParts.value(fCursor); }
    bool atEnd() const { return fCursor >= fParts.size(); }
    /// Moves the cursor to the next part; false when there is none.
    bool next();

private:
    QStringList fParts;
    int fCursor = 0;
};
