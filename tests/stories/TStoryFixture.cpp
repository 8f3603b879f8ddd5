#include "TStoryFixture.h"

#include "TActionTable.h"
#include "WRibbon.h"
#include "WUnitBar.h"
#include "exchange/TPictureExporter.h"
#include "plot/TPlotHotArea.h"
#include "services/IGuiHost.h"
#include "stream/TDataStream.h"
#include "widgets/WPluginDockWidget.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTimer>
#include <QToolButton>

TStoryFixture::TStoryFixture()
{
    fWindow->restoreLayout();
    fWindow->resize(1500, 950);
    fWindow->activateWindow();
    settle();
}

TStoryFixture::~TStoryFixture() = default;

void TStoryFixture::activate()
{
    if (QApplication::activeModalWidget())
        return;
    fWindow->activateWindow(); // this platform does not go back to it when a dialog closes
    EXPECT_TRUE(waitFor([this] { return fWindow->isActiveWindow(); }));
}

void TStoryFixture::key(int aKey, Qt::KeyboardModifiers modifiers)
{
    activate();
    TWindowFixture::key(aKey, modifiers);
}

bool TStoryFixture::waitFor(const std::function<bool()> &isTrue, int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!isTrue() && timer.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    return isTrue();
}

void TStoryFixture::save(QWidget *widget, const QString &name)
{
    const QString folder = qEnvironmentVariable("YREX_PICTURES");
    if (folder.isEmpty())
        return;
    settle();
    EXPECT_TRUE(widget->grab().save(folder + '/' + name + ".png"));
}

void TStoryFixture::look(const QString &name)
{
    fWindow->actionTable().updateStates();
    save(fWindow.get(), name);
    if (QWidget *popup = QApplication::activePopupWidget())
        save(popup, name + "-menu");
}

void TStoryFixture::dropFiles(const QStringList &paths, Qt::KeyboardModifiers modifiers)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    data.setUrls(urls);
    const QPoint place = fWindow->centralWidget()->geometry().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(fWindow.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(fWindow.get(), &move);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(fWindow.get(), &drop);
    settle();
    fWindow->grab();
}

void TStoryFixture::setUnits(const QString &x, const QString &y)
{
    auto *bar = fWindow->findChild<WUnitBar *>();
    ASSERT_NE(bar, nullptr);
    choose(the<QComboBox>("xUnits", bar), x);
    choose(the<QComboBox>("yUnits", bar), y);
    click(the<QPushButton>("set", bar));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    EXPECT_EQ(fWindow->findChild<WUnitBar *>(), nullptr);
    fWindow->grab();
}

void TStoryFixture::openSample(const QString &name, const QString &x, const QString &y)
{
    dropFiles({sample(name)});
    setUnits(x, y);
}

QByteArray TStoryFixture::fileBytes(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QJsonArray TStoryFixture::info(const QString &path, const QStringList &options)
{
    QProcess process;
    process.start(ZARNU_PROGRAM, QStringList({"info", path, "--json"}) + options);
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return QJsonDocument::fromJson(process.readAllStandardOutput()).array();
}

QJsonObject TStoryFixture::savedSpectrum()
{
    const QString path = fFolder.filePath("story.klm");
    inDialogs({[path](QWidget *dialog) { chooseFile(dialog, path); }});
    key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(waitFor([path] { return QFile::exists(path); }));
    const QJsonObject item = info(path).first().toObject().value("items").toArray().first().toObject();
    return item.value("spectra").toArray().first().toObject();
}

QStringList TStoryFixture::zarnu(const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(fFolder.path());
    process.start(ZARNU_PROGRAM, arguments);
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return QString::fromUtf8(process.readAllStandardOutput()).split('\n');
}

void TStoryFixture::click(QWidget *widget, const QPoint &place, Qt::KeyboardModifiers keys)
{
    ASSERT_NE(widget, nullptr);
    ASSERT_TRUE(widget->isVisible()) << widget->objectName().toStdString();
    ASSERT_TRUE(widget->isEnabled()) << widget->objectName().toStdString() << ' ' << widget->toolTip().toStdString();
    QTest::mouseClick(widget, Qt::LeftButton, keys, place.x() < 0 ? widget->rect().center() : place);
    settle();
}

void TStoryFixture::clickPlot(const QPoint &place, Qt::KeyboardModifiers keys)
{
    press(place, keys);
    release(place, keys);
}

void TStoryFixture::doubleClickPlot(const QPoint &place)
{
    clickPlot(place);
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, place);
    settle();
}

