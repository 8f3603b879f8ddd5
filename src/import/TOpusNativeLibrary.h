#pragma once

#include "IOpusLibrary.h"
#include "TOpusFile.h"

#include <memory>

/// The blocks of OPUS files as this program reads them itself, on every platform. One file is open at a time; the next
/// one closes it. Block ids are positions in the directory.
class TOpusNativeLibrary : public IOpusLibrary
{
public:
    /// Error codes.
    enum TCode { cDone = 0, cNotOpened = 1, cUnknownFile = 2, cUnknownBlock = 3, cUnknownIndex = 4 };

    int errorTextLength(int code, int *length) override;
    /// For a file that did not open: what was expected at which offset, and what stood there.
    int errorText(int code, QChar *buffer) override;
    int open(const QString &path, qint32 *handle) override;
    int blockCount(qint32 handle, int *count) override;
    /// The blocks that are there in the order of the directory, but status blocks that describe nothing which counts
    /// first: what the others say of the same name then stands.
    int blockIds(qint32 handle, qint32 *ids) override;
    int pointCount(qint32 handle, qint32 block, int *count) override;
    int points(qint32 handle, qint32 block, double *x, double *y) override;
    int isSpectrum(qint32 block, bool *flag) override;
    int hasHistory(qint32 block, bool *flag) override;
    int historyLineCount(qint32 handle, int *count) override;
    int historyLineLength(qint32 handle, int line, int *length) override;
    int historyLine(qint32 handle, int line, char *buffer) override;
    int isParameterBlock(qint32 block, bool *flag) override;
    int parameterKind(qint32 handle, qint32 block, int *kind) override;
    int hasParameters(qint32 handle, qint32 block, bool *flag) override;
    int parameterCount(qint32 handle, qint32 block, int *count) override;
    int parameterNameLength(qint32 handle, qint32 block, int index, int *length) override;
    int parameterName(qint32 handle, qint32 block, int index, char *buffer) override;
    /// Dates and times of status blocks come in ISO form where they can be read, and a Y unit that the file lacks is
    /// supplied from the type of the data.
    int parameterValueLength(qint32 handle, qint32 block, int index, int *length) override;
    int parameterValue(qint32 handle, qint32 block, int index, char *buffer) override;
    int hasTraces(qint32 block, bool *flag) override;
    int blockNameLength(qint32 block, int *length) override;
    int blockName(qint32 block, char *buffer) override;
    int firstTrace(qint32 handle, qint32 block, int *number) override;
    int traceAxis(qint32 handle, qint32 block, TOpusTraceAxis *axis) override;
    int traceCount(qint32 handle, qint32 block, int series, int *count) override;
    int joinKey(qint32 block, QByteArray *key) override;
    int tracePointCount(qint32 handle, qint32 block, int *count) override;
    int traceDescriptionA(qint32 handle, qint32 block, QByteArray *text) override;
    int traces(qint32 handle, qint32 block, int start, int count, double *y) override;
    int keepsParameter(const QByteArray &name, bool *flag) override;
    int traceDescriptionB(qint32 handle, qint32 block, QByteArray *text) override;
    int traceDescriptionC(qint32 handle, qint32 block, QByteArray *text) override;

    /// "27/11/2020", "2020/11/27" as "2020-11-27"; any other text as it is.
    static QByteArray isoDate(const QByteArray &text);
    /// "17:53:26.226 (GMT+1)" as "17:53:26.226"; any other text as it is.
    static QByteArray isoTime(const QByteArray &text);

private:
    struct TNamedValue
    {
        QByteArray fName;
        QByteArray fValue;
    };

    int code(qint32 handle) const { return fFile && handle == fHandle ? cDone : cUnknownFile; }
    const TOpusBlock *blockOf(qint32 block) const;
    bool hasUse(qint32 block, TOpusBlock::TUse use) const;
    const QVector<TNamedValue> &parametersOf(qint32 block);
    QString textOf(int code) const;

    std::unique_ptr<TOpusFile> fFile;
    qint32 fHandle = -1;
    QString fOpenProblem;
    QVector<qint32> fIds;
    QList<QByteArray> fHistory;
    qint32 fListedBlock = -1; // whose parameters are at hand
    QVector<TNamedValue> fListed;
};
