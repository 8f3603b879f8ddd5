#pragma once

#include "TYrexIntegrationRegion.h"
#include "script/ScriptUtils.h"
#include "script/TWrapperTemplate.h"

#include <QScriptable>
#include <functional>

class QScriptEngine;

/// An integration region, as scripts see it: with its bounds in the unit of the list that it comes from.
class TYrexIntegralWrapper : public TWrapperTemplate<TYrexIntegrationRegion>, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(QString id READ id WRITE refuseWrite)
    Q_PROPERTY(double area READ area WRITE refuseWrite)
    Q_PROPERTY(bool isReference READ isReference WRITE refuseWrite)
    Q_PROPERTY(QString objectName READ objectName SCRIPTABLE false)

public:
    using TNorm = std::function<double()>;

    /// A region that stands in no list.
    explicit TYrexIntegralWrapper(const TYrexIntegrationRegion &region);
    /// One of a list, which may go; `norm` gives the list's norm value.
    TYrexIntegralWrapper(const TFinder &finder, const TNorm &norm);

    /// Publishes the class; its constructor takes the two bounds.
    static void install(QScriptEngine *engine);

    QString id() const;
    /// The sum of the values, signed.
    double area() const;
    bool isReference() const;

    /// Of what scripts may only read.
    template <class T>
    void refuseWrite(const T &)
    {
        Utils::Script::refuseWriting(context());
    }

public slots:
    bool isValid() const;
    /// The shown value: the absolute area over the norm value of the list, or over a given one.
    double integralValue() const;
    double integralValue(double aNorm) const;
    /// The smaller and the larger bound.
    double rangeMin() const;
    double rangeMax() const;
    QString toString() const;

private:
    TNorm fNorm;
};
