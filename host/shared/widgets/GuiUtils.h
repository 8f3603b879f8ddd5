#pragma once

#include <QMap>
#include <QMessageBox>
#include <functional>

/// Modal boxes of the programs with windows.
namespace Utils {
namespace Gui {

/// What a box would show.
struct TMessage
{
    QMessageBox::Icon fIcon = QMessageBox::NoIcon;
    QString fTitle;
    QString fText;
    QString fDetails;
    QMessageBox::StandardButtons fButtons = QMessageBox::Ok;
    QMessageBox::StandardButton fDefault = QMessageBox::NoButton;
    QMap<QMessageBox::StandardButton, QString> fLabels; // of buttons that say more than their usual word
};
using TMessageHook = std::function<QMessageBox::StandardButton(const TMessage &)>;

/// From now on the hook answers instead of a box; an empty one gives the boxes back. Tests use it.
void setMessageHook(const TMessageHook &hook);
/// Shows a modal box and waits for the answer.
QMessageBox::StandardButton ask(QWidget *parent, const TMessage &message);
/// A box with an Ok button.
void message(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text,
             const QString &details = QString());

/// A tool tip that shows a text from a file or a path as it is: markup in it is no markup, and a long one is cut.
QString dataTip(const QString &text);

} // namespace Gui
} // namespace Utils
