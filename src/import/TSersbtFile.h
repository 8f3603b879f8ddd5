#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVector>

/// A block of spectra that share their x values.
struct TSersbtBlock
{
    QByteArray fName; // of its first line
    int fLine = 0;    // of its first line, from 1; 0 when the file has none
    int fPointCount = 0;
    int fGridFirst = 0; // the two counts whose product is the number of spectra
    int fGridSecond = 0;
    int fRowCount = 0;
    QVector<double> fX;          // ascending, each value once
    QVector<QVector<double>> fY; // a vector per spectrum, as long as fX

    qint64 spectrumCount() const { return qint64(fGridFirst) * fGridSecond; }
};

/// A list of integers, one for each spectrum of a block.
struct TSersbtList
{
    QByteArray fName;
    int fLine = 0; // 0 when the file has none
    int fGridFirst = 0;
    int fGridSecond = 0;
    QVector<int> fFirst;
    QVector<int> fSecond; // of a sweep: the other coordinate
};

/// The content of a meas file: free parameters, the blocks of the two series of spectra, and the lists that belong to
/// them.
class TSersbtFile
{
public:
    static constexpr double cHighestVersion = 2.0;

    /// Reads a text with any line ends. False when a block is not as announced; problem() then tells the line, and what
    /// was read before stands.
    bool parse(const QByteArray &text);
    const QString &problem() const { return fProblem; }

    /// Why a text that begins so is none of these files; empty when it is one.
    static QString refusal(const QByteArray &head);

    /// The last token of each free line by its first one.
    const QMap<QByteArray, QByteArray> &parameters() const { return fParameters; }
    const TSersbtBlock &lfa() const { return fLfa; }
    const TSersbtBlock &nonLfa() const { return fNonLfa; }
    const TSersbtList &sweep() const { return fSweep; }
    const TSersbtList &gain() const { return fGain; }
    const TSersbtList &sourceOn() const { return fSourceOn; }
    /// First lines of blocks whose name stood before; only the first block of a name counts.
    const QVector<int> &repeatedLines() const { return fRepeatedLines; }

private:
    bool fail(int line, const QString &what);
    bool readHeaderLine(int *index);
    bool isRepeated(int firstLine, int line);
    bool readList(const QList<QByteArray> &tokens, int lines, int *index, TSersbtList *list);
    bool readListLine(int *index, TSersbtList *list, QVector<int> *values);
    bool beginBlock(const QList<QByteArray> &tokens, int *index, TSersbtBlock *block, const QByteArray &endName);
    bool readRows(int first, int end, TSersbtBlock *block);
    bool readRow(int index, TSersbtBlock *block);
    void sortRows(TSersbtBlock *block) const;
    bool checkGrid(const TSersbtList &list, const QByteArray &otherName, int first, int second, bool there);
    bool checkGrids();

    QList<QByteArray> fLines;
    QString fProblem;
    QMap<QByteArray, QByteArray> fParameters;
    TSersbtBlock fLfa;
    TSersbtBlock fNonLfa;
    TSersbtList fSweep;
    TSersbtList fGain;
    TSersbtList fSourceOn;
    QVector<int> fRepeatedLines;
};
