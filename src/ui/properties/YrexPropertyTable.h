#pragma once

#include <QPair>
#include <QString>
#include <QVector>

/// A control of the properties pages and the field that it shows and sets. Texts are translated where they are shown.
struct TYrexPropertyControl
{
    enum TKind {
        check,
        number,
        percent, // a slider with a number, the field is a fraction
        color,
        choice,
        text,
        titleFormat,
        family,
        classes, // a table of the classes of the stack
        units,   // runs the action of a unit; the field is empty
        trigger  // a button that runs an action of the window; the field is empty
    };

    TKind fKind = check;
    QString fKey;           // the field, or the axis of units, or the action of a trigger
    const char *fText = ""; // on the control or as its suffix
    double fLowest = 0.0;   // as shown
    double fHighest = 0.0;
    double fStep = 1.0;
    int fDecimals = 0;
    double fScale = 1.0;          // shown per stored
    const char *fLowestText = ""; // shown in place of the lowest number
    QVector<QPair<int, const char *>> fChoices;
    QString fNeeds; // the check that must be on; with a '!' in front, off
};

/// A row of a page: cells side by side, each with controls. A row without controls is a heading.
struct TYrexPropertyRow
{
    const char *fLabel = "";
    QVector<QVector<TYrexPropertyControl>> fCells;
    QVector<const char *> fHeads; // headings over the cells
};

struct TYrexPropertyPage
{
    const char *fTitle = "";
    QVector<TYrexPropertyRow> fRows;
};

/// The pages in their order.
const QVector<TYrexPropertyPage> &yrexPropertyPages();
/// A text of the table as the user reads it.
QString yrexPropertyText(const char *text);
/// The fields that the controls of a page set.
QStringList yrexPropertyKeys(const TYrexPropertyPage &page);
