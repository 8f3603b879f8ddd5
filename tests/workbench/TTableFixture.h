#pragma once

#include "TWindowFixture.h"
#include "contexts/IStackedItemCtx.h"
#include "services/IGuiHost.h"
#include "widgets/TBaseTable.h"
#include "widgets/TBaseTableViewModel.h"
#include "widgets/TTableProxy.h"
#include "widgets/WPluginDockWidget.h"

#include <QHeaderView>
#include <QMenu>
#include <QTableView>
#include <QToolButton>

/// A window and one of its docks with a table.
class TTableFixture : public TWindowFixture
{
protected:
    void trigger(const char *name)
    {
        fWindow->actionTable().updateStates();
        QAction *action = fWindow->actionTable().action(name);
        ASSERT_NE(action, nullptr) << name;
        action->trigger();
        settle();
    }
    /// Two bands, at 1000 and 2000 1/cm, of heights `factor` and half of it, in absorbance.
    QString writeBands(const QString &name, double factor)
    {
        constexpr int cCount = 1101;
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("##TITLE= " + name.toLatin1() +
                   "\n##JCAMP-DX= 4.24\n##DATA TYPE= INFRARED SPECTRUM\n"
                   "##XUNITS= 1/CM\n##YUNITS= ABSORBANCE\n##XFACTOR= 1\n##YFACTOR= 0.0001\n"
                   "##FIRSTX= 400\n##LASTX= 2600\n##NPOINTS= " +
                   QByteArray::number(cCount) + "\n##XYDATA= (X++(Y..Y))\n");
        const auto band = [](double x, double centre) { return 1.0 / (1.0 + std::pow((x - centre) / 20.0, 2)); };
        for (int i = 0; i < cCount; ++i) {
            const double x = 400.0 + 2.0 * i;
            const double y = factor * (band(x, 1000.0) + 0.5 * band(x, 2000.0));
            file.write(QByteArray::number(x) + ' ' + QByteArray::number(qRound(y * 10000.0)) + '\n');
        }
        file.write("##END=\n");
        return file.fileName();
    }
    /// Opens so many such files, as a stack where there are several; each lower than the one before.
    void openBandFiles(int spectra)
    {
        QStringList paths;
        for (int i = 0; i < spectra; ++i)
            paths.append(writeBands(QString("s%1.dx").arg(i), 1.0 / (i + 1)));
        if (spectra == 1)
            open(paths.first());
        else
            fWindow->files().openAsStack(paths);
        settle();
        fWindow->grab();
    }
    WPluginDockWidget *dock() { return fHost.gui()->dock(fDock); }
    void showDock(const QString &name)
    {
        fDock = name;
        ASSERT_NE(dock(), nullptr);
        fHost.gui()->showDock(name, true);
        dock()->raise();
        settle();
    }
    TBaseTable *table() { return dock()->findChild<TBaseTable *>(fTable); }
    TBaseTableViewModel *model() { return static_cast<TBaseTableViewModel *>(table()->proxy()->sourceModel()); }
    int rows() { return model()->rowCount(); }
    int column(const QString &key) { return model()->columnOf(key); }
    QString header(const QString &key)
    {
        return model()->headerData(column(key), Qt::Horizontal, Qt::DisplayRole).toString();
    }
    QModelIndex place(int row, const QString &key) { return model()->index(row, column(key)); }
    QString cell(int row, const QString &key) { return place(row, key).data().toString(); }
    double number(int row, const QString &key) { return place(row, key).data(TTableProxy::cNumberRole).toDouble(); }
    bool isHidden(const QString &key) { return table()->view()->isColumnHidden(column(key)); }
    bool type(int row, const QString &key, const QString &text)
    {
        const bool isDone = model()->setData(place(row, key), text, Qt::EditRole);
        settle();
        return isDone;
    }
    QToolButton *button(const QString &text)
    {
        for (QToolButton *one : dock()->findChildren<QToolButton *>()) {
            if (one->text() == text)
                return one;
        }
        return nullptr;
    }
    /// An action of the context menu.
    QAction *menuAction(const QString &text)
    {
        const auto menus = [this] { return dock()->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly); };
        qDeleteAll(menus());
        emit table()->menuWanted(QPoint(10, 10));
        for (QMenu *menu : menus()) {
            menu->hide();
            for (QAction *action : menu->actions()) {
                if (action->text() == text)
                    return action;
            }
        }
        return nullptr;
    }
    /// A key in the table, on the way that finds the shortcuts of the window.
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        fWindow->activateWindow();
        table()->view()->setFocus();
        fWindow->actionTable().updateStates();
        settle();
        QTest::keyClick(fWindow->windowHandle(), Qt::Key(key), modifiers);
        settle();
    }
    QUndoStack *undo() { return document()->history().stack(); }

    QString fDock;
    QString fTable; // where the dock has more than one
};
