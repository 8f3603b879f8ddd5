#pragma once

#include <QDialog>
#include <memory>

class QFormLayout;
class TKelmoraHost;
class TScratchImport;

/// Shows what was read of pasted numbers before they become a spectrum; Return takes them.
class WPastePreview : public QDialog
{
    Q_OBJECT

public:
    /// `table` was read and has items.
    WPastePreview(std::unique_ptr<TScratchImport> table, const TKelmoraHost &host, QWidget *parent = nullptr);
    ~WPastePreview() override;

    TScratchImport &table() { return *fTable; }
    /// The text beside a label; empty when it is not told.
    QString fact(const QString &label) const;

private:
    void addFact(const QString &label, const QString &text);
    void addNumbers();
    void addUnits(const TKelmoraHost &host);

    std::unique_ptr<TScratchImport> fTable;
    QFormLayout *fFacts;
};
