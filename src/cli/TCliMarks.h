#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class TCanvasYrexSpectrum;
class TCommand;
class TCommandHistory;
class TYrexSpectrum;

/// The peaks that are picked and the ranges that are integrated after the chain, as --pick and --integrate name them.
/// x values are in the shown unit.
class TCliMarks
{
public:
    /// Takes "FROM:TO[:LEVEL]" and "FROM:TO"; false, with an error that names the text, for anything else.
    bool parse(const QStringList &picks, const QStringList &integrals, QString &error);
    bool isEmpty() const { return fPicks.isEmpty() && fIntegrals.isEmpty(); }
    /// Picks in the spectra of an item and integrates in the selected ones, each as a step of the history. Ranges that
    /// miss a spectrum are told in `notes`, once.
    void apply(TCanvasYrexSpectrum &item, TCommandHistory &history, QStringList &notes) const;

private:
    struct TMark
    {
        double fFrom = 0.0;
        double fTo = 0.0;
        double fLevel = 0.0;
        bool fHasLevel = false;
        QString fText; // as it was given
    };

    static bool parseMark(const QString &text, bool takesLevel, TMark &mark);
    static bool isOutside(const TYrexSpectrum &spectrum, const TMark &mark);
    static bool isOutside(const TCanvasYrexSpectrum &item, const TMark &mark);
    static TCommand *pickCommand(TCanvasYrexSpectrum &item, const TMark &mark);
    static TCommand *integrateCommand(TCanvasYrexSpectrum &item, const TMark &mark);

    QVector<TMark> fPicks;
    QVector<TMark> fIntegrals;
};