void TStoryFixture::press(const QPoint &place, Qt::KeyboardModifiers keys)
{
    moveTo(place);
    QTest::mousePress(view()->viewport(), Qt::LeftButton, keys, place);
}

void TStoryFixture::moveHeld(const QPoint &place, Qt::KeyboardModifiers keys)
{
    QMouseEvent move(QEvent::MouseMove, place, view()->viewport()->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                     keys);
    QCoreApplication::sendEvent(view()->viewport(), &move);
    settle();
}

void TStoryFixture::release(const QPoint &place, Qt::KeyboardModifiers keys)
{
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, keys, place);
    settle();
}

void TStoryFixture::clickRibbon(const char *actionName)
{
    fWindow->actionTable().updateStates();
    settle();
    for (QToolButton *button : fWindow->ribbon().findChildren<QToolButton *>(QString("ribbon.") + actionName)) {
        if (button->isVisible())
            return click(button);
    }
    for (QToolButton *fold : fWindow->ribbon().findChildren<QToolButton *>()) { // groups without room
        if (!fold->isVisible() || !fold->menu() || !fold->menu()->actions().contains(action(actionName)))
            continue;
        clickButtonMenu(fold, fold->menu(), action(actionName)->text().remove('&'));
        return;
    }
    FAIL() << actionName << " is not in view";
}

void TStoryFixture::openDock(const QString &name)
{
    WPluginDockWidget *dock = fHost.gui()->dock(name);
    ASSERT_NE(dock, nullptr);
    if (dock->visibleRegion().isEmpty())
        clickMenu({"View", "Docks", dock->windowTitle()});
    EXPECT_TRUE(waitFor([dock] { return !dock->visibleRegion().isEmpty(); })) << name.toStdString();
}

void TStoryFixture::clickEntry(QMenu *menu, const QString &text)
{
    ASSERT_NE(menu, nullptr);
    ASSERT_TRUE(waitFor([menu] { return menu->isVisible(); })) << text.toStdString(); // submenus take their time
    for (QAction *entry : menu->actions()) {
        if (entry->text().section('\t', 0, 0).remove('&') != text)
            continue;
        ASSERT_TRUE(entry->isVisible() && entry->isEnabled())
            << text.toStdString() << ' ' << entry->toolTip().toStdString();
        const QPoint place = menu->actionGeometry(entry).center();
        QTest::mouseMove(menu, place);
        QTest::mouseClick(menu, Qt::LeftButton, {}, place);
        settle();
        return;
    }
    FAIL() << "no entry " << text.toStdString();
}

void TStoryFixture::clickButtonMenu(QWidget *button, QMenu *menu, const QString &text)
{
    bool isDone = false;
    QTimer::singleShot(0, menu, [&] { // the menu waits for an answer
        EXPECT_TRUE(waitFor([menu] { return menu->isVisible(); }));
        clickEntry(menu, text);
        isDone = true;
    });
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(waitFor([&] { return isDone; }));
}

void TStoryFixture::clickMenu(const QStringList &path)
{
    activate();
    fWindow->actionTable().updateStates();
    for (QMenuBar *bar : fWindow->findChildren<QMenuBar *>()) {
        for (QAction *entry : bar->actions()) {
            if (entry->text().remove('&') != path.first() || !entry->menu())
                continue;
            QMenu *menu = entry->menu();
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(entry).center());
            settle();
            for (int i = 1; i < path.size(); ++i) {
                QMenu *next = nullptr;
                for (QAction *one : menu->actions()) {
                    if (one->menu() && one->text().remove('&') == path.at(i))
                        next = one->menu();
                }
                clickEntry(menu, path.at(i));
                menu = next;
            }
            while (QWidget *left = QApplication::activePopupWidget()) // of submenus
                left->close();
            settle();
            return;
        }
    }
    FAIL() << "no menu " << path.first().toStdString();
}

QMenu *TStoryFixture::menuAt(const QPoint &place)
{
    moveTo(place);
    QTest::mouseClick(view()->viewport(), Qt::RightButton, {}, place);
    settle();
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    EXPECT_NE(menu, nullptr);
    return menu;
}

void TStoryFixture::choose(QComboBox *combo, const QString &text)
{
    ASSERT_NE(combo, nullptr);
    const int place = combo->findText(text);
    ASSERT_GE(place, 0) << text.toStdString();
    combo->setFocus();
    while (combo->currentIndex() != place)
        QTest::keyClick(combo, combo->currentIndex() < place ? Qt::Key_Down : Qt::Key_Up);
    settle();
}

