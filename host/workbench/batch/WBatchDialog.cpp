#include "WBatchDialog.h"

#include "settings/TDefaultsIni.h"
#include "widgets/GuiUtils.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSet>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr QSize cFirstSize(720, 640);
constexpr int cNameWidth = 260;
constexpr int cCommandLines = 4;
constexpr int cStateRole = Qt::UserRole;
constexpr int cFailedSigns = 200; // of a reason in a row; the rest is in the tool tip
enum TColumn { cFileColumn, cStateColumn };
constexpr char cSizeKey[] = "Kelmora/Batch/Size";
constexpr char cTemplateKey[] = "Kelmora/Batch/Template";
constexpr char cFolderKey[] = "Kelmora/Batch/Folder";
constexpr char cInputKey[] = "Kelmora/Batch/Input";
constexpr char cFormKey[] = "Kelmora/Batch/Form";
constexpr char cPictureKey[] = "Kelmora/Batch/Picture";

/// Red that can be read on the window's ground.
QColor red(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Window).lightness() < 128;
    return isDark ? QColor(0xFF, 0x6B, 0x6B) : QColor(0xD0, 0x02, 0x1B);
}

void choose(QComboBox *box, const QVariant &data)
{
    box->setCurrentIndex(qMax(0, box->findData(data)));
}

} // namespace

WBatchDialog::WBatchDialog(const QStringList &patterns, QWidget *parent)
    : QDialog(parent)
    , fPatterns(patterns)
    , fFiles(new QTreeWidget)
    , fRemove(new QPushButton(tr("Re&move")))
    , fTemplate(new QLineEdit)
    , fFolder(new QLineEdit)
    , fForm(new QComboBox)
    , fPicture(new QComboBox)
    , fAsStack(new QCheckBox(tr("&Gather all files into one stack")))
    , fReplaces(new QCheckBox(tr("Replace files that are t&here")))
    , fCommand(new QPlainTextEdit)
    , fProgress(new QProgressBar)
    , fNote(new QLabel)
    , fRun(new QPushButton(tr("&Run")))
    , fClose(new QPushButton(tr("Close")))
    , fInput(new QWidget)
{
    setObjectName("batchDialog");
    setWindowTitle(tr("Batch Processing"));
    setAcceptDrops(true);
    auto *input = new QVBoxLayout(fInput);
    input->setContentsMargins(0, 0, 0, 0);
    input->addWidget(makeFiles(), 1);
    input->addWidget(makeOptions());
    fNote->setObjectName("noteLabel");
    fNote->setWordWrap(true);
    fNote->setTextFormat(Qt::PlainText);
    fProgress->setObjectName("progressBar");
    fProgress->setAccessibleName(tr("Files that are done"));
    fRun->setObjectName("runButton");
    fRun->setToolTip(tr("Processes the files."));
    fRun->setDefault(true);
    fClose->setObjectName("closeButton");
    fClose->setToolTip(tr("Closes the dialog, or ends the work behind the files that it is at."));
    fClose->setAutoDefault(false);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(fProgress, 1);
    bottom->addWidget(fRun);
    bottom->addWidget(fClose);
    auto *column = new QVBoxLayout(this);
    column->addWidget(fInput, 1);
    column->addWidget(makeCommand());
    column->addWidget(fNote);
    column->addLayout(bottom);
    restore();
    connectAll();
    updateControls();
}

QWidget *WBatchDialog::makeFiles()
{
    fFiles->setObjectName("filesTable");
    fFiles->setAccessibleName(tr("Files"));
    fFiles->setToolTip(tr("The files to be processed, in this order, and how far they are. Files and folders can be "
                          "dropped here."));
    fFiles->setHeaderLabels({tr("File"), tr("State")});
    fFiles->setRootIsDecorated(false);
    fFiles->setUniformRowHeights(true);
    fFiles->setSelectionMode(QAbstractItemView::ExtendedSelection);
    fFiles->setColumnWidth(cFileColumn, cNameWidth);
    auto *files = new QPushButton(tr("&Add Files..."));
    files->setObjectName("addFilesButton");
    files->setToolTip(tr("Adds files of spectra."));
    auto *folder = new QPushButton(tr("Add F&older..."));
    folder->setObjectName("addFolderButton");
    folder->setToolTip(tr("Adds all spectra of a folder."));
    fRemove->setObjectName("removeButton");
    fRemove->setToolTip(tr("Takes the selected files out of the list."));
    connect(files, &QPushButton::clicked, this, &WBatchDialog::askForFiles);
    connect(folder, &QPushButton::clicked, this, &WBatchDialog::askForFolder);
    connect(fRemove, &QPushButton::clicked, this, &WBatchDialog::removeRows);
    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {files, folder, fRemove}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto *group = new QWidget;
    auto *column = new QVBoxLayout(group);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(fFiles, 1);
    column->addLayout(buttons);
    return group;
}

