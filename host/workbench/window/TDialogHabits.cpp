#include "TDialogHabits.h"

#include "settings/TDefaultsIni.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QLineEdit>
#include <QScreen>

namespace {

constexpr char cFirstSize[] = "dialogSizeAtShow"; // property of dialogs

bool isField(const QWidget &widget)
{
    return qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QAbstractSpinBox *>(&widget) ||
           qobject_cast<const QComboBox *>(&widget);
}

void selectText(QWidget *field)
{
    auto *line = qobject_cast<QLineEdit *>(field);
    if (auto *spin = qobject_cast<QAbstractSpinBox *>(field))
        spin->selectAll();
    else if (line && !line->hasSelectedText())
        line->selectAll();
}

} // namespace

TDialogHabits::TDialogHabits(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

QString TDialogHabits::nameOf(const QDialog &dialog)
{
    const QString kind = dialog.metaObject()->className();
    return kind == QLatin1String("QDialog") || !kind.startsWith('Q') ? dialog.objectName() : QString();
}

void TDialogHabits::restoreSize(QDialog &dialog, const QString &name)
{
    const QSize kept = TDefaultsIni().value(cSizeKey + name, QSize()).toSize();
    if (kept.isValid() && dialog.screen())
        dialog.resize(kept.boundedTo(dialog.screen()->availableSize()).expandedTo(dialog.minimumSizeHint()));
    dialog.setProperty(cFirstSize, dialog.size());
}

/// Only a size that somebody gave it: the others follow what is in the dialog.
void TDialogHabits::keepSize(const QDialog &dialog, const QString &name)
{
    const QSize first = dialog.property(cFirstSize).toSize();
    if (first.isValid() && dialog.size() != first && !dialog.isMaximized())
        TDefaultsIni().setValue(cSizeKey + name, dialog.size());
}

void TDialogHabits::focusFirstField(QDialog &dialog)
{
    QWidget *field = dialog.focusWidget();
    for (QWidget *next = dialog.nextInFocusChain(); !field && next != &dialog; next = next->nextInFocusChain()) {
        const bool canFocus = next->focusPolicy() & Qt::TabFocus;
        if (!canFocus || !next->isEnabled() || next->isHidden() || !dialog.isAncestorOf(next))
            continue;
        if (!isField(*next))
            return; // a list, or a choice: as the toolkit does it
        field = next;
        field->setFocus(Qt::TabFocusReason);
    }
    if (field)
        selectText(field);
}

bool TDialogHabits::eventFilter(QObject *watched, QEvent *event)
{
    const bool isShow = event->type() == QEvent::Show;
    if (!isShow && event->type() != QEvent::Hide)
        return false;
    auto *dialog = qobject_cast<QDialog *>(watched);
    if (!dialog || event->spontaneous())
        return false;
    const QString name = nameOf(*dialog);
    if (name.isEmpty())
        return false;
    if (isShow) {
        restoreSize(*dialog, name);
        focusFirstField(*dialog);
    } else {
        keepSize(*dialog, name);
    }
    return false;
}