void TStoryFixture::type(QWidget *field, const QString &text, int end)
{
    ASSERT_NE(field, nullptr);
    ASSERT_TRUE(field->isEnabled()) << field->objectName().toStdString();
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
    if (end)
        QTest::keyClick(field, Qt::Key(end));
    settle();
}

void TStoryFixture::dragSlider(QSlider *slider, int value)
{
    ASSERT_NE(slider, nullptr);
    ASSERT_TRUE(slider->isVisible() && slider->isEnabled());
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.orientation = slider->orientation();
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = option.sliderValue = slider->sliderPosition();
    option.tickPosition = slider->tickPosition();
    option.subControls = QStyle::SC_All;
    const auto rectOf = [&](QStyle::SubControl part) {
        return slider->style()->subControlRect(QStyle::CC_Slider, &option, part, slider);
    };
    const QPoint start = rectOf(QStyle::SC_SliderHandle).center();
    option.sliderPosition = option.sliderValue = value;
    const QPoint end(rectOf(QStyle::SC_SliderHandle).center().x(), start.y());
    QTest::mousePress(slider, Qt::LeftButton, {}, start);
    for (const QPoint &place : {(start + end) / 2, end}) {
        QMouseEvent move(QEvent::MouseMove, place, slider->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(slider, &move);
        settle();
    }
    const auto nudge = [slider](int key) { QTest::keyClick(slider, Qt::Key(key)); };
    for (int i = 0; i < 100 && slider->value() != value; ++i) // a pixel is more than one step
        nudge(slider->value() < value ? Qt::Key_Right : Qt::Key_Left);
    QTest::mouseRelease(slider, Qt::LeftButton, {}, end);
    settle();
}

void TStoryFixture::clickRow(QAbstractItemView *view, const QModelIndex &index, Qt::KeyboardModifiers keys)
{
    ASSERT_TRUE(index.isValid());
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, keys, view->visualRect(index).center());
    settle();
}

void TStoryFixture::typeCell(QAbstractItemView *view, const QModelIndex &index, const QString &text)
{
    clickRow(view, index);
    view->setFocus();
    QTest::keyClick(view, Qt::Key_F2);
    settle();
    QWidget *editor = QApplication::focusWidget();
    ASSERT_NE(editor, nullptr);
    ASSERT_NE(editor, static_cast<QWidget *>(view)) << "no editor opened";
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
}

namespace {

/// Waits for a modal dialog that is not the last one, and goes on with the next step there.
void followDialogs(QList<std::function<void(QWidget *)>> steps, const QPointer<QWidget> &last, int triesLeft)
{
    QTimer::singleShot(20, QCoreApplication::instance(), [steps, last, triesLeft]() mutable {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || dialog == last || !dialog->isVisible()) {
            ASSERT_GT(triesLeft, 0) << "no dialog opened";
            followDialogs(steps, last, triesLeft - 1);
            return;
        }
        const auto step = steps.takeFirst();
        if (!steps.isEmpty())
            followDialogs(steps, dialog, 500);
        step(dialog);
    });
}

} // namespace

void TStoryFixture::inDialogs(const QList<std::function<void(QWidget *)>> &steps)
{
    followDialogs(steps, nullptr, 500);
}

void TStoryFixture::chooseFile(QWidget *dialog, const QString &path)
{
    ASSERT_NE(qobject_cast<QFileDialog *>(dialog), nullptr);
    auto *name = dialog->findChild<QLineEdit *>("fileNameEdit");
    ASSERT_NE(name, nullptr);
    name->setFocus();
    QTest::keyClick(name, Qt::Key_A, Qt::ControlModifier);
    name->insert(path); // typing brings up a list of completions
    QTest::keyClick(name, Qt::Key_Return);
}

QListWidget *TStoryFixture::chainList()
{
    return the<QListWidget>("listWidgetProcessingActions");
}

int TStoryFixture::chainRow(int actionId)
{
    for (int row = 0; row < chainList()->count(); ++row) {
        if (chainList()->item(row)->type() == actionId)
            return row;
    }
    ADD_FAILURE() << "no action " << actionId;
    return 0;
}

void TStoryFixture::chooseAction(int actionId)
{
    QListWidgetItem *row = chainList()->item(chainRow(actionId));
    clickRow(chainList(), chainList()->model()->index(chainList()->row(row), 0));
}

