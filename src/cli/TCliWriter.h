#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantList>
#include <functional>

class IConverter;
class TCliTarget;
struct TCliEnvironment;
struct TCliInput;

/// Writes what an input gave. A file is written beside its place and renamed, so that a failure leaves an older one
/// whole. What fails is told to the input.
class TCliWriter
{
public:
    TCliWriter(const TCliEnvironment &environment, const TCliTarget &target)
        : fEnvironment(environment)
        , fTarget(target)
    {
    }

    /// The chain that was run, for the provenance.
    void setChain(const QVariantList &chain) { fChain = chain; }
    /// Writes the data of an input in the target's form. What goes to standard output is appended to `out`.
    void write(TCliInput &input, int index, QByteArray &out) const;

private:
    void writeCsv(TCliInput &input, int index, QByteArray &out) const;
    void writeJcamp(TCliInput &input, int index, QByteArray &out) const;
    void writeThrough(const QString &format, TCliInput &input, int index, QByteArray &out,
                      const std::function<void(int)> &prepare) const;
    /// Warns of what could be misread in a file that was written.
    void tellRemark(const IConverter &converter, const QString &path) const;
    void writeDocument(TCliInput &input, int index) const;
    void writeJson(TCliInput &input, int index, QByteArray &out) const;

    const TCliEnvironment &fEnvironment;
    const TCliTarget &fTarget;
    QVariantList fChain;
};
