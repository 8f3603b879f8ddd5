#pragma once

#include "widgets/WPluginDockWidget.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QTableView;
class QTimer;
class QTreeWidget;
class TDocument;
class TDocumentController;
class THistoryModel;

/// The dock with the steps of the document that is shown. A click on a step goes to its state.
class WHistoryPane : public WPluginDockWidget
{
    Q_OBJECT

public:
    static constexpr char cViewStepsKey[] = "Kelmora/Plot/ViewSteps";

    explicit WHistoryPane(TDocumentController &documents, QWidget *parent = nullptr);

    THistoryModel *model() const { return fModel; }
    QTableView *view() const { return fView; }
    QTreeWidget *details() const { return fDetails; }
    /// Undoes or does again until the document is in the state of a row; nothing for one that cannot be reached.
    void goTo(int row);
    /// The selected rows, as lines of texts between tabs.
    void copy() const;
    /// The selected steps that are done as a script; all of them while only the present state is selected.
    void copyAsScript() const;
    void saveAsScript();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QLayout *makeFilter();
    void makeView();
    void showDocument(TDocument *document);
    void update();
    void updateFilter();
    void updateItems();
    void showDetails();
    QList<int> chosenSteps() const;
    void showMenu(const QPoint &place);

    TDocumentController &fDocuments;
    THistoryModel *fModel;
    QTableView *fView;
    QTreeWidget *fDetails;
    QComboBox *fItems;
    QLineEdit *fText;
    QCheckBox *fViewSteps;
    QTimer *fUpdate; // steps of one action come together
};
