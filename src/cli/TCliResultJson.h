#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QVariantList>

class TDocument;
class TJsonWriter;
class TYrexSpectrum;
struct TCliInput;

/// What an input came to, as JSON: one object for each file.
class TCliResultJson
{
public:
    /// Parts of a spectrum that are not always there.
    enum TPart {
        cNone = 0,
        cData = 1, // the y values
        cParams = 2,
        cProcessing = 4, // "preview" and "chain"
        cAll = cData | cParams | cProcessing
    };

    /// `document` is the one that holds the input's items, `parts` a sum of TPart.
    TCliResultJson(const TDocument &document, int parts)
        : fDocument(document)
        , fParts(parts)
    {
    }

    /// The chain that was run, for the provenance.
    void setChain(const QVariantList &chain) { fChain = chain; }
    /// The object of an input; one that failed has its code and reason and no items.
    QByteArray object(const TCliInput &input) const;

    /// Objects put together to the array that a program prints: its begin, what stands between objects, its end.
    static QByteArray array(const QByteArrayList &objects);
    static const char cBegin[];
    static const char cSeparator[];
    static const char cEnd[];

private:
    void writeItems(TJsonWriter &json, const TCliInput &input) const;
    void writeSpectrum(TJsonWriter &json, const TYrexSpectrum &spectrum) const;
    void writeProvenance(TJsonWriter &json, const TCliInput &input) const;
    void writeHistory(TJsonWriter &json) const;

    const TDocument &fDocument;
    int fParts;
    QVariantList fChain;
};
