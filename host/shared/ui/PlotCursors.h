#pragma once

#include <QCursor>

/// Cursors of the host's mouse modes, drawn when first used: dark lines with a white halo. The acting point of those
/// with a corner arrow is the top left pixel.
namespace PlotCursors {

QCursor zoomIn();
QCursor zoomOut();
QCursor cross();
QCursor cut();
QCursor uncut();
QCursor inset();
QCursor measure();

} // namespace PlotCursors