QWidget *WBatchDialog::makePlace(QLineEdit *line, const char *name, const QString &what,
                                 const std::function<void()> &browse)
{
    line->setObjectName(name);
    line->setToolTip(what);
    auto *button = new QPushButton(tr("Browse..."));
    button->setObjectName(QString(name) + "Browse");
    button->setToolTip(what);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, browse);
    auto *place = new QWidget;
    auto *row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(line, 1);
    row->addWidget(button);
    return place;
}

QWidget *WBatchDialog::makeOptions()
{
    auto *options = new QWidget;
    auto *form = new QFormLayout(options);
    form->setContentsMargins(0, 0, 0, 0);
    const auto add = [form](const QString &label, QWidget *place, QWidget *control) {
        form->addRow(label, place);
        if (auto *text = qobject_cast<QLabel *>(form->labelForField(place)))
            text->setBuddy(control);
        control->setAccessibleName(QString(label).remove('&'));
    };
    fTemplate->setPlaceholderText(tr("None: files are converted as they are"));
    add(tr("Temp&late"),
        makePlace(fTemplate, "templateEdit", tr("A processing template (.kzp) or a chain as JSON."),
                  [this] { askForTemplate(); }),
        fTemplate);
    add(tr("Output &folder"),
        makePlace(fFolder, "folderEdit",
                  tr("Where the results go, named like the files. It is made when it is missing."),
                  [this] { askForOutput(); }),
        fFolder);
    fForm->setObjectName("formComboBox");
    fForm->setToolTip(tr("The form of the data. At first: CSV."));
    fForm->addItem(tr("None"), QString());
    fForm->addItem(tr("CSV, visible ranges in shown units (*.csv)"), "csv");
    fForm->addItem(tr("JCAMP-DX (*.jdx)"), "jdx");
    fForm->addItem(tr("JSON, everything (*.json)"), "json");
    fForm->addItem(tr("Kelmora Document (*.klm)"), "klm");
    add(tr("&Data"), fForm, fForm);
    fPicture->setObjectName("pictureComboBox");
    fPicture->setToolTip(tr("Whether a picture of each result is drawn. At first: none."));
    fPicture->addItem(tr("None"), QString());
    for (const char *ending : {"png", "svg", "pdf"})
        fPicture->addItem(QString("%1 (*.%2)").arg(QString(ending).toUpper(), ending), ending);
    add(tr("&Picture"), fPicture, fPicture);
    fAsStack->setObjectName("stackCheckBox");
    fAsStack->setToolTip(tr("One result of all spectra instead of one for each file; their x units must agree. At "
                            "first: off."));
    fReplaces->setObjectName("replaceCheckBox");
    fReplaces->setToolTip(tr("Results take the place of files of their names. At first: off."));
    auto *checks = new QHBoxLayout;
    checks->addWidget(fAsStack);
    checks->addWidget(fReplaces);
    checks->addStretch();
    form->addRow(QString(), checks);
    return options;
}

QWidget *WBatchDialog::makeCommand()
{
    auto *copy = new QPushButton(tr("&Copy"));
    copy->setObjectName("copyButton");
    copy->setToolTip(tr("Copies the command line, which makes the same files."));
    copy->setAutoDefault(false);
    connect(copy, &QPushButton::clicked, this, &WBatchDialog::copyCommand);
    fCommand->setObjectName("commandEdit");
    fCommand->setReadOnly(true);
    fCommand->setTabChangesFocus(true);
    fCommand->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    fCommand->setAccessibleName(tr("Command line"));
    fCommand->setToolTip(tr("The command that makes the same files."));
    const QMargins margins = fCommand->contentsMargins();
    fCommand->setFixedHeight(cCommandLines * QFontMetrics(fCommand->font()).lineSpacing() + margins.top() +
                             margins.bottom() + 2 * int(fCommand->document()->documentMargin()));
    auto *group = new QWidget;
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(fCommand, 1);
    row->addWidget(copy, 0, Qt::AlignTop);
    return group;
}

