#pragma once

#include "exchange/TPictureExporter.h"

class TCanvasYrexSpectrum;

/// The picture of one item that the command line writes, of whatever size the item has.
///
/// `size` in pixels; svg and pdf take its shape. `provenance` is that of the item's file. The item has to outlive the
/// picture and looks the same afterwards.
TPictureExporter cliPicture(TCanvasYrexSpectrum &item, const QSize &size, const QVariantMap &provenance);
