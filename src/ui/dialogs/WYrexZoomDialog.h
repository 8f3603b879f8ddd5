#pragma once

#include "plot/TAxisDir.h"
#include "plot/TRange.h"
#include "ui/NamedRanges.h"

#include <QDialog>
#include <QRectF>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QPushButton;
class QToolButton;
class T1DYrexPlot;
class TDoubleSpinBox;
class WProblemLabel;

/// Asks which range a plot shows, by its limits in any order or by a range that has a name.
class WYrexZoomDialog : public QDialog
{
    Q_OBJECT

public:
    /// Begins with what the plot shows; what the dialog needs of the plot is copied. `axis` has the focus.
    WYrexZoomDialog(const T1DYrexPlot &plot, TAxisDir axis, QWidget *parent);

    /// The range along x in the shown unit, and the heights where they are to be set, in scale units. A limit that was
    /// not touched is the plot's own, not the rounded one that the field shows.
    QRectF rect() const;

    void accept() override;

private:
    /// A number box, with the number that it stands for as long as nobody changes it.
    struct TField
    {
        TDoubleSpinBox *fBox = nullptr;
        double fExact = 0.0;
        double fShown = 0.0;

        void set(double value);
        double value() const;
    };

    void makeField(TField &field, const char *name, const QString &accessible, const QString &tip, int decimals);
    void addFieldRows(QGridLayout *grid, const T1DYrexPlot &plot);
    QHBoxLayout *makeRangesRow();
    QHBoxLayout *makeButtons();
    void show(const TRange &horz, const TRange &vert);
    void fillRanges();
    void takeRange(int row);
    void addRange();
    void removeRange();
    QString nameWithLimits(const TNamedRange &range) const;
    void check();

    int fUnit;
    int fDecimals;
    TRange fFullHorz;
    TRange fFullVert;
    TRange fNowHorz;
    TRange fNowVert;
    QVector<TNamedRange> fRangeRows; // behind the first row of the list, which is none of them
    TField fFrom;
    TField fTo;
    TField fYFrom;
    TField fYTo;
    QCheckBox *fSetHeight;
    QComboBox *fRanges;
    QToolButton *fAddRange;
    QToolButton *fRemoveRange;
    WProblemLabel *fHorzProblem;
    WProblemLabel *fVertProblem;
    QPushButton *fOk = nullptr;
    bool fIsLoading = false;
};
