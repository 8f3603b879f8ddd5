#pragma once

#include "TMMActYrexMark.h"

#include <QCoreApplication>
#include <QUuid>

class TYrexIntegrationRegion;

/// Deletes the integral that is clicked, or those that a band touches. It ends when none is left.
class TMMActYrexDeleteIntegrals : public TMMActYrexMark
{
    Q_DECLARE_TR_FUNCTIONS(TMMActYrexDeleteIntegrals)

public:
    /// The host is not owned and lives longer.
    explicit TMMActYrexDeleteIntegrals(IPluginHost &host);

    QString hint() const override;

protected:
    void finished(const TYrexModePlot &plot, const TYrexModeDrag &drag) override;
    void paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &spot) override;
    void paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot, const TYrexModeDrag &drag) override;
    bool hasWork(const TYrexSpectrum &spectrum) const override;

private:
    static int pointedRegion(const TYrexModePlot &plot, const TMouseSpot &spot);
    static void paintRegion(const TYrexModePaint &paint, const TYrexModePlot &plot,
                            const TYrexIntegrationRegion &region, bool crossed);
};
