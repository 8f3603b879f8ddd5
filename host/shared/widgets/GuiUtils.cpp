#include "widgets/GuiUtils.h"

#include <QAbstractButton>
#include <QTextDocument>

namespace Utils {
namespace Gui {

namespace {

constexpr int cMostLetters = 2000; // of a tool tip

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
    box.setTextFormat(Qt::PlainText); // names and titles of files are in it
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

QString dataTip(const QString &text)
{
    const QString shown = text.size() > cMostLetters ? text.left(cMostLetters) + QChar(0x2026) : text;
    return Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown, Qt::WhiteSpaceNormal) : shown;
}

} // namespace Gui
} // namespace Utils
