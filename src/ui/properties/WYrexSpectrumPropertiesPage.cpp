#include "WYrexSpectrumPropertiesPage.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexPlotProperties.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "WYrexClassesTable.h"
#include "WYrexColorButton.h"
#include "YrexActionTables.h"
#include "YrexPropertyTable.h"
#include "YrexPropertyValues.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>

namespace {

constexpr int cRunPause = 800; // ms without an edit that end a run
constexpr int cLabelWidth = 150;
constexpr int cUnitsWidth = 190;

const char *const cPlaceholders[] = {"Title", "Comment", "Date", "Class", "Number", "Count", "Units", "File"};

} // namespace

WYrexSpectrumPropertiesPage::WYrexSpectrumPropertiesPage(IPluginHost &host, QWidget *parent)
    : WPropertiesPages(parent)
    , fHost(host)
    , fStack(new QStackedWidget(this))
    , fBag(std::make_unique<TMultiYrexSpectrumPropertiesBag>())
{
    setObjectName("yrexSpectrumPropertiesPage");
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(fStack);
    for (const TYrexPropertyPage &page : yrexPropertyPages())
        fStack->addWidget(makePage(page));
    fRunEnd.setSingleShot(true);
    fRunEnd.setInterval(cRunPause);
    connect(&fRunEnd, &QTimer::timeout, this, [this] {
        if (QApplication::mouseButtons() & Qt::LeftButton) // a slider is held
            fRunEnd.start();
        else
            endRun();
    });
}

WYrexSpectrumPropertiesPage::~WYrexSpectrumPropertiesPage() = default;

QStringList WYrexSpectrumPropertiesPage::titles() const
{
    QStringList titles;
    for (const TYrexPropertyPage &page : yrexPropertyPages())
        titles.append(yrexPropertyText(page.fTitle));
    return titles;
}

void WYrexSpectrumPropertiesPage::showPage(int page)
{
    fStack->setCurrentIndex(page);
}

QWidget *WYrexSpectrumPropertiesPage::makePage(const TYrexPropertyPage &page)
{
    auto *area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    auto *content = new QWidget(area);
    auto *grid = new QGridLayout(content);
    grid->setColumnMinimumWidth(0, cLabelWidth);
    grid->setHorizontalSpacing(12);
    for (int line = 0; line < page.fRows.size(); ++line)
        addRow(grid, line, page.fRows.at(line));
    grid->setRowStretch(page.fRows.size(), 1);
    grid->setColumnStretch(3, 1);
    area->setWidget(content);
    return area;
}

void WYrexSpectrumPropertiesPage::addRow(QGridLayout *grid, int line, const TYrexPropertyRow &row)
{
    QWidget *content = grid->parentWidget();
    auto *label = new QLabel(yrexPropertyText(row.fLabel), content);
    grid->addWidget(label, line, 0);
    const auto embolden = [](QLabel *head) {
        QFont bold = head->font();
        bold.setBold(true);
        head->setFont(bold);
    };
    if (row.fCells.isEmpty())
        embolden(label);
    for (int i = 0; i < row.fHeads.size(); ++i) {
        auto *head = new QLabel(yrexPropertyText(row.fHeads.at(i)), content);
        embolden(head);
        grid->addWidget(head, line, i + 1);
    }
    for (int i = 0; i < row.fCells.size(); ++i) {
        auto *cell = new QHBoxLayout;
        cell->setSpacing(8);
        for (const TYrexPropertyControl &control : row.fCells.at(i)) {
            QWidget *widget = makeControl(control, label->text(), content);
            cell->addWidget(widget);
            if (auto *format =
                    control.fKind == TYrexPropertyControl::titleFormat ? qobject_cast<QLineEdit *>(widget) : nullptr)
                cell->addWidget(makePlaceholders(format));
        }
        cell->addStretch();
        grid->addLayout(cell, line, i + 1, 1, row.fCells.size() == 1 ? 3 : 1);
    }
}

