#pragma once

#include <QWidget>

class QAction;
class QActionGroup;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLayout;
class QSpinBox;
class QTableView;
class TDoubleSpinBox;
class TYrexBaselinePointsModel;
class TYrexMultipointSession;

/// The controls of the dock of a multipoint baseline. They show a session and tell what the user wants of it; they
/// change nothing by themselves but the kind of point that is remembered.
class WYrexMultipointForm : public QWidget
{
    Q_OBJECT

public:
    /// What can be done with the whole of the points; the place in the list is that of action().
    enum TAction { cAutoPoints, cBorderPoints, cClear, cUndo, cRedo, cCancel, cApply, cActions };

    /// The model is not owned and lives longer.
    explicit WYrexMultipointForm(TYrexBaselinePointsModel *model);

    QAction *action(TAction which) const { return fActions[which]; }
    /// The kind that a click adds: 1, 2 or 3.
    int kind() const;
    /// -1 for none.
    int selectedPoint() const;
    /// Any index outside of the list selects none.
    void selectPoint(int index);

    /// Shows set-up, counts and what is possible; null for no session.
    void showSession(const TYrexMultipointSession *session);
    /// Hidden when it is empty.
    void setHeader(const QString &text);
    /// Sets the check of the preview without telling.
    void setPreviewChecked(bool on);

signals:
    void algorithmChosen(int algorithm);
    void avgWindowChosen(int points);
    void lambdaChosen(int lambda);
    void previewChosen(bool on);
    void pointSelected();
    void copyWanted();
    void pasteWanted();
    void deleteWanted();

private:
    void makeKinds();
    void makeActions();
    void makeTable();
    void makeBoxes();
    QLayout *makeCurveRow();
    QLayout *makeButtons();
    void makeColumn();

    QActionGroup *fKinds;
    QAction *fActions[cActions] = {};
    QLabel *fHeader;
    QLabel *fNothing;
    QLabel *fCount;
    QComboBox *fAlgorithm;
    QSpinBox *fWindow;
    TDoubleSpinBox *fLambda;
    QCheckBox *fPreview;
    QTableView *fTable;
    TYrexBaselinePointsModel *fModel;
};
