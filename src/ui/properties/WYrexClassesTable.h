#pragma once

#include <QTableWidget>
#include <QVariantMap>

/// The classes of a stack: name, how the colours of their spectra are made, the base colour and
/// the line.
class WYrexClassesTable : public QTableWidget
{
    Q_OBJECT

public:
    enum TColumn { cName, cMode, cColor, cLine, cColumnCount };

    explicit WYrexClassesTable(QWidget *parent = nullptr);

    /// A row for each name that is not empty. `classes` by name: "color" as text, "mode" and "line" as numbers; those
    /// without have the usual values.
    void showClasses(const QStringList &all, const QVariantMap &classes);
    QSize sizeHint() const override;

signals:
    /// The class that was edited, in the same form.
    void edited(const QVariantMap &classes);

private:
    void addRow(int row, const QString &name);
    void showRow(int row, const QVariantMap &fields);
    void editClass(const QString &name, const QString &field, const QVariant &value);

    QStringList fNames;
    QVariantMap fClasses;
};