void TStoryFixture::checkAction(int actionId)
{
    QListWidget *list = chainList();
    QListWidgetItem *row = list->item(chainRow(actionId));
    list->scrollToItem(row);
    const QRect rect = list->visualItemRect(row);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(rect.left() + 11, rect.center().y()));
    settle();
}

QVariantMap TStoryFixture::chainAction(int actionId)
{
    const TYrexProcParams &chain = spectrum()->procParams();
    return chain.action(chain.indexOfAction(actionId));
}

TCanvasYrexSpectrum *TStoryFixture::specItem(int page)
{
    const auto *on = document()->pages().value(page);
    return on && !on->items().isEmpty() ? dynamic_cast<TCanvasYrexSpectrum *>(on->items().first()) : nullptr;
}

TCanvasYrexSpectrum *TStoryFixture::shownItem()
{
    return specItem(document()->pages().indexOf(view()->page()));
}

QByteArray TStoryFixture::bytesOf(const TCanvasItem *item)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    item->store(stream);
    return bytes;
}

void TStoryFixture::undoTo(int steps)
{
    while (undo()->index() > steps) {
        const int before = undo()->index();
        key(Qt::Key_Z, Qt::ControlModifier);
        ASSERT_LT(undo()->index(), before) << "Ctrl+Z did nothing after " << lastStep().toStdString();
    }
    fWindow->grab();
}

QPoint TStoryFixture::onPlot(double x, double y)
{
    const TBasePlotter *plotter = shownItem()->activePlotter();
    QPointF place;
    EXPECT_TRUE(plotter->scale2Canvas(horzDir, x, place.rx()));
    EXPECT_TRUE(plotter->scale2Canvas(vertDir, y, place.ry()));
    return view()->itemToView(*shownItem()).map(place).toPoint();
}

QPoint TStoryFixture::onPlotX(double x, double height)
{
    const TBasePlotter *plotter = shownItem()->activePlotter();
    double place = 0.0;
    EXPECT_TRUE(plotter->scale2Canvas(horzDir, x, place));
    const QRectF curves = plotter->getPlotCurvesRect();
    return view()->itemToView(*shownItem()).map(QPointF(place, curves.top() + height * curves.height())).toPoint();
}

QRect TStoryFixture::curvesRect()
{
    return view()->itemToView(*shownItem()).mapRect(shownItem()->activePlotter()->getPlotCurvesRect()).toAlignedRect();
}

int TStoryFixture::countColor(const QColor &color, const QRect &rect, int tolerance)
{
    const QImage image = view()->viewport()->grab(rect).toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor one = image.pixelColor(x, y);
            count += std::abs(one.red() - color.red()) <= tolerance &&
                     std::abs(one.green() - color.green()) <= tolerance &&
                     std::abs(one.blue() - color.blue()) <= tolerance;
        }
    }
    return count;
}

QRectF TStoryFixture::labelRect(const QUuid &peak)
{
    QRectF rect;
    for (const TPlotHotArea &area : yrexPlot()->hotAreasOf(peak))
        rect |= area.rect();
    return rect;
}

int TStoryFixture::overlappingLabels()
{
    fWindow->grab();
    QVector<QRectF> rects;
    for (const auto *peak : spectrum()->peaks())
        rects.append(labelRect(peak->id));
    int count = 0;
    for (int i = 0; i < rects.size(); ++i) {
        for (int k = 0; k < i; ++k) {
            const QRectF both = rects.at(i) & rects.at(k);
            count += both.width() > 0.5 && both.height() > 0.5;
        }
    }
    return count;
}

QStringList TStoryFixture::drawnTexts()
{
    static const QRegularExpression cText("<text[^>]*>([^<]*)</text>");
    const QString svg = QString::fromUtf8(
        TPictureExporter::ofItem(*shownItem(), shownItem()->rect().size()).bytes(TPictureExporter::cSvg));
    QStringList texts;
    QRegularExpressionMatchIterator matches = cText.globalMatch(svg);
    while (matches.hasNext())
        texts.append(matches.next().captured(1).trimmed());
    return texts;
}

QString TStoryFixture::hint()
{
    return fWindow->status().hint();
}

QAction *TStoryFixture::action(const char *name)
{
    fWindow->actionTable().updateStates();
    return fWindow->actionTable().action(name);
}

bool TStoryFixture::isChecked(const char *name)
{
    return action(name)->isChecked();
}
