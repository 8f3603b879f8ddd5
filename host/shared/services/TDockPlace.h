#pragma once

#include <QString>
#include <Qt>

/// Where a dock stands before the user moves it.
struct TDockPlace
{
    Qt::DockWidgetArea fArea = Qt::BottomDockWidgetArea;
    /// Brings the dock to the front, or hides it; empty for none.
    QString fKey;
    /// Docks of one area stand as tabs in this order.
    int fOrder = 0;
    bool fIsShown = false; // at the first start
    int fSize = 0;         // width or height in logical pixels; 0: as Qt has it
};
