#pragma once

#include "TPaletteEntries.h"

#include <QFrame>
#include <QPointer>

class QLineEdit;
class QListWidget;

/// One line over a list of all that can be run; typing narrows the list. Enter or a click runs, Escape closes. It lies
/// over the window and goes when the focus does.
class WCommandPalette : public QFrame
{
    Q_OBJECT

public:
    static constexpr char cRecentKey[] = "Kelmora/Palette/Recent";
    static constexpr int cMaxRecent = 20;
    using TCollect = std::function<QVector<TPaletteEntry>()>;

    /// `collect` is asked each time that the palette opens.
    WCommandPalette(const TCollect &collect, QWidget *window);

    void open();
    /// Gives the focus back to what had it.
    void dismiss();
    /// The titles that the list shows, from above.
    QStringList titles() const;

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void fill();
    void runCurrent();
    void place();
    static void remember(const QString &id);

    TCollect fCollect;
    QLineEdit *fLine;
    QListWidget *fList;
    QVector<TPaletteEntry> fEntries;
    QPointer<QWidget> fFocusBefore;
};