QWidget *WYrexSpectrumPropertiesPage::makeControl(const TYrexPropertyControl &control, const QString &label,
                                                  QWidget *parent)
{
    if (control.fKind == TYrexPropertyControl::trigger)
        return makeTrigger(control, parent);
    if (control.fKind == TYrexPropertyControl::units)
        return makeUnits(control, parent);
    if (control.fKind == TYrexPropertyControl::classes)
        return makeClasses(control, parent);
    const TYrexPropertyWidget made = makeYrexPropertyWidget(
        control, [this, key = control.fKey](const QVariant &value) { edited(key, value); }, parent);
    made.fWidget->setAccessibleName(label.isEmpty() ? yrexPropertyText(control.fText) : label);
    fBound.append({&control, made});
    return made.fWidget;
}

QWidget *WYrexSpectrumPropertiesPage::makeClasses(const TYrexPropertyControl &control, QWidget *parent)
{
    fClasses = new WYrexClassesTable(parent);
    fClasses->setObjectName(control.fKey);
    connect(fClasses, &WYrexClassesTable::edited, this,
            [this, key = control.fKey](const QVariantMap &classes) { edited(key, classes); });
    fBound.append({&control, {fClasses, [this](const QVariant &value, bool) {
                                  TCanvasYrexSpectrum *item = first();
                                  IStackedItemCtx *stack = item ? item->stackedContext() : nullptr;
                                  fClasses->showClasses(stack ? stack->classNames() : QStringList(), value.toMap());
                              }}});
    return fClasses;
}

QWidget *WYrexSpectrumPropertiesPage::makeTrigger(const TYrexPropertyControl &control, QWidget *parent)
{
    auto *button = new QPushButton(yrexPropertyText(control.fText), parent);
    button->setAutoDefault(false);
    button->setObjectName(control.fKey);
    connect(button, &QPushButton::clicked, this, [this, name = control.fKey] {
        if (QAction *action = fHost.gui()->action(name))
            action->trigger();
    });
    return button;
}

/// Units are no property of the looks: the actions of the menus change them.
QWidget *WYrexSpectrumPropertiesPage::makeUnits(const TYrexPropertyControl &control, QWidget *parent)
{
    auto *box = new QComboBox(parent);
    box->setObjectName(control.fKey + "Units");
    box->setAccessibleName(tr("Units"));
    box->setFixedWidth(cUnitsWidth);
    box->setFocusPolicy(Qt::StrongFocus);
    const auto add = [box](const TYrexActionCode &unit) {
        box->addItem(yrexUnitDisplayName(unit.fCode), unit.fCode);
        box->setItemData(box->count() - 1, QString(unit.fName), Qt::UserRole + 1);
    };
    if (control.fKey == QLatin1String("horizontal"))
        std::for_each(std::begin(cHorizontalUnits), std::end(cHorizontalUnits), add);
    else
        std::for_each(std::begin(cVerticalUnits), std::end(cVerticalUnits), add);
    connect(box, QOverload<int>::of(&QComboBox::activated), this, [this, box](int index) {
        if (QAction *action = fHost.gui()->action(box->itemData(index, Qt::UserRole + 1).toString()))
            action->trigger();
        showUnits(); // it may have been refused
    });
    fUnits.append(box);
    return box;
}

QWidget *WYrexSpectrumPropertiesPage::makePlaceholders(QLineEdit *line)
{
    auto *button = new QPushButton(tr("Insert"), line->parentWidget());
    button->setObjectName("placeholders");
    button->setToolTip(tr("Puts a placeholder at the cursor. What the spectrum does not have is left out."));
    button->setAutoDefault(false);
    auto *menu = new QMenu(button);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, line] { fillPlaceholders(menu, line); });
    button->setMenu(menu);
    return button;
}

