#pragma once

#include "TYrexDPLib.h"
#include "script/ScriptUtils.h"
#include "script/TWrapperTemplate.h"

#include <QScriptable>

class QScriptEngine;

/// A peak, as scripts see it: a copy with its position in the unit that was asked for.
class TYrexDPPeakWrapper : public TWrapperTemplate<TYrexDPLib::TYrexDPPeak>, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(double center READ center WRITE refuseWrite)
    Q_PROPERTY(double intensity READ intensity WRITE refuseWrite)
    Q_PROPERTY(double width READ width WRITE refuseWrite)
    Q_PROPERTY(bool isPositive READ isPositive WRITE refuseWrite)
    Q_PROPERTY(bool isAuto READ isAuto WRITE refuseWrite)
    Q_PROPERTY(QString annotation READ annotation WRITE refuseWrite)
    Q_PROPERTY(QString id READ id WRITE refuseWrite)
    Q_PROPERTY(QString objectName READ objectName SCRIPTABLE false)

public:
    /// `width` in the unit of the position.
    explicit TYrexDPPeakWrapper(const TYrexDPLib::TYrexDPPeak &peak, double width = 0.0);

    /// Publishes the class; without arguments its constructor makes a peak at 0.
    static void install(QScriptEngine *engine);

    double center() const;
    double intensity() const;
    /// Full width at half height over the ground of the peak, as the peaks table shows it; 0 where there is none.
    double width() const { return fWidth; }
    bool isPositive() const;
    bool isAuto() const;
    QString annotation() const;
    QString id() const;

    /// Of what scripts may only read.
    template <class T>
    void refuseWrite(const T &)
    {
        Utils::Script::refuseWriting(context());
    }

public slots:
    QString toString() const;

private:
    double fWidth;
};
