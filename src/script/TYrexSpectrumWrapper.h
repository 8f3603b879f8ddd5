#pragma once

#include "TYrexSpectrumRef.h"
#include "script/TCanvasBaseSpectrumWrapper.h"

#include <QList>
#include <QVector>

class QScriptEngine;
class TCommand;
class TYrexProcParams;
struct THistoryParameter;

/// An item with spectra, as scripts see it: one spectrum of its stack, or whichever is the active one. What it changes
/// are steps of the history, but for setDataPoint.
class TYrexSpectrumWrapper : public TCanvasBaseSpectrumWrapper
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE refuseWrite)
    Q_PROPERTY(QString comment READ comment WRITE setComment)
    Q_PROPERTY(QString originalFormat READ originalFormat WRITE refuseWrite)
    Q_PROPERTY(int specCount READ specCount WRITE refuseWrite)
    Q_PROPERTY(QScriptValue curSpecIndex READ curSpecIndexValue WRITE setCurSpecIndex)
    Q_PROPERTY(QScriptValue spectra READ spectra WRITE refuseWrite)
    Q_PROPERTY(QScriptValue realMax READ realMax WRITE refuseWrite)
    Q_PROPERTY(QScriptValue realMin READ realMin WRITE refuseWrite)
    Q_PROPERTY(QScriptValue realFirstX READ realFirstX WRITE refuseWrite)
    Q_PROPERTY(QScriptValue realLastX READ realLastX WRITE refuseWrite)

public:
    explicit TYrexSpectrumWrapper(TCanvasYrexSpectrum *item, int index = TYrexSpectrumRef::cActive);

    /// Publishes the class; its constructor takes an item with spectra.
    static void install(QScriptEngine *engine);

    int part() const override { return fSpectrumIndex; }
    TYrexSpectrumRef ref() const;
    /// Whether it was made for one spectrum of the stack, as those of `spectra` are.
    bool isOneOfStack() const { return fSpectrumIndex >= 0; }
    TCanvasYrexSpectrum *yrex() const;
    TYrexSpectrum *spectrumOf() const { return ref().spectrum(); }

    QString title() const;
    QString comment() const;
    void setComment(const QString &text);
    QString originalFormat() const;
    int specCount() const;
    int curSpecIndex() const;
    QScriptValue curSpecIndexValue() const { return curSpecIndex(); }
    void setCurSpecIndex(const QScriptValue &place);
    QScriptValue spectra() const;
    QScriptValue realMax() const;
    QScriptValue realMin() const;
    QScriptValue realFirstX() const;
    QScriptValue realLastX() const;

public slots:
    bool isValid() const { return TCanvasItemWrapper::isValid(); }
    bool isValid(int aDim) const;
    /// Number of points.
    int count() const;
    int count(int aDim) const;
    bool activeSpectrumHasPeaks() const;
    /// An array of ZarnuDPPeak, in the unit that is shown or the x unit that is given first, by name or number.
    QScriptValue peaks() const;
    /// Picks peaks with standard settings where there are none.
    QScriptValue forceStdPeaks();
    /// The ZarnuIntegrals, in the unit that is shown or the x unit given, by name or number.
    QScriptValue integrals() const;
    QScriptValue setIntegrals();
    QScriptValue integralValueInInterval() const;
    QScriptValue processing() const;
    QScriptValue setProcessing(const QScriptValue &aProc = QScriptValue());
    QScriptValue process(const QString &aProcFile);
    QScriptValue process();
    void update() override;
    QScriptValue zoom();
    bool isSpectrumSelected(int aIndex = -1) const;
    bool isSpectrumVisible(int aIndex = -1) const;
    QScriptValue appendSpectrum();
    bool removeSpectrum(int aIndex = -1);
    QScriptValue dataPoint() const;
    QScriptValue setDataPoint();
    QScriptValue getStackedClasses() const;
    QScriptValue setStackedClasses();
    QScriptValue getSetOrigXUnits(const QString &aUnits = QString(), bool aGet = true);
    QScriptValue getSetOrigYUnits(const QString &aUnits = QString(), bool aGet = true);
    QStringList paramNames(bool aIncludeHidden) const;
    QStringList paramNames() const;
    QScriptValue isReadOnlyParam() const;
    QScriptValue getParam() const;
    QScriptValue setParam();

    QString toString() const;
    /// What JSON.stringify writes: an object with id, title, units as shown, counts and range.
    QScriptValue toJSON() const override;
    /// Takes a text: the title of the spectrum.
    QScriptValue setTitle();
    /// Takes the names of the x unit and, if wanted, of the y unit: says what the axes of all spectra of the item are.
    /// No value changes.
    QScriptValue setUnits();
    /// Takes the name of an x unit in which the plot shows the item.
    QScriptValue showXUnits();
    /// The x of all points, in the unit that is shown, or in one given by its name or code.
    QScriptValue xValues() const;
    /// The values of all points, as the chain left them.
    QScriptValue yValues() const;
    /// Takes an x and, if wanted, its unit: the value there on the straight line between two points. Undefined outside
    /// of the data.
    QScriptValue valueAt() const;
    /// Takes two x in the unit that is shown: the part that the plot shows.
    QScriptValue showRange();
    /// Takes the place of a peak in peaks() and a text that stands at its label.
    QScriptValue setPeakAnnotation();
    /// Takes a ZarnuDPPeak of peaks(), or an array of them: takes these peaks away, as one step.
    QScriptValue removePeaks();
    /// How the plot looks: an object from key to value.
    QScriptValue properties() const;
    /// Takes an object with some of these keys and new values.
    QScriptValue setProperties();

private:
    /// Pushes a command under a description, with parameters for its entries; what doScriptHistoryCommand says.
    bool commit(TCommand *command, const QString &description, const QList<THistoryParameter> &params);
    QScriptValue fail(int code, const QString &text = QString()) const;
    QScriptValue getSetOrigUnits(bool isX, const QString &units, bool isGet);
    /// Reads a chain of either form; throws where that fails. False then.
    bool loadChain(const QString &path, TYrexProcParams &params) const;
    void runChain(const TYrexProcParams &params, int last, const QList<THistoryParameter> &history);
    QScriptValue peaksIn(int unit) const;
    /// Commands on peaks speak of the active spectrum: throws for another one. False then.
    bool isActiveOrThrows() const;
    /// The one or two names of units that were given; throws for others, and is empty then.
    QVector<int> takeUnitNames() const;
    /// The unit of an argument: that which is shown where it is undefined. False for an unknown one.
    bool takeXUnit(const QScriptValue &argument, int &unit) const;

    int fSpectrumIndex;
};
