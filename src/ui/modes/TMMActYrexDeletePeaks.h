#pragma once

#include "TMMActYrexMark.h"

#include <QCoreApplication>
#include <QSet>
#include <QUuid>

/// Deletes the peak that is clicked, or those of a band. It ends when none is left.
class TMMActYrexDeletePeaks : public TMMActYrexMark
{
    Q_DECLARE_TR_FUNCTIONS(TMMActYrexDeletePeaks)

public:
    /// The host is not owned and lives longer.
    explicit TMMActYrexDeletePeaks(IPluginHost &host);

    QString hint() const override;

protected:
    void finished(const TYrexModePlot &plot, const TYrexModeDrag &drag) override;
    void paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &spot) override;
    void paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot, const TYrexModeDrag &drag) override;
    bool hasWork(const TYrexSpectrum &spectrum) const override;

private:
    static QUuid pointedPeak(const TYrexModePlot &plot, const QPointF &viewPos);
    static QSet<QUuid> peaksIn(const TYrexModePlot &plot, const TYrexModeDrag &drag);
};
