#pragma once

#include "canvas/TCanvasItemList.h"

#include <QDialog>
#include <QRect>

class QCheckBox;
class QDialogButtonBox;
class QDoubleSpinBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QSlider;
class QToolButton;
class TCanvasYrexSpectrum;
class TYrexSpectrumListTableModel;

/// Asks for A, B and k of A - k * B, and shows the result over the curve of A while it does. The data stay as they are;
/// what becomes of the answer is the caller's.
class WYrexArithmeticDialog : public QDialog
{
    Q_OBJECT

public:
    /// The items to choose from, which have to outlive the dialog, and the first k.
    WYrexArithmeticDialog(const TCanvasItemList &items, double factor, QWidget *parent = nullptr);
    ~WYrexArithmeticDialog() override;

    /// Null when there is none.
    TCanvasYrexSpectrum *spectrumA() const { return fSpectrumA; }
    TCanvasYrexSpectrum *spectrumB() const { return fSpectrumB; }
    double factor() const;
    /// Whether A is to go back to the data that were read.
    bool isReset() const;
    /// The dialog opens beside this part of the screen where there is room.
    void keepClearOf(const QRect &global) { fKeepClear = global; }

    void done(int result) override;

protected:
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeOperands();
    void makeFactor();
    void makeLayout();
    void chooseFirst();
    void chooseB();
    void pick(int mode);
    void showNames();
    void validate();
    QString problemOfA() const;
    QString problemOfPair() const;
    QString axisDifference() const;
    void judgePair();
    void prepareReset();
    void setVerdict(const QString &message, bool factorUsable, bool acceptable);
    void updatePreview();
    void dropPreview();

    TCanvasYrexSpectrum *fSpectrumA = nullptr;
    TCanvasYrexSpectrum *fSpectrumB = nullptr;
    TYrexSpectrumListTableModel *fModel;
    int fPreviewPoints = 0;
    bool fIsPreviewing = false;
    double fFactor; // the first one
    QRect fKeepClear;
    bool fIsPlaced = false;

    QLabel *fTextLabel1;
    QGroupBox *fSpecAGroupBox;
    QLabel *fFirstSpcLabel;
    QToolButton *fFirstSpcToolButton;
    QCheckBox *fFirstToOriginalCheckBox;
    QGroupBox *fSpecBGroupBox;
    QLabel *fSecondSpcLabel;
    QToolButton *fSecondSpcToolButton;
    QGroupBox *fAddFactorGroupBox;
    QSlider *fAddFactorSlider;
    QDoubleSpinBox *fAddFactorDoubleSpinBox;
    QLabel *fTextLabel3;
    QCheckBox *fPointByPointCheckBox;
    QDialogButtonBox *fButtonBox;
    QPushButton *fOk;
};
