#pragma once

#include "params/TSpectrumParamsTemplate.h"

#include <QDialog>

class QAbstractButton;
class QTableView;
class TYrexParamTemplatesModel;
class TYrexSpectrum;

/// Edits which parameters are read from files of a format, in which order, and how.
class WYrexParamTemplatesDialog : public QDialog
{
    Q_OBJECT

public:
    /// The format is that of the spectrum, which has a parser.
    explicit WYrexParamTemplatesDialog(const TYrexSpectrum &spectrum, QWidget *parent = nullptr);

    TSpectrumParamsTemplate templates() const;
    /// Whether these are other ones than those in use.
    bool isChanged() const;

private:
    QWidget *makeButtons();
    void makeView();
    void updateButtons();
    void select(int row);
    int row() const;

    TYrexParamTemplatesModel *fModel;
    QTableView *fView;
    QAbstractButton *fRemove = nullptr;
    QAbstractButton *fUp = nullptr;
    QAbstractButton *fDown = nullptr;
};
