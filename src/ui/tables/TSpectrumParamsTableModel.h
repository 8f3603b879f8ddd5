#pragma once

#include "YrexParamRows.h"
#include "canvas/TSecurePtr.h"
#include "plot/TAxisDir.h"
#include "widgets/TBaseTableViewModel.h"

#include <QSet>
#include <QUuid>

class IPluginHost;
class TCanvasItem;
class TCanvasYrexSpectrum;
class TCommand;

/// The parameters of an item's spectra in groups that fold: one value for all spectra in use, or a column for each.
class TSpectrumParamsTableModel : public TBaseTableViewModel
{
    Q_OBJECT

public:
    enum TColumn { cParameter, cFirstValue };
    /// With what a value is edited in its cell.
    enum TEditor { cNoEditor, cLineEditor, cTextEditor, cDateEditor, cChoiceEditor };
    /// The TEditor of a cell, and for a choice the list of its texts.
    static constexpr int cEditorRole = Qt::UserRole + 20;
    static constexpr int cChoicesRole = Qt::UserRole + 21;
    static constexpr int cMostCompared = 64; // columns; more cannot be read side by side

    /// The host is not owned and lives longer.
    explicit TSpectrumParamsTableModel(IPluginHost &host, QObject *parent = nullptr);

    /// Reads the parameters of an item's spectra in use; null for none.
    void read(TCanvasYrexSpectrum *item);
    TCanvasYrexSpectrum *item() const;
    /// Rows that the recipe hides, and those that are empty and cannot be filled, are there as well.
    void setAll(bool all);
    /// A column per spectrum in use, at most cMostCompared.
    void setComparing(bool comparing);
    /// These parameters alone, by their ids, without headings; empty for all.
    void setOnly(const QSet<int> &ids);
    /// The ids of parameters in these rows; headings have none.
    QVector<int> idsOf(const QVector<int> &rows) const;
    /// How many spectra are in use.
    int usedCount() const { return fUsed.size(); }
    /// Whether other spectra are in use than those that were read.
    bool isStale() const;
    bool isComparing() const { return fIsComparing; }

    bool isHeading(int row) const { return fRows.at(row).fId == cHeadingId; }
    /// Folds or unfolds the group of a heading; nothing for other rows.
    void toggleGroup(int row);
    void setAllFolded(bool folded);
    /// Empties the values of these rows that can be emptied, as one step.
    void clear(const QVector<int> &rows);

    QVariant data(const QModelIndex &place, int role) const override;

protected:
    QString text(int row, int column) const override;
    QVariant number(int row, int column) const override;
    int autoDecimals(int row, int column) const override;
    bool isEditable(int row, int column) const override;
    QString toolTip(int row, int column) const override;
    bool edit(int row, int column, const QString &text) override;

private:
    static constexpr int cHeadingId = 0;

    QVector<TTableColumn> makeColumns(const TCanvasYrexSpectrum *item, const QVector<int> &used) const;
    QVector<TYrexParamRow> withHeadings(const QVector<TYrexParamRow> &rows) const;
    QString rawText(int row, int column) const;
    bool isMixed(int row, int column) const;
    bool isLockedUnit(int row, int column) const;
    TEditor editorOf(int row, int column) const;
    bool isTyped(int row, int column, QString &text);
    bool setUnit(TAxisDir axis, const QString &name);
    bool setText(int id, int column, const QString &text);
    bool push(TCommand *command) const;
    void noteImport(TCanvasYrexSpectrum *item);
    QVariant fontOf(int row, int column) const;

    IPluginHost &fHost;
    TSecurePtr<TCanvasItem> fItem;
    QVector<TYrexParamRow> fRows;
    QVector<int> fUsed; // indices of spectra
    QSet<int> fFolded;  // groups
    QSet<int> fOnly;    // ids; empty for all
    int fActive = 0;
    bool fIsAll = false;
    bool fIsComparing = false;
    QUuid fImportOf; // the item of which the next is known
    QDateTime fImported;
};
