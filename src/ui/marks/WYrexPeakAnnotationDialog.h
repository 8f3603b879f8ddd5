#pragma once

#include <QDialog>
#include <QStringList>

class QLabel;
class QLineEdit;

/// Asks for the annotation of a peak. Shows it as the plot will, with its super- and subscripts.
class WYrexPeakAnnotationDialog : public QDialog
{
    Q_OBJECT

public:
    /// `peak` says which one ("1601.2 cm-1, 0.842"), `prefix` what stands before the annotation in the label.
    /// `known` are annotations to complete from.
    WYrexPeakAnnotationDialog(const QString &peak, const QString &prefix, const QString &annotation,
                              const QStringList &known, QWidget *parent);

    QString annotation() const;

private:
    QWidget *makePalette();
    void drawPreview();

    QString fPrefix;
    QLineEdit *fLine;
    QLabel *fPreview;
};
