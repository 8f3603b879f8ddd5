#pragma once

#include <QGroupBox>
#include <QVariantMap>
#include <QVector>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QSlider;
class QSpinBox;
class TDoubleSpinBox;
class TYrexSpectrum;

/// The controls of one processing action. It knows the action as its map of keys only: loading is no edit, and storing
/// leaves the values of untouched controls as they were, digits that a control does not show included.
class WYrexActionPanel : public QGroupBox
{
    Q_OBJECT

public:
    /// `objectName` is that of the group box; the title is the action's label.
    WYrexActionPanel(const QString &objectName, int action, QWidget *parent = nullptr);

    int action() const { return fAction; }
    /// Shows the values of a map. A key that it lacks leaves its control as it is.
    void load(const QVariantMap &map);
    /// Writes the values of the controls.
    virtual void store(QVariantMap &map);
    /// The spectrum that the values are for; null for none. Called before each load.
    virtual void setSpectrum(const TYrexSpectrum *) {}

signals:
    /// The user changed a value. Edits of one control that come shortly after each other are one run.
    void edited(QWidget *control);
    /// A slider is held from now on, or was let go.
    void held(bool isHeld);

protected:
    /// Sets ranges, texts and what can be used by the values of the controls.
    virtual void couple() {}
    /// Makes room for any value, before one is loaded.
    virtual void widenRanges() {}
    /// Shows the keys that no control of the table stands for.
    virtual void loadOthers(const QVariantMap &) {}
    QFormLayout *form() const { return fForm; }
    bool isLoading() const { return fIsLoading; }
    /// Couples the controls after an edit and tells of it.
    void noteEdit(QWidget *control);
    void setKey(const QWidget *control, const QString &key);

    /// Controls come with their label, tool tip and key; an empty key stands for none. The row of the form is theirs.
    QComboBox *addCombo(const QString &name, const QString &label, const QString &key, const QVector<int> &options,
                        const QString &toolTip);
    TDoubleSpinBox *addNumber(const QString &name, const QString &label, const QString &key, double min, double max,
                              double step, int decimals, const QString &toolTip);
    QSpinBox *addCount(const QString &name, const QString &label, const QString &key, int min, int max, int step,
                       const QString &toolTip);
    QCheckBox *addCheck(const QString &name, const QString &text, const QString &key, const QString &toolTip);
    /// A slider below a number box, for its value times 100.
    QSlider *addSlider(const QString &name, TDoubleSpinBox *box, int min, int max);
    QLabel *labelOf(QWidget *control) const;
    /// Shows or hides a control with its label.
    void setRowVisible(QWidget *control, bool isVisible);
    void setRowEnabled(QWidget *control, bool isEnabled);

private:
    struct TBinding
    {
        QWidget *fControl;
        QString fKey;
        QVariant fRaw;  // as loaded
        QVariant fSeen; // what the control made of it
    };

    void addRow(QWidget *control, const QString &name, const QString &label, const QString &key,
                const QString &toolTip);
    QVariant valueOf(const QWidget *control) const;
    void showValue(QWidget *control, const QVariant &value);

    int fAction;
    QFormLayout *fForm;
    QVector<TBinding> fBindings;
    bool fIsLoading = true; // until the first load, so that starting values are no edits
};
