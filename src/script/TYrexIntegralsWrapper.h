#pragma once

#include "TYrexIntegrationRegions.h"
#include "TYrexSpectrumRef.h"
#include "history/THistoryParameter.h"
#include "script/ScriptUtils.h"
#include "script/TWrapperTemplate.h"

#include <QScriptValue>
#include <QScriptable>
#include <functional>

class QScriptEngine;

/// The integration regions of a spectrum, as scripts see them: bounds are x values in one unit. Edits reach the
/// spectrum as steps of the history.
class TYrexIntegralsWrapper : public TWrapperTemplate<TYrexIntegrationRegions>, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(int count READ count WRITE refuseWrite)
    Q_PROPERTY(double normValue READ normValue WRITE setNormValue)
    Q_PROPERTY(THistoryItem *historyItem READ historyItem SCRIPTABLE false)
    Q_PROPERTY(QString objectName READ objectName SCRIPTABLE false)

public:
    TYrexIntegralsWrapper(const TYrexSpectrumRef &spectrum, int unit);

    /// Publishes the class; its constructor takes a spectrum.
    static void install(QScriptEngine *engine);

    /// The regions as they are now; null once the spectrum has gone.
    TYrexIntegrationRegions *wrapped() const override;
    int unit() const { return fUnit; }
    THistoryItem *historyItem() const;
    int count() const;
    double normValue() const;
    void setNormValue(double value);

    /// Of what scripts may only read.
    template <class T>
    void refuseWrite(const T &)
    {
        Utils::Script::refuseWriting(context());
    }

public slots:
    bool isValid() const;
    QString toString() const;
    /// The region at a place from 0; undefined beyond the list.
    QScriptValue at(int aIndex = -1) const;
    QScriptValue removeAt(int aIndex = -1);
    QScriptValue clear();
    /// Takes one ZarnuIntegral; its area is computed from the spectrum's data.
    QScriptValue append();
    /// Takes an id, or an x: the region with that id, or the first that holds x. Undefined for none.
    QScriptValue findIntegral() const;

private:
    using TEdit = std::function<void(TYrexIntegrationRegions &, const TYrexSpectrum &)>;

    QScriptValue wrap(const QUuid &id) const;
    /// Makes and runs a command that does the edit on the spectrum's own list, whose bounds are points.
    QScriptValue edit(const QString &description, const TEdit &edit, const QList<THistoryParameter> &params);
    TYrexIntegrationRegions *ownRegions() const;

    TYrexSpectrumRef fSpectrum;
    int fUnit;
    mutable TYrexIntegrationRegions fShown; // as of the last look
};
