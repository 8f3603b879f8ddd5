#pragma once

#include "params/TSpectrumParam.h"

#include <QVector>

class TDataStream;

/// The parameters of one spectrum, in order.
class TSpectrumParams
{
public:
    void append(const TSpectrumParam &param) { fParams.append(param); }
    void reserve(int count) { fParams.reserve(count); }
    int count() const { return fParams.size(); }
    bool isEmpty() const { return fParams.isEmpty(); }
    void clear() { fParams.clear(); }
    void removeLast() { fParams.removeLast(); }
    const TSpectrumParam &at(int index) const { return fParams.at(index); }
    QVector<TSpectrumParam>::const_iterator begin() const { return fParams.begin(); }
    QVector<TSpectrumParam>::const_iterator end() const { return fParams.end(); }

    /// The first parameter of that id, or null. Valid until the next append or clear.
    TSpectrumParam *getParam(int id);
    const TSpectrumParam *getParam(int id) const;
    /// The first parameter of that name, programmatic or, when `translated`, as users see it; null for none.
    TSpectrumParam *getParam(const QString &name, bool translated);
    const TSpectrumParam *getParam(const QString &name, bool translated) const;

    /// Zero-based index of the values of one-based dimension `dim` of `dimCount`; out of range goes to the nearest.
    static int dim2Index(int dim, int dimCount);

    /// Brings a parameter and a field of its owner together. `dim` is one-based.
    ///
    /// A null text takes the target. An empty one takes a target that is not empty, unless `flag` says that the
    /// parameter is the master: then it empties a text and leaves a number. Any other text goes to the target, where a
    /// number that does not convert leaves it. Numbers go into the parameter with 17 digits. False, with nothing
    /// changed, when there is no such parameter. For QString, double and int.
    template <class T>
    bool evaluate(int id, bool flag, T *target, int dim, int dimCount);

    /// After an evaluation of the templates: takes from the former parameters what users or readers set there and no
    /// expression can give again. These are values with the edited flag, values of entries without expression that this
    /// set has not, and parameters that no template has. From a set of another origin than a template everything is
    /// taken when this one is empty.
    void carryOver(const TSpectrumParams &old);

    void store(TDataStream &stream) const;
    /// Replaces the parameters; empty for a stream without them or a corrupt one.
    void load(TDataStream &stream);

private:
    QVector<TSpectrumParam> fParams;
};
