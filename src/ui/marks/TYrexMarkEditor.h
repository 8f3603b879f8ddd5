#pragma once

#include <QObject>
#include <functional>

class IPluginHost;
class QUuid;
class TCanvasYrexSpectrum;

/// Opens the dialogs of marks and makes the commands of what is accepted there. The dialogs do not wait.
class TYrexMarkEditor : public QObject
{
    Q_OBJECT

public:
    /// Shows a stretch of the horizontal axis of an item; null: none.
    using TShowBand = std::function<void(TCanvasYrexSpectrum *, double from, double to)>;

    /// The host is not owned and lives longer.
    explicit TYrexMarkEditor(IPluginHost &host);
    void setShowBand(const TShowBand &show) { fShowBand = show; }

    /// False, with nothing opened, for a peak that the active spectrum has not.
    bool editPeak(TCanvasYrexSpectrum *item, const QUuid &peak);
    /// `subType` is that of the hot area it comes from, 0 for the whole integral. False for one that the active
    /// spectrum has not.
    bool editIntegral(TCanvasYrexSpectrum *item, const QUuid &integral, int subType);

private:
    QStringList annotations() const;

    IPluginHost &fHost;
    TShowBand fShowBand;
};