void WBatchDialog::connectAll()
{
    for (QLineEdit *line : {fTemplate, fFolder})
        connect(line, &QLineEdit::textChanged, this, &WBatchDialog::updateControls);
    for (QComboBox *box : {fForm, fPicture})
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &WBatchDialog::updateControls);
    for (QCheckBox *check : {fAsStack, fReplaces})
        connect(check, &QCheckBox::toggled, this, &WBatchDialog::updateControls);
    connect(fFiles, &QTreeWidget::itemSelectionChanged, this,
            [this] { fRemove->setEnabled(!fFiles->selectedItems().isEmpty()); });
    connect(fRun, &QPushButton::clicked, this, &WBatchDialog::run);
    connect(fClose, &QPushButton::clicked, this, &WBatchDialog::reject);
    connect(&fRunner, &TBatchRunner::fileDone, this, [this](int row) { setRow(row, cDone); });
    connect(&fRunner, &TBatchRunner::fileFailed, this,
            [this](int row, const QString &reason) { setRow(row, cFailed, reason); });
    connect(&fRunner, &TBatchRunner::warned, this, [this](int row, const QString &text) {
        if (QTreeWidgetItem *item = fFiles->topLevelItem(row))
            item->setToolTip(cStateColumn, Utils::Gui::dataTip(text));
        else
            tell(text, false);
    });
    connect(&fRunner, &TBatchRunner::finished, this, &WBatchDialog::runEnded);
}

void WBatchDialog::restore()
{
    const TDefaultsIni settings;
    resize(settings.value(cSizeKey, cFirstSize).toSize());
    fTemplate->setText(QDir::toNativeSeparators(settings.value(cTemplateKey, QString()).toString()));
    fFolder->setText(QDir::toNativeSeparators(settings.value(cFolderKey, QString()).toString()));
    choose(fForm, settings.value(cFormKey, "csv"));
    choose(fPicture, settings.value(cPictureKey, QString()));
}

void WBatchDialog::remember() const
{
    TDefaultsIni settings;
    const TBatchRequest now = request();
    settings.setValue(cTemplateKey, now.fTemplate);
    settings.setValue(cFolderKey, now.fFolder);
    settings.setValue(cFormKey, now.fForm);
    settings.setValue(cPictureKey, now.fPicture);
}

void WBatchDialog::addPaths(const QStringList &paths)
{
    QStringList files;
    for (const QString &path : paths) {
        const QFileInfo info(path);
        if (!info.isDir()) {
            files.append(info.absoluteFilePath());
            continue;
        }
        for (const QFileInfo &inside : QDir(path).entryInfoList(fPatterns, QDir::Files, QDir::Name))
            files.append(inside.absoluteFilePath());
    }
    const QStringList now = request().fFiles;
    QSet<QString> present(now.begin(), now.end());
    for (const QString &file : qAsConst(files)) {
        if (present.contains(file))
            continue;
        present.insert(file);
        auto *row = new QTreeWidgetItem(fFiles, {QFileInfo(file).fileName()});
        row->setToolTip(cFileColumn, Utils::Gui::dataTip(QDir::toNativeSeparators(file)));
        row->setData(cFileColumn, Qt::UserRole, file);
        setRow(fFiles->topLevelItemCount() - 1, cWaiting);
    }
    updateControls();
}

TBatchRequest WBatchDialog::request() const
{
    const auto path = [](const QLineEdit *line) {
        const QString text = line->text().trimmed();
        return text.isEmpty() ? QString() : QFileInfo(QDir::fromNativeSeparators(text)).absoluteFilePath();
    };
    TBatchRequest request;
    for (int row = 0; row < fFiles->topLevelItemCount(); ++row)
        request.fFiles.append(fFiles->topLevelItem(row)->data(cFileColumn, Qt::UserRole).toString());
    request.fTemplate = path(fTemplate);
    request.fFolder = path(fFolder);
    request.fForm = fForm->currentData().toString();
    request.fPicture = fPicture->currentData().toString();
    request.fAsStack = fAsStack->isChecked();
    request.fReplaces = fReplaces->isChecked();
    return request;
}

WBatchDialog::TState WBatchDialog::stateOf(int row) const
{
    const QTreeWidgetItem *item = fFiles->topLevelItem(row);
    return item ? TState(item->data(cStateColumn, cStateRole).toInt()) : cWaiting;
}

void WBatchDialog::setRow(int row, TState state, const QString &note)
{
    QTreeWidgetItem *item = fFiles->topLevelItem(row);
    if (!item)
        return;
    const QString texts[] = {tr("waiting"), tr("done"), tr("failed: %1").arg(note.left(cFailedSigns))};
    item->setText(cStateColumn, texts[state]);
    item->setData(cStateColumn, cStateRole, int(state));
    if (state != cDone) // a warning of one that is done stays
        item->setToolTip(cStateColumn, Utils::Gui::dataTip(note));
    item->setForeground(cStateColumn, state == cFailed    ? QBrush(red(palette()))
                                      : state == cWaiting ? palette().brush(QPalette::Disabled, QPalette::Text)
                                                          : palette().brush(QPalette::Text));
    if (!fRunner.isRunning())
        return;
    fProgress->setValue(fProgress->value() + (state == cWaiting ? 0 : 1));
    fFiles->scrollToItem(item);
}

