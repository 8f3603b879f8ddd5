#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>
#include <functional>

class QTableView;

/// Remembers in the settings how the user arranged the columns of a table: their order, their widths and which are
/// shown. Columns go by keys, so that a column more or less does no harm.
class TColumnMemory : public QObject
{
public:
    /// Goes with the view. `name` is that of the table in the settings; `keys` answers the keys of the columns as they
    /// stand in the model, empty for a column that is not the user's to arrange.
    TColumnMemory(QTableView *view, const QString &name, const std::function<QStringList()> &keys);

    /// Arranges the columns as they are remembered; what is not remembered stays.
    void restore();
    /// The user showed or hid a column.
    void setShown(int column, bool shown);
    /// Whether the user gave the column a width.
    bool hasWidth(int column) const { return fWidths.contains(fKeys().value(column)); }
    /// Changes of the header that the program makes are not kept.
    void arrange(const std::function<void()> &work);

private:
    void noteWidth(int column, int width);
    void save() const;
    QString settingsKey() const;

    QTableView *fView;
    QString fName;
    std::function<QStringList()> fKeys;
    QHash<QString, int> fWidths;
    QHash<QString, bool> fShown;
    bool fIsArranging = false;
};
