#include "WScriptConsole.h"

#include "ScriptHabits.h"
#include "WScriptInput.h"
#include "WScriptOutput.h"
#include "script/TScriptError.h"
#include "ui/TIcons.h"

#include <QCheckBox>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr char cInputScheme[] = "input";
constexpr char cInputName[] = "Console "; // before its number

/// The script of a drag of one; empty for other drags.
QString scriptOf(const QMimeData &mime)
{
    const QList<QUrl> urls = mime.urls();
    const QString path = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return path.endsWith(QLatin1String(".js"), Qt::CaseInsensitive) ? path : QString();
}

} // namespace

WScriptConsole::WScriptConsole(QWidget *parent)
    : WPluginDockWidget("scriptConsole", tr("Console"), parent)
    , fOutput(new WScriptOutput(this))
    , fInput(new WScriptInput(this))
{
    auto *body = new QWidget(this);
    auto *prompt = new QLabel(QStringLiteral(">"), body);
    prompt->setObjectName("scriptPrompt");
    prompt->setForegroundRole(QPalette::PlaceholderText);
    prompt->setBackgroundRole(QPalette::Base);
    prompt->setAutoFillBackground(true);
    prompt->setAlignment(Qt::AlignTop | Qt::AlignRight);
    prompt->setContentsMargins(4, 4, 0, 0);
    prompt->setBuddy(fInput);
    auto *line = new QFrame(body);
    line->setFrameShape(QFrame::HLine);
    line->setForegroundRole(QPalette::Mid);
    line->setFrameShadow(QFrame::Plain);
    auto *typing = new QHBoxLayout;
    typing->setSpacing(0);
    typing->addWidget(prompt);
    typing->addWidget(fInput, 1);
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeTools());
    layout->addWidget(fOutput, 1);
    layout->addWidget(line);
    layout->addLayout(typing);
    body->setFocusProxy(fInput);
    setWidget(body);
    setAcceptDrops(true);
    connect(fInput, &WScriptInput::submitted, this, &WScriptConsole::submit);
    connect(fOutput, &QTextBrowser::anchorClicked, this, &WScriptConsole::follow);
    setRunning(false);
    takeSettings();
}

QWidget *WScriptConsole::makeTools()
{
    auto *tools = new QWidget(this);
    fStop = new QToolButton(tools);
    fStop->setObjectName("scriptStopButton");
    fStop->setIcon(TIcons::load("::/images/stop.svg"));
    fStop->setText(tr("Stop"));
    fStop->setToolTip(tr("Ends the script that runs (Shift+F5, Escape)"));
    fStop->setProperty(cWorksDuringScripts, true);
    auto *clear = new QToolButton(tools);
    clear->setObjectName("scriptClearButton");
    clear->setIcon(TIcons::load("::/images/delete.svg"));
    clear->setText(tr("Clear"));
    clear->setToolTip(tr("Empties the output; what scripts defined stays"));
    for (QToolButton *button : {fStop, clear}) {
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
    }
    fEcho = new QCheckBox(tr("Echo actions"), tools);
    fEcho->setObjectName("scriptEchoCheckBox");
    fEcho->setToolTip(tr("Prints what you do in the window as a line of a script"));
    auto *layout = new QHBoxLayout(tools);
    layout->setContentsMargins(4, 1, 4, 1);
    layout->addWidget(fStop);
    layout->addWidget(clear);
    layout->addStretch();
    layout->addWidget(fEcho);
    connect(fStop, &QToolButton::clicked, this, &WScriptConsole::stopRequested);
    connect(clear, &QToolButton::clicked, fOutput, &WScriptOutput::clearAll);
    connect(fEcho, &QCheckBox::toggled, this, [](bool isOn) { ScriptHabits::setEchoing(isOn); });
    return tools;
}

void WScriptConsole::takeSettings()
{
    fEcho->setChecked(ScriptHabits::isEchoing());
    fOutput->takeSettings();
    fInput->takeSettings();
    findChild<QLabel *>("scriptPrompt")->setFont(ScriptHabits::font());
}