void WBatchDialog::tell(const QString &text, bool isError)
{
    QFont font = QDialog::font();
    font.setItalic(isError);
    fNote->setFont(font);
    QPalette colours = palette();
    if (isError)
        colours.setColor(QPalette::WindowText, red(colours));
    fNote->setPalette(colours);
    fNote->setText(text);
}

void WBatchDialog::updateControls()
{
    const TBatchRequest now = request();
    const bool isRunning = fRunner.isRunning();
    const QString missing = TBatchRunner::program().isEmpty()
                                ? tr("The program zarnu, which does the work, is not found beside this one.")
                                : now.missing();
    fInput->setEnabled(!isRunning);
    fRemove->setEnabled(!fFiles->selectedItems().isEmpty());
    fRun->setEnabled(!isRunning && missing.isEmpty());
    fClose->setText(isRunning ? tr("Cancel") : tr("Close"));
    fProgress->setMaximum(qMax(1, now.fFiles.size()));
    fCommand->setPlainText(now.commandLine());
    if (!isRunning)
        tell(missing, !now.fFiles.isEmpty());
}

void WBatchDialog::run()
{
    remember();
    fIsCancelled = false;
    fProgress->setValue(0);
    for (int row = 0; row < fFiles->topLevelItemCount(); ++row)
        setRow(row, cWaiting);
    fRunner.start(request());
    updateControls();
    tell(tr("Files are worked on. The window can be used meanwhile."), false);
}

void WBatchDialog::runEnded(const QString &error)
{
    int counts[3] = {};
    for (int row = 0; row < fFiles->topLevelItemCount(); ++row)
        ++counts[stateOf(row)];
    updateControls();
    fClose->setEnabled(true);
    if (!error.isEmpty()) {
        tell(error, true);
        return;
    }
    QString text = tr("%1 done").arg(counts[cDone]);
    if (counts[cFailed] > 0)
        text += tr(", %1 failed").arg(counts[cFailed]);
    if (counts[cWaiting] > 0)
        text += fIsCancelled ? tr(", %1 not begun").arg(counts[cWaiting]) : tr(", %1 not done").arg(counts[cWaiting]);
    tell(text + '.', counts[cFailed] > 0);
}

void WBatchDialog::reject()
{
    if (!fRunner.isRunning()) {
        TDefaultsIni().setValue(cSizeKey, size());
        QDialog::reject();
        return;
    }
    fIsCancelled = true;
    fRunner.cancel();
    fClose->setEnabled(false);
    tell(tr("The files that are being worked on are finished."), false);
}

void WBatchDialog::askForFiles()
{
    const QString filters = QString("%1 (%2);;%3 (*)").arg(tr("All spectra"), fPatterns.join(' '), tr("All files"));
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, tr("Add Files"), TDefaultsIni().value(cInputKey, QDir::homePath()).toString(), filters);
    if (paths.isEmpty())
        return;
    TDefaultsIni().setValue(cInputKey, QFileInfo(paths.first()).absolutePath());
    addPaths(paths);
}

void WBatchDialog::askForFolder()
{
    const QString path = QFileDialog::getExistingDirectory(
        this, tr("Add Folder"), TDefaultsIni().value(cInputKey, QDir::homePath()).toString());
    if (path.isEmpty())
        return;
    TDefaultsIni().setValue(cInputKey, path);
    const int before = fFiles->topLevelItemCount();
    addPaths({path});
    if (fFiles->topLevelItemCount() == before)
        tell(tr("The folder holds no further spectra."), false);
}

void WBatchDialog::askForTemplate()
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Template"), QFileInfo(request().fTemplate).path(),
                                     tr("Kelmora Processing") + " (*.kzp);;" + tr("Chain") + " (*.json)");
    if (!path.isEmpty())
        fTemplate->setText(QDir::toNativeSeparators(path));
}

void WBatchDialog::askForOutput()
{
    const QString path = QFileDialog::getExistingDirectory(this, tr("Output Folder"), request().fFolder);
    if (!path.isEmpty())
        fFolder->setText(QDir::toNativeSeparators(path));
}

void WBatchDialog::removeRows()
{
    qDeleteAll(fFiles->selectedItems());
    updateControls();
}

void WBatchDialog::copyCommand() const
{
    QGuiApplication::clipboard()->setText(request().commandLine());
}

void WBatchDialog::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls() && !fRunner.isRunning())
        event->acceptProposedAction();
}

void WBatchDialog::dropEvent(QDropEvent *event)
{
    QStringList paths;
    for (const QUrl &url : event->mimeData()->urls())
        paths.append(url.toLocalFile());
    paths.removeAll(QString());
    event->acceptProposedAction();
    addPaths(paths);
}
