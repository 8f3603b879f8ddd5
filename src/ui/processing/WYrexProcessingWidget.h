#pragma once

#include "TYrexProcParams.h"
#include "WYrexChainList.h"
#include "WYrexPluginDockWidget.h"

#include <QUuid>

class QGroupBox;
class QLabel;
class QPushButton;
class TYrexChainEditor;
class WOpenSaveWidget;
class WYrexActionPanels;

/// The dock in which the chain of the active spectrum is edited. Each touch of a control is at once a command for all
/// selected items.
class WYrexProcessingWidget : public WYrexPluginDockWidget
{
    Q_OBJECT

public:
    explicit WYrexProcessingWidget(IPluginHost &host, QWidget *parent = nullptr);

    void refresh() override;
    void selectionChanged() override;
    void onPluginDestroyed() override;
    /// Chooses the first action of that id.
    Q_INVOKABLE void act_qlistwid(int action);

public slots:
    /// Follows the selection of the list.
    void updateControls();
    /// The controls become the chain.
    void updateSpecParams() { apply(nullptr); }
    void updateItemChanged(QListWidgetItem *item);
    void open(const QString &aFileName);
    void save(const QString &aFileName);
    void onReport();
    void onReportCopy();
    void onReportSetup();
    void onMPBCNewBaseline();
    void removeYrexProcessingAction();
    void duplicateYrexProcessingActions();
    void moveUpProcessingAction();
    void moveDownProcessingAction();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void makeContent();
    void makeReportButton();
    QWidget *makeListGroup();
    QPushButton *makeButton(const char *name, const QString &text, const QString &toolTip,
                            void (WYrexProcessingWidget::*slot)());
    void connectContent();
    /// Controls become values of the chain, and the chain a command. `control` is the one that was touched.
    void apply(QWidget *control);
    /// Gives a chain that was not made by the controls to the items.
    void applyChain(const QVariantList &chain);
    void refuseConversion(QVariantList &chain);
    void endMultipoint(bool isApplied);
    bool isMultipointEdited() const;
    /// Shows the working copy.
    void fill();
    void showPanel();
    void fillPanel();
    QVector<TYrexChainRow> rowsOfList() const;
    void select(int row);
    void moveTo(int from, int to);
    void updateButtons();
    void updateMultipointButton();
    void updateEnabled();
    void showMenu(const QPoint &place);
    void resetRow(int row);
    void copyChain() const;
    void pasteChain();
    void addFirstIntegration();
    bool isManyShown() const;
    int itemCount() const;

    TYrexChainEditor *fEditor;
    TYrexProcParams fParams; // the working copy
    QUuid fShownItem;
    int fShownSpectrum = -1;
    int fRow = -2; // -2: none was ever chosen
    WOpenSaveWidget *fOpenSave = nullptr;
    QWidget *fOpenSaveFrame = nullptr;
    QGroupBox *fGroup = nullptr;
    WYrexChainList *fList = nullptr;
    QPushButton *fRemove = nullptr;
    QPushButton *fDuplicate = nullptr;
    QPushButton *fUp = nullptr;
    QPushButton *fDown = nullptr;
    QLabel *fStackNote = nullptr;
    QLabel *fBaselineNote = nullptr;
    WYrexActionPanels *fPanels = nullptr;
};
