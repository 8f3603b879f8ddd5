#include "params/TSpectrumParamsTemplate.h"

int TSpectrumParamsTemplate::indexOf(int id, int dim) const
{
    for (int i = 0; i < fEntries.size(); ++i) {
        if (fEntries[i].id() == id && fEntries[i].dim() == dim)
            return i;
    }
    return -1;
}

void TSpectrumParamsTemplate::set(const TSpectrumParam &entry)
{
    const int index = indexOf(entry.id(), entry.dim());
    if (index < 0)
        fEntries.append(entry);
    else
        fEntries[index] = entry;
}

void TSpectrumParamsTemplate::remove(int id, int dim)
{
    const int index = indexOf(id, dim);
    if (index >= 0)
        fEntries.removeAt(index);
}

const TSpectrumParam *TSpectrumParamsTemplate::entry(int id) const
{
    for (const TSpectrumParam &candidate : fEntries) {
        if (candidate.id() == id)
            return &candidate;
    }
    return nullptr;
}
