#pragma once

#include <QObject>

class TActionTable;
class TDocument;
class TDocumentController;

/// Dark paper: plots are drawn light on dark in the window. It is a way of looking: nothing of it is stored in
/// documents, and pictures keep their white paper.
class TDarkPaper : public QObject
{
    Q_OBJECT

public:
    TDarkPaper(TActionTable &actions, TDocumentController &documents, QObject *parent);

    bool isOn() const { return fIsOn; }
    /// Kept as a setting.
    void setOn(bool on);

private:
    void applyTo(TDocument *document) const;

    TDocumentController &fDocuments;
    bool fIsOn = false;
};
