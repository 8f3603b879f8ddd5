#pragma once

#include "IOpusLibrary.h"

#include <QMap>
#include <QString>
#include <QVector>

/// A spectrum or a series of spectra as its blocks describe it.
struct TOpusItem
{
    qint32 fBlock = -1;
    QString fTitle;
    QString fDateText;
    int fXUnit = 0;
    int fYUnit = 0;
};

/// Asks an OPUS library for the blocks of a file and joins them by their names. A call that fails changes nothing but
/// the values that it would have given.
class TOpusReader
{
public:
    explicit TOpusReader(IOpusLibrary *library)
        : fLibrary(library)
    {
    }

    /// Opens a file and lists its blocks; false with problem() when that fails.
    bool open(const QString &path);
    /// What the library said of the last call that failed.
    const QString &problem() const { return fProblem; }
    int blockCount() const { return fIds.size(); }

    /// Whether the file has a spectrum with points or a trace. Stops with false at the first call that fails.
    bool holdsSpectra();

    /// All lines of the history behind each other, each closed by a bar; false when the file has none.
    bool history(QByteArray *text);
    /// Reads units, dates and times, and finds the plain spectra.
    void readDescriptions();
    /// The parameters of all blocks but those that describe data, as one line. No more than a sidecar is read for.
    QByteArray otherParameters();

    /// The plain spectra in the order of the blocks, after readDescriptions().
    QVector<TOpusItem> spectra() const { return fSpectra; }
    int pointCount(qint32 block);
    /// The points by ascending x, each x once: of equal ones the last counts, and points without a number for x are
    /// left out. `y` may be null.
    bool points(qint32 block, QVector<double> *x, QVector<double> *y);

    /// The blocks with traces whose first trace can be read.
    QVector<TOpusItem> traceBlocks();
    /// The number of the first trace, and how many there are.
    int firstTrace(qint32 block);
    int traceCount(qint32 block);
    TOpusTraceAxis traceAxis(qint32 block);
    bool trace(qint32 block, int index, QVector<double> *y);

private:
    struct TParameter
    {
        QByteArray fName;
        QByteArray fValue;
    };

    bool succeeded(int code);
    QString blockName(qint32 block);
    bool flag(int (IOpusLibrary::*question)(qint32, bool *), qint32 block);
    QVector<TParameter> keptParameters(qint32 block);
    bool isDataStatus(qint32 block);
    void readDescription(const QString &name, const QVector<TParameter> &parameters);
    TOpusItem item(qint32 block);

    IOpusLibrary *fLibrary;
    qint32 fHandle = -1;
    QString fProblem;
    QVector<qint32> fIds;
    QVector<TOpusItem> fSpectra;
    QMap<QString, int> fXUnits; // by the names of the blocks that tell them
    QMap<QString, int> fYUnits;
    QMap<QString, QString> fDates;
    QMap<QString, QString> fTimes;
};
