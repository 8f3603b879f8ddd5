#include "TMenuWalk.h"

#include "TActionTable.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

namespace {

struct TWalk
{
    void visit(const QList<QAction *> &actions, const QStringList &path)
    {
        for (QAction *action : actions) {
            if (const QMenu *menu = action->menu())
                visit(menu->actions(), path + QStringList(TMenuWalk::plainText(menu->title())));
            else if (!action->objectName().isEmpty() && !fSeen.contains(action)) {
                fSeen.insert(action);
                fEntries.append({action, path});
            }
        }
    }

    QSet<QAction *> fSeen;
    QVector<TMenuEntry> fEntries;
};

} // namespace

namespace TMenuWalk {

QString plainText(const QString &text)
{
    QString plain;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == '&' && i + 1 < text.size())
            ++i; // the letter behind it, or the second of two that stand for one
        plain.append(text.at(i));
    }
    return plain;
}

QVector<TMenuEntry> entries(const QMenuBar &bar, const TActionTable &table)
{
    TWalk walk;
    walk.visit(bar.actions(), {});
    walk.visit(table.actions(), {QCoreApplication::translate("TMenuWalk", "On the page")});
    return walk.fEntries;
}

} // namespace TMenuWalk
