#pragma once

#include <QObject>

class QDialog;

/// What all dialogs of the program and its plug-ins have in common, so that none has to see to it: they come back in
/// the size that the user gave them, and the first field has the focus with its text selected. Boxes of the toolkit
/// are left alone.
class TDialogHabits : public QObject
{
    Q_OBJECT

public:
    /// Followed by the name of the dialog.
    static constexpr char cSizeKey[] = "Kelmora/Dialogs/";

    /// Watches the application until it goes.
    explicit TDialogHabits(QObject *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static QString nameOf(const QDialog &dialog);
    static void restoreSize(QDialog &dialog, const QString &name);
    static void keepSize(const QDialog &dialog, const QString &name);
    static void focusFirstField(QDialog &dialog);
};
