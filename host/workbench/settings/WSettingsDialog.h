#pragma once

#include "WSettingsPage.h"

#include <QDialog>
#include <QList>

class QListWidget;
class QStackedWidget;

/// The settings of the program on pages. OK and Apply write them all, Cancel none.
class WSettingsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit WSettingsDialog(QWidget *parent = nullptr);

    /// Takes a page over.
    void addPage(const QString &title, WSettingsPage *page);
    /// A page that only leads elsewhere.
    void addPlainPage(const QString &title, QWidget *page);
    /// Shows the page with that number, from 0.
    void showPage(int page);
    void accept() override;

signals:
    /// All pages have written their settings.
    void applied();

private:
    void apply();

    QListWidget *fTitles;
    QStackedWidget *fStack;
    QList<WSettingsPage *> fPages;
};
