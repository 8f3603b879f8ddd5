#pragma once

#include <QColor>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QUuid>

class TDataStream;

/// The types of picked peaks, as the meta-object system knows them.
class TYrexDPLib
{
    Q_GADGET

public:
    /// Bits of TYrexDPPeak::flags.
    enum TPeakFlag : qint32 { cAutoPicked = 1 };

    /// One peak. Positions and widths are in points, so that they stay true when the x axis changes its unit.
    struct TYrexDPPeak
    {
        double position = 0.0;  // centre
        double width = 0.0;     // full width at half height, as the detector found it
        double intensity = 0.0; // y at the integer part of position, when the peak was picked
        double reservedA = 0.0;
        double reservedB = 0.0;
        qint32 reservedC = 0;
        double reservedD = 0.0;
        quint64 reservedF = 0; // not stored
        bool positive = true;  // points up
        QString annotation;    // the user's text
        QUuid referenceId;
        QString text;
        QColor color;
        QUuid id; // identity; a copy keeps it
        qint32 reservedE = 0;
        qint32 flags = 0; // TPeakFlag

        /// A peak with a new id.
        TYrexDPPeak();
    };
    /// The peaks of a spectrum, which it owns.
    using TYrexDPPeakList = QList<TYrexDPPeak *>;

    /// Two peaks nearer than this, in points, count as the same one.
    static constexpr double cSamePeakDistance = 0.5;

    /// Appends the stored peaks to the list. A stream that fails leaves the list as it was.
    static void readPeakList(TDataStream &stream, TYrexDPPeakList &list);
    static void writePeakList(TDataStream &stream, const TYrexDPPeakList &list);
    /// Frees every peak and leaves the list empty.
    static void deleteAllPeaks(TYrexDPPeakList &list);
    /// Frees the auto-picked peaks; the order of the others stays. Those with a text of the user, as documents of
    /// before have them, stay as manual ones.
    static void deleteAutoPeaks(TYrexDPPeakList &list);
    /// The place of the peak with that id; -1 when it is not there.
    static int indexOfId(const TYrexDPPeakList &list, const QUuid &id);
    /// Whether a peak lies nearer to that position, in points, than cSamePeakDistance.
    static bool hasPeakAt(const TYrexDPPeakList &list, double position);
};

Q_DECLARE_METATYPE(TYrexDPLib::TYrexDPPeak)
Q_DECLARE_METATYPE(TYrexDPLib::TYrexDPPeak *)
Q_DECLARE_METATYPE(TYrexDPLib::TYrexDPPeakList)
