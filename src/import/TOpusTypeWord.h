#pragma once

#include <QString>

/// The word that tells what a block of an OPUS file is. A data block and the status block that describes it differ by
/// the kind alone: the status word is the data word with the lowest kind bit set.
class TOpusTypeWord
{
public:
    enum TKind { cNotParameters = 0, cDataStatus = 1 };
    enum TChannel { cNoChannel = 0, cSample = 1, cReference = 2, cRatioed = 3 };
    enum TDataType {
        cSingleChannel = 1,
        cTransmittance = 5,
        cKubelkaMunk = 6,
        cTrace = 7,
        cReflectance = 12,
        cDirectory = 13
    };
    enum TExtension { cPlain = 0, cInfo = 1, cSeries = 2, cCompact = 4, cHistory = 13 };

    explicit TOpusTypeWord(quint32 word = 0)
        : fWord(word)
    {
    }

    quint32 word() const { return fWord; }
    int part() const { return field(0, 2); }
    int channel() const { return field(2, 2); }
    int kind() const { return field(4, 6); }
    int dataType() const { return field(10, 5); }
    int detector() const { return field(15, 2); }
    int derivative() const { return field(17, 2); }
    int extension() const { return field(19, 11); } // one number: parts of it mean nothing
    bool isOriginal() const { return field(30, 1) != 0; }

    bool isParameters() const { return kind() != cNotParameters || extension() == cInfo; }
    bool isDataStatus() const { return kind() == cDataStatus; }
    /// Numbers: a spectrum, an interferogram, traces and so on, and not a report that hangs on one.
    bool isData() const;
    bool isSeries() const { return kind() == cNotParameters && extension() == cSeries; }
    /// Numbers over a spectral axis in a state that users look at: no interferogram, phase, power or match.
    bool isSpectrumType() const;

    quint32 statusWord() const { return fWord | 0x10u; }
    quint32 rewrittenWord() const { return fWord & ~(1u << 30); }

    /// The name by which blocks are joined: type and channel letters, "AbRa", with "2Ch" and so on for further detector
    /// channels and ".d1" for derivatives; a data block and its status block have the same. Else the name of the kind
    /// of parameters ("Instrument", "Instrument Rf") or report.
    QString name() const;
    /// All fields in words.
    QString description() const;

private:
    int field(int shift, int bits) const { return int((fWord >> shift) & ((1u << bits) - 1u)); }
    QString dataName() const;

    quint32 fWord;
};
