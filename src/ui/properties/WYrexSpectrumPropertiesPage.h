#pragma once

#include "TMultiYrexSpectrumPropertiesBag.h"
#include "YrexPropertyWidgets.h"
#include "canvas/TSecurePtr.h"
#include "properties/WPropertiesPages.h"

#include <QTimer>
#include <memory>

class IPluginHost;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QMenu;
class QStackedWidget;
class TCanvasYrexSpectrum;
class WYrexClassesTable;
struct TYrexPropertyControl;
struct TYrexPropertyPage;
struct TYrexPropertyRow;

/// The properties of spectrum items. The controls stand in YrexPropertyTable; each is bound to its field. What is done
/// to one control without a pause is one step.
class WYrexSpectrumPropertiesPage : public WPropertiesPages
{
    Q_OBJECT

public:
    /// The host is not owned and lives longer.
    explicit WYrexSpectrumPropertiesPage(IPluginHost &host, QWidget *parent = nullptr);
    ~WYrexSpectrumPropertiesPage() override;

    QStringList titles() const override;
    void showPage(int page) override;
    void setItems(const TCanvasItemList &items) override;
    void setLive(bool live) override;
    bool hasPending() const override { return fHasPending; }
    void apply() override;
    void resetPage(int page) override;
    void resetAll() override;
    void saveAsDefault() override;
    void removeDefaults() override;
    QStringList presets() const override;
    void applyPreset(int preset) override;

private:
    struct TBound
    {
        const TYrexPropertyControl *fControl; // of the table
        TYrexPropertyWidget fMade;
    };

    QWidget *makePage(const TYrexPropertyPage &page);
    void addRow(QGridLayout *grid, int line, const TYrexPropertyRow &row);
    QWidget *makeControl(const TYrexPropertyControl &control, const QString &label, QWidget *parent);
    QWidget *makeClasses(const TYrexPropertyControl &control, QWidget *parent);
    QWidget *makeTrigger(const TYrexPropertyControl &control, QWidget *parent);
    QWidget *makeUnits(const TYrexPropertyControl &control, QWidget *parent);
    QWidget *makePlaceholders(QLineEdit *line);
    void fillPlaceholders(QMenu *menu, QLineEdit *line);
    void showUnits();
    void showFields();
    void showNeeds();
    void showTitleColor();
    TCanvasItemList items() const;
    TCanvasYrexSpectrum *first() const;
    void edited(const QString &key, const QVariant &value);
    void setPending(bool pending);
    void beginRun(const QString &key);
    void endRun();
    /// Sets fields of all items as one step.
    void set(const QVariantMap &fields);

    IPluginHost &fHost;
    QStackedWidget *fStack;
    WYrexClassesTable *fClasses = nullptr;
    QVector<TBound> fBound;
    QVector<QComboBox *> fUnits; // horizontal, vertical
    QVector<TSecurePtr<TCanvasItem>> fItems;
    std::unique_ptr<TMultiYrexSpectrumPropertiesBag> fBag;
    bool fIsLive = true;
    bool fHasPending = false;
    QTimer fRunEnd;
    QString fRunKey; // the field of the present edit run
    int fRunGesture = 0;
};
