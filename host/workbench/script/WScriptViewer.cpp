#include "WScriptViewer.h"

#include "ScriptHabits.h"
#include "widgets/GuiUtils.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr qint64 cLargestFile = 16 << 20; // bytes
constexpr QRgb cMark = qRgba(0xE0, 0x40, 0x40, 0x50);

} // namespace

WScriptViewer::WScriptViewer(QWidget *parent)
    : QDialog(parent)
    , fText(new QPlainTextEdit(this))
{
    setObjectName("scriptViewer");
    resize(680, 460);
    fText->setObjectName("scriptViewerText");
    fText->setReadOnly(true);
    fText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    fText->setLineWrapMode(QPlainTextEdit::NoWrap);
    fText->setFont(ScriptHabits::font());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *edit = buttons->addButton(tr("Open in &Editor"), QDialogButtonBox::ActionRole);
    edit->setObjectName("scriptEditButton");
    edit->setAutoDefault(false);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(fText, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(edit, &QPushButton::clicked, this, &WScriptViewer::openEditor);
}

bool WScriptViewer::show(const QString &path, int line, QString *error)
{
    QFile file(path);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    if (!isOpen || file.size() > cLargestFile) {
        *error = isOpen ? tr("This is too large for a script.") : file.errorString();
        return false;
    }
    fPath = path;
    const QString name = QFileInfo(path).fileName();
    setWindowTitle(line > 0 ? tr("%1, line %2").arg(name).arg(line) : name);
    fText->setPlainText(QString::fromUtf8(file.readAll()));
    QTextEdit::ExtraSelection mark;
    mark.format.setBackground(QColor::fromRgba(cMark));
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    mark.cursor = QTextCursor(fText->document()->findBlockByNumber(qMax(0, line - 1)));
    fText->setTextCursor(mark.cursor);
    fText->setExtraSelections(line > 0 ? QList<QTextEdit::ExtraSelection>{mark} : QList<QTextEdit::ExtraSelection>());
    QDialog::show();
    raise();
    activateWindow();
    fText->centerCursor();
    return true;
}

void WScriptViewer::openEditor()
{
    if (QDesktopServices::openUrl(QUrl::fromLocalFile(fPath)))
        return;
    Utils::Gui::message(this, QMessageBox::Warning, tr("Open in Editor"),
                        tr("%1 could not be shown, since no program for scripts answered. Open it by hand.")
                            .arg(QDir::toNativeSeparators(fPath)));
}
