#pragma once

#include "TExportController.h"

#include <QDialog>
#include <functional>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class QTimer;

/// Asks what becomes a picture, in which form and size, and shows it.
class WExportPictureDialog : public QDialog
{
    Q_OBJECT

public:
    using TMakePictures = std::function<QList<TPictureExporter>(const TPictureRequest &)>;

    /// Without a selected item there are pages only.
    WExportPictureDialog(const TMakePictures &makePictures, bool hasItem, QWidget *parent);

    TPictureRequest request() const;
    /// The file name without its ending; for several "{Number}" and "{Title}" stand for those of the page.
    QString name() const;
    void setName(const QString &name);

protected:
    void accept() override;

private:
    enum TSizeUnit { cMillimetres, cPixels };

    void makeControls(bool hasItem);
    void layOut();
    void restore();
    void takeOwnSize();
    void changeUnit();
    void changeSide(QDoubleSpinBox *changed);
    void updateControls();
    void showPreview();
    double unitsPerMm() const;
    TPictureRequest::TWhat what() const;
    TPictureExporter::TForm form() const;

    TMakePictures fMakePictures;
    QSizeF fSizeMm; // exact, whatever the fields round to
    QComboBox *fWhat;
    QComboBox *fForm;
    QDoubleSpinBox *fWidth;
    QDoubleSpinBox *fHeight;
    QComboBox *fUnit;
    QSpinBox *fResolution;
    QComboBox *fBackground;
    QCheckBox *fTextAsText;
    QLineEdit *fName;
    QLabel *fPreview;
    QLabel *fFacts;
    QTimer *fTimer; // the preview waits for the end of an edit
};
