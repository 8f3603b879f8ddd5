#pragma once

#include "TYrexMultipointSession.h"
#include "commands/TPlotSnapshot.h"
#include "services/IEditSession.h"
#include "widgets/WPluginDockWidget.h"

#include <QUuid>
#include <memory>

class IPluginHost;
class TCanvasYrexSpectrum;
class TCommandHistory;
class TYrexBaselinePointsModel;
class WYrexBaselinePointDialog;
class WYrexMultipointForm;

/// The dock in which a multipoint baseline is built. Its session begins when it is shown and ends with it: applied as
/// one processing step, or without a trace. It works on the active spectrum of the active item.
class WYrexMultipointBaselineDock : public WPluginDockWidget, public IEditSession
{
    Q_OBJECT

public:
    /// The host is not owned and lives longer.
    explicit WYrexMultipointBaselineDock(IPluginHost &host);
    ~WYrexMultipointBaselineDock() override;

    void refresh() override;
    void onPluginDestroyed() override;

    /// The session under way; null for none.
    TYrexMultipointSession *session() const { return fSession.get(); }
    /// The item whose baseline is edited; null for none.
    TCanvasYrexSpectrum *editedItem() const;
    /// The kind that a click adds.
    int kind() const;
    int selectedPoint() const;
    /// -1 for none.
    void selectPoint(int index);
    /// The points were changed by someone else, within a drag or at its end.
    void showEdit();
    /// Asks for the place of a point in a dialog; does not wait for the answer.
    void editPlace(int index);

    bool canUndo() const override { return fSession && fSession->canUndo(); }
    bool canRedo() const override { return fSession && fSession->canRedo(); }
    void undo() override;
    void redo() override;
    bool leave() override;
    /// The unit in which x is shown may change meanwhile.
    bool allows(const TCommand &command) const override;
    void stepAside() override;
    void comeBack() override;

public slots:
    /// Ends the session as one processing step; nothing without a session or with less than two points.
    void on_action_Apply_triggered();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void connectActions();
    void connectForm();

    void standInFront();
    void begin();
    /// Asks what becomes of changed points and ends the session; false when the user goes on.
    bool askAndEnd();
    /// The edited item and its spectrum are the active ones again.
    void goBack();
    void applySession();
    void cancelSession();
    void dropSession();
    void sessionEnded();
    void setPreviewing(bool on);
    void redraw();
    void refreshOthers();
    void showState();
    void showHeader();
    void clearPoints();
    void copyPoints() const;
    void pastePoints();
    void placePoint(int index, const WYrexBaselinePointDialog &wanted);
    bool isOwnChain() const;
    bool isElsewhere() const;
    int shownUnit() const;

    IPluginHost &fHost;
    std::unique_ptr<TYrexMultipointSession> fSession;
    TSecurePtr<TCanvasItem> fEdited;
    TCommandHistory *fHistory = nullptr; // of the document of the edited item, as long as that lives
    QVariantList fChain;                 // of the spectrum, as the session left it
    TPlotSnapshot fPlotBefore;           // before the preview
    bool fIsEnding = false;
    bool fPreviewsAgain = false; // after comeBack

    TYrexBaselinePointsModel *fModel;
    WYrexMultipointForm *fForm;
};
