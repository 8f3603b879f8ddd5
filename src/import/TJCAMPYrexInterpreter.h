#pragma once

#include "jcamp/TJCAMPDatasetInterpreter.h"

/// Decides whether a block holds an optical spectrum, and in which units.
class TJCAMPYrexInterpreter : public TJCAMPDatasetInterpreter
{
public:
    /// The block, which may be null, is not owned.
    explicit TJCAMPYrexInterpreter(TJCAMPBlock *block);

    /// Codes of TYrexUnit; arbitrary units where the block tells none that is known.
    int xUnit() const { return fXUnit; }
    int yUnit() const { return fYUnit; }
    /// Whether this program wrote the block and stated its y unit outright: the values then stand as they are.
    bool hasStatedYUnit() const { return fHasStatedYUnit; }

    /// The units that texts of XUNITS and YUNITS stand for, on any spelling of them.
    static int xUnitOf(const QByteArray &text, bool isRaman);
    static int yUnitOf(const QByteArray &text);

    /// Private labels, without "$", by which this program states units that the public texts cannot tell, with the
    /// names that scripts use.
    static constexpr char cStatedXUnit[] = "ZARNU XUNITS";
    static constexpr char cStatedYUnit[] = "ZARNU YUNITS";

private:
    QByteArray unified(const char *label) const;
    bool statedUnit(const char *label, int &unit) const;
    void analyseUnits();

    int fXUnit;
    int fYUnit;
    bool fStrict = true; // a block with a data type that is known needs no second look
    bool fHasStatedYUnit = false;
};
