#pragma once

#include "params/TSpectrumParam.h"

#include <QVector>

/// The recipes of a file format's parameters, in order.
class TSpectrumParamsTemplate
{
public:
    /// Replaces the entry of that id and dimension where it stands, else adds it at the end.
    void set(const TSpectrumParam &entry);
    /// Removes the entry of that id and dimension, if there is one.
    void remove(int id, int dim);
    int count() const { return fEntries.size(); }
    const TSpectrumParam &at(int index) const { return fEntries.at(index); }
    /// The first entry of that id, or null.
    const TSpectrumParam *entry(int id) const;
    QVector<TSpectrumParam>::const_iterator begin() const { return fEntries.begin(); }
    QVector<TSpectrumParam>::const_iterator end() const { return fEntries.end(); }

private:
    int indexOf(int id, int dim) const;
    QVector<TSpectrumParam> fEntries;
};
