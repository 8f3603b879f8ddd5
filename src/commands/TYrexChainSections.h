#pragma once

#include <QVariantList>
#include <QVector>

/// A stretch of a chain that is run on every target before the next one begins.
struct TYrexChainSection
{
    int fFrom = 0;
    int fTo = 0;
    int fPrepass = -1; // the stack action whose figures are computed before this stretch runs; -1 for none

    bool operator==(const TYrexChainSection &other) const
    {
        return fFrom == other.fFrom && fTo == other.fTo && fPrepass == other.fPrepass;
    }
};

/// Cuts a chain into sections, so that the actions that compare the spectra of a stack (scatter correction, quotient
/// normalisation) see all of them at the stage at which the chain reaches them.
///
/// A chain that applies nothing is one section: running it takes the data back to the original. An applied stack action
/// at the very end of the chain gets no pre-pass and works on the figures that a spectrum holds. Nothing behind an
/// applied baseline that is only shown stands in a section that runs.
QVector<TYrexChainSection> yrexChainSections(const QVariantList &actions);
