#include "widgets/GuiUtils.h"

#include <QAbstractButton>

namespace Utils {
namespace Gui {

namespace {

TMessageHook gHook;

} // namespace

void setMessageHook(const TMessageHook &hook)
{
    gHook = hook;
}

QMessageBox::StandardButton ask(QWidget *parent, const TMessage &message)
{
    if (gHook)
        return gHook(message);
    QMessageBox box(message.fIcon, message.fTitle, message.fText, message.fButtons, parent);
    box.setDetailedText(message.fDetails);
    box.setDefaultButton(message.fDefault);
    for (auto label = message.fLabels.begin(); label != message.fLabels.end(); ++label) {
        if (QAbstractButton *button = box.button(label.key()))
            button->setText(label.value());
    }
    return QMessageBox::StandardButton(box.exec());
}

void message(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text, const QString &details)
{
    TMessage plain;
    plain.fIcon = icon;
    plain.fTitle = title;
    plain.fText = text;
    plain.fDetails = details;
    ask(parent, plain);
}

} // namespace Gui
} // namespace Utils