void WYrexSpectrumPropertiesPage::fillPlaceholders(QMenu *menu, QLineEdit *line)
{
    menu->clear();
    const auto add = [this, line](QMenu *to, const QString &name) {
        const QString text = '{' + name + '}';
        to->addAction(text, this, [this, line, text] {
            line->insert(text);
            edited(line->objectName(), line->text());
            line->setFocus();
        });
    };
    for (const char *name : cPlaceholders)
        add(menu, name);
    const TCanvasYrexSpectrum *item = first();
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    if (!spectrum || spectrum->params().isEmpty())
        return;
    QStringList names;
    for (const TSpectrumParam &param : spectrum->params())
        names.append(QString::fromLatin1(TSpectrumParam::paramName(param.id())));
    names.removeAll(QString());
    names.removeDuplicates();
    names.sort();
    QMenu *more = menu->addMenu(tr("Parameters"));
    for (const QString &name : qAsConst(names))
        add(more, name);
}

TCanvasItemList WYrexSpectrumPropertiesPage::items() const
{
    TCanvasItemList items;
    for (const TSecurePtr<TCanvasItem> &item : fItems) {
        if (item)
            items.append(item.get());
    }
    return items;
}

TCanvasYrexSpectrum *WYrexSpectrumPropertiesPage::first() const
{
    const TCanvasItemList present = items();
    return present.isEmpty() ? nullptr : yrexItem(present.first());
}

void WYrexSpectrumPropertiesPage::setItems(const TCanvasItemList &wanted)
{
    const bool isSame = items() == wanted;
    fItems.clear();
    for (ICanvasItem *item : wanted)
        fItems.append(TSecurePtr<TCanvasItem>(canvasItem(item)));
    if (!isSame)
        endRun();
    auto fresh = std::make_unique<TMultiYrexSpectrumPropertiesBag>();
    fresh->fillFrom(wanted);
    const QVariantMap waiting = isSame && fHasPending ? fBag->appliedFields() : QVariantMap();
    for (auto it = waiting.constBegin(); it != waiting.constEnd(); ++it)
        fresh->setValue(it.key(), it.value());
    fBag = std::move(fresh);
    setPending(!waiting.isEmpty());
    showFields();
    showUnits();
}

void WYrexSpectrumPropertiesPage::showFields()
{
    for (const TBound &bound : qAsConst(fBound))
        bound.fMade.fShow(fBag->value(bound.fControl->fKey), fBag->isMixed(bound.fControl->fKey));
    showNeeds();
}

/// The title of a stack takes the colour of its active curve.
void WYrexSpectrumPropertiesPage::showTitleColor()
{
    const TCanvasItemList shown = items();
    const bool isArrayed = !shown.isEmpty() && std::all_of(shown.begin(), shown.end(), [](ICanvasItem *item) {
        const T1DYrexPlot *plot = yrexItem(item) ? yrexItem(item)->activeYrexPlot() : nullptr;
        return plot && plot->isArrayed();
    });
    if (auto *button = findChild<WYrexColorButton *>("title.color"))
        button->showInstead(isArrayed ? tr("as curve") : QString());
}

void WYrexSpectrumPropertiesPage::showNeeds()
{
    showTitleColor();
    for (const TBound &bound : qAsConst(fBound)) {
        QString needs = bound.fControl->fNeeds;
        if (needs.isEmpty())
            continue;
        const bool isOff = needs.startsWith('!');
        if (isOff)
            needs.remove(0, 1);
        bound.fMade.fWidget->setEnabled(fBag->isMixed(needs) || fBag->value(needs).toBool() != isOff);
    }
}

void WYrexSpectrumPropertiesPage::showUnits()
{
    const TCanvasYrexSpectrum *item = first();
    for (int i = 0; i < fUnits.size(); ++i) {
        QComboBox *box = fUnits.at(i);
        box->setEnabled(item);
        if (!item)
            continue;
        const int unit = i == 0 ? item->shownXUnits() : item->shownYUnits();
        box->setPlaceholderText(yrexUnitDisplayName(unit));
        box->setCurrentIndex(box->findData(unit));
    }
}

void WYrexSpectrumPropertiesPage::setLive(bool live)
{
    fIsLive = live;
    if (live)
        apply();
}

void WYrexSpectrumPropertiesPage::setPending(bool pending)
{
    if (fHasPending == pending)
        return;
    fHasPending = pending;
    emit pendingChanged();
}