void WScriptConsole::setRunning(bool isRunning)
{
    fIsRunning = isRunning;
    fStop->setEnabled(isRunning);
    if (!isRunning)
        fOutput->flush();
}

void WScriptConsole::submit(const QString &text)
{
    fInputs.append(text);
    QString shown = text;
    fOutput->append(WScriptOutput::cInput, "> " + shown.replace('\n', "\n  "));
    emit runRequested(text, cInputName + QString::number(fInputs.size()));
}

int WScriptConsole::inputOf(const QString &name) const
{
    const int number = name.startsWith(QLatin1String(cInputName)) ? name.mid(int(qstrlen(cInputName))).toInt() : 0;
    return number <= fInputs.size() ? number : 0;
}

void WScriptConsole::showError(const TScriptError &error)
{
    if (error.fIsStopped) {
        fOutput->append(WScriptOutput::cWarning, error.fMessage);
        return;
    }
    const QString line = error.fLine > 0 ? tr("line %1").arg(error.fLine) : QString();
    const int number = inputOf(error.fFile);
    QUrl target;
    QString link = line;
    if (number > 0) {
        target.setScheme(cInputScheme);
        target.setPath(QString::number(number));
    } else {
        target = QUrl::fromLocalFile(QFileInfo(error.fFile).absoluteFilePath());
        const QString name = QFileInfo(error.fFile).fileName();
        link = line.isEmpty() ? name : tr("%1, %2").arg(name, line);
    }
    target.setFragment(QString::number(error.fLine));
    fOutput->append(WScriptOutput::cError, error.fMessage, link, target);
}

void WScriptConsole::showWarning(const QString &place, const QString &path, const QString &text)
{
    const int colon = place.lastIndexOf(':');
    const QString name = place.left(colon);
    const QString line = place.mid(colon + 1);
    const int number = inputOf(name);
    QUrl target;
    if (number > 0) {
        target.setScheme(cInputScheme);
        target.setPath(QString::number(number));
    } else if (!name.isEmpty() && QFileInfo(path).fileName() == name) {
        target = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    }
    target.setFragment(line);
    const bool isKnown = !target.scheme().isEmpty();
    const QString link = number > 0 ? tr("line %1").arg(line) : tr("%1, line %2").arg(name, line);
    fOutput->append(WScriptOutput::cWarning, isKnown || place.isEmpty() ? text : place + ": " + text,
                    isKnown ? link : QString(), target);
}

void WScriptConsole::follow(const QUrl &link)
{
    const int line = link.fragment().toInt();
    if (link.scheme() == QLatin1String(cInputScheme))
        recallInput(link.path().toInt(), line);
    else
        emit fileLinkClicked(link.toLocalFile(), line);
}

bool WScriptConsole::recallInput(int number, int line)
{
    if (number < 1 || number > fInputs.size())
        return false;
    const QString &text = fInputs.at(number - 1);
    if (fInput->toPlainText() != text)
        fInput->setText(text);
    fInput->goToLine(line);
    fInput->setFocus();
    return true;
}

void WScriptConsole::echo(const QString &line)
{
    if (!fIsRunning && !line.isEmpty() && ScriptHabits::isEchoing())
        fOutput->append(WScriptOutput::cNote, line);
}

void WScriptConsole::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        emit focusReturned();
    else
        WPluginDockWidget::keyPressEvent(event);
}

void WScriptConsole::dragEnterEvent(QDragEnterEvent *event)
{
    if (scriptOf(*event->mimeData()).isEmpty())
        event->ignore(); // other files are the window's
    else
        event->acceptProposedAction();
}

void WScriptConsole::dropEvent(QDropEvent *event)
{
    const QString path = scriptOf(*event->mimeData());
    event->setAccepted(!path.isEmpty());
    if (!path.isEmpty())
        emit fileDropped(path);
}
