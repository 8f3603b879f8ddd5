#pragma once

#include "canvas/TSecurePtr.h"
#include "plot/TAxis.h"

#include <QDialog>
#include <QUuid>
#include <QVector>

class QCheckBox;
class QLabel;
class QPushButton;
class TCanvasYrexSpectrum;
class TCommandHistory;
class TDoubleSpinBox;
class TYrexIntegrationRegion;
class TYrexSpectrum;
class WProblemLabel;

/// Edits the integrals of an item's active spectrum: their limits, and the value that one of them shows. Nothing is
/// changed before it is accepted; `apply` does it then.
class WYrexIntegralDialog : public QDialog
{
    Q_OBJECT

public:
    enum TField { cFrom, cTo, cValue };

    /// `field` has the focus at first.
    WYrexIntegralDialog(TCanvasYrexSpectrum *item, const QUuid &integral, TField field, QWidget *parent);

    /// Makes the commands of what was changed, as one step.
    void apply(TCommandHistory &history) const;
    /// The limits of the integral that is shown, in the plot's unit.
    TRange band() const;
    QUuid integral() const;

signals:
    /// Other limits are shown, or another integral.
    void bandChanged();

private:
    struct TRow
    {
        QUuid fId;
        double fFrom; // shown unit
        double fTo;
        bool fFromChanged;
        bool fToChanged;
    };

    void makeFields();
    void showRow();
    void showFigures();
    void limitsEdited();
    void valueEdited(double value);
    void makeReference();
    TYrexSpectrum *spectrum() const;
    /// A region as it would be.
    TYrexIntegrationRegion edited(const TRow &row) const;

    TSecurePtr<TCanvasYrexSpectrum> fItem;
    int fUnit;
    QVector<TRow> fRows;
    int fRow = 0;
    int fReference = -1; // row that becomes the reference; -1: stays
    double fNorm;
    TDoubleSpinBox *fFrom;
    TDoubleSpinBox *fTo;
    TDoubleSpinBox *fValue;
    QCheckBox *fReferenceBox;
    QLabel *fFigures;
    WProblemLabel *fProblem;
    QPushButton *fPrevious;
    QPushButton *fNext;
    QPushButton *fOk;
    bool fIsLoading = false;
};
