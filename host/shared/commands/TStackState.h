#pragma once

#include <QVector>

class IStackedItemCtx;

/// Order, visibility, selection and active spectrum of a stack, by index, so that it fits again after spectra were
/// taken out and put back. For undo.
class TStackState
{
public:
    void capture(const IStackedItemCtx &stack);
    void restore(IStackedItemCtx &stack) const;
    bool operator==(const TStackState &other) const
    {
        return fOrder == other.fOrder && fHidden == other.fHidden && fSelected == other.fSelected &&
               fActive == other.fActive;
    }

private:
    QVector<int> fOrder;
    QVector<int> fHidden; // in the order in which they were hidden
    QVector<int> fSelected;
    int fActive = -1;
};
