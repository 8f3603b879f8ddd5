#pragma once

#include "TOpusOrdinals.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/// The x axis that all traces of a block share.
struct TOpusTraceAxis
{
    double fFirstX = 0.0;
    double fLastX = 0.0;
    qint32 fPointCount = 0;
    qint32 fReserved = 0;
};

/// Access to the blocks of OPUS files, one operation for each call of TOpusOrdinals.h, in that order. The import knows
/// nothing but this interface, so that a binding of another library can stand in its place.
///
/// Every operation returns 0 on success and an error code otherwise, and then leaves its results alone. `block` is an
/// id from blockIds and belongs to the file opened last. Texts are 8-bit; buffers have room for the length that was
/// asked for before. Objects close their files when they go.
class IOpusLibrary
{
public:
    static constexpr int cDataStatusKind = 1; // the kind of parameter block that tells units and dates

    virtual ~IOpusLibrary() = default;

    /// Characters of the text for an error code.
    virtual int errorTextLength(int code, int *length) = 0;
    virtual int errorText(int code, QChar *buffer) = 0;
    virtual int open(const QString &path, qint32 *handle) = 0;
    virtual int blockCount(qint32 handle, int *count) = 0;
    virtual int blockIds(qint32 handle, qint32 *ids) = 0;
    /// Points of a plain spectrum block.
    virtual int pointCount(qint32 handle, qint32 block, int *count) = 0;
    /// Those points; doubles, as neighbours of a finely resolved axis are the same float. `y` may be null: then only
    /// the axis is wanted.
    virtual int points(qint32 handle, qint32 block, double *x, double *y) = 0;
    virtual int isSpectrum(qint32 block, bool *flag) = 0;
    virtual int hasHistory(qint32 block, bool *flag) = 0;
    virtual int historyLineCount(qint32 handle, int *count) = 0;
    /// With the zero byte that closes the line.
    virtual int historyLineLength(qint32 handle, int line, int *length) = 0;
    virtual int historyLine(qint32 handle, int line, char *buffer) = 0;
    virtual int isParameterBlock(qint32 block, bool *flag) = 0;
    virtual int parameterKind(qint32 handle, qint32 block, int *kind) = 0;
    virtual int hasParameters(qint32 handle, qint32 block, bool *flag) = 0;
    virtual int parameterCount(qint32 handle, qint32 block, int *count) = 0;
    virtual int parameterNameLength(qint32 handle, qint32 block, int index, int *length) = 0;
    virtual int parameterName(qint32 handle, qint32 block, int index, char *buffer) = 0;
    /// Values hold no line breaks.
    virtual int parameterValueLength(qint32 handle, qint32 block, int index, int *length) = 0;
    virtual int parameterValue(qint32 handle, qint32 block, int index, char *buffer) = 0;
    virtual int hasTraces(qint32 block, bool *flag) = 0;
    virtual int blockNameLength(qint32 block, int *length) = 0;
    virtual int blockName(qint32 block, char *buffer) = 0;
    /// The number of the first trace, from 1; 0 when there is none.
    virtual int firstTrace(qint32 handle, qint32 block, int *number) = 0;
    virtual int traceAxis(qint32 handle, qint32 block, TOpusTraceAxis *axis) = 0;
    /// Traces of the series of that index, from 0.
    virtual int traceCount(qint32 handle, qint32 block, int series, int *count) = 0;
    /// The text that the names of blocks which belong together contain.
    virtual int joinKey(qint32 block, QByteArray *key) = 0;
    /// Points of one trace.
    virtual int tracePointCount(qint32 handle, qint32 block, int *count) = 0;
    virtual int traceDescriptionA(qint32 handle, qint32 block, QByteArray *text) = 0;
    /// The y values of `count` traces from the trace of index `start`, from 0, one behind the other.
    virtual int traces(qint32 handle, qint32 block, int start, int count, double *y) = 0;
    /// Whether a parameter of that name is one to keep.
    virtual int keepsParameter(const QByteArray &name, bool *flag) = 0;
    virtual int traceDescriptionB(qint32 handle, qint32 block, QByteArray *text) = 0;
    virtual int traceDescriptionC(qint32 handle, qint32 block, QByteArray *text) = 0;
};