void WYrexSpectrumPropertiesPage::edited(const QString &key, const QVariant &value)
{
    if (fItems.isEmpty())
        return;
    if (!fIsLive) {
        fBag->setValue(key, value);
        setPending(true);
        showNeeds();
        return;
    }
    beginRun(key);
    QVariantMap fields{{key, value}};
    if (key == QLatin1String("stack.classes")) // classes have colours of their own in that setting only
        fields.insert(QStringLiteral("stack.colorSetting"), int(gradientSetting));
    set(fields);
}

/// Within a run a step takes the place of the one before, so it may only set the same field.
void WYrexSpectrumPropertiesPage::beginRun(const QString &key)
{
    TCommandHistory &history = fHost.history();
    if (fRunKey != key || history.gesture() == 0 || history.gesture() != fRunGesture) {
        endRun();
        history.beginEditRun();
        fRunKey = key;
        fRunGesture = history.gesture();
    }
    fRunEnd.start();
}

void WYrexSpectrumPropertiesPage::endRun()
{
    fRunEnd.stop();
    if (!fRunKey.isEmpty() && fHost.document() && fHost.history().gesture() == fRunGesture)
        fHost.history().endGesture();
    fRunKey.clear();
    fRunGesture = 0;
}

void WYrexSpectrumPropertiesPage::set(const QVariantMap &fields)
{
    TYrexSpectrumPropertiesBag bag;
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it)
        bag.setValue(it.key(), it.value());
    if (!bag.isEmpty() && !items().isEmpty())
        fHost.history().push(new TCmdYrexPlotProperties(items(), bag));
    setItems(items()); // what the plots made of it
}

void WYrexSpectrumPropertiesPage::apply()
{
    endRun();
    if (!fHasPending || items().isEmpty())
        return;
    fHost.history().push(new TCmdYrexPlotProperties(items(), *fBag));
    setPending(false);
    setItems(items());
}

void WYrexSpectrumPropertiesPage::resetPage(int page)
{
    const TCanvasYrexSpectrum *item = first();
    if (!item || page < 0 || page >= yrexPropertyPages().size())
        return;
    endRun();
    const QVariantMap all = YrexPropertyValues::builtIn(*item);
    QVariantMap fields;
    for (const QString &key : yrexPropertyKeys(yrexPropertyPages().at(page))) {
        if (all.contains(key))
            fields.insert(key, all.value(key));
    }
    set(fields);
}

void WYrexSpectrumPropertiesPage::resetAll()
{
    endRun();
    setPending(false);
    if (const TCanvasYrexSpectrum *item = first())
        set(YrexPropertyValues::builtIn(*item));
}

void WYrexSpectrumPropertiesPage::saveAsDefault()
{
    const TCanvasYrexSpectrum *item = first();
    if (!item)
        return;
    TYrexSpectrumPropertiesBag bag;
    const QVariantMap fields = YrexPropertyValues::defaultsOf(*item);
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it)
        bag.setValue(it.key(), it.value());
    bag.saveDefaults(*item);
}

void WYrexSpectrumPropertiesPage::removeDefaults()
{
    if (const TCanvasYrexSpectrum *item = first()) {
        TYrexSpectrumPropertiesBag bag;
        bag.fillFrom(*item);
        bag.removeDefaults(*item);
    }
}

QStringList WYrexSpectrumPropertiesPage::presets() const
{
    QStringList names;
    for (const YrexPropertyValues::TPreset &preset : YrexPropertyValues::presets())
        names.append(yrexPropertyText(preset.fName));
    return names;
}

void WYrexSpectrumPropertiesPage::applyPreset(int preset)
{
    if (preset < 0 || preset >= YrexPropertyValues::presets().size() || items().isEmpty())
        return;
    endRun();
    const YrexPropertyValues::TPreset &wanted = YrexPropertyValues::presets().at(preset);
    TCommandHistory &history = fHost.history();
    history.beginMerged(yrexPropertyText(wanted.fName));
    set(wanted.fFields);
    if (QAction *size = fHost.gui()->action(wanted.fPageAction))
        size->trigger();
    history.endMerged();
}
