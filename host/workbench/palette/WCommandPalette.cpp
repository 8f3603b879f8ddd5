#include "WCommandPalette.h"

#include "TFuzzyMatch.h"
#include "TPaletteDelegate.h"
#include "settings/TDefaultsIni.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <tuple>

namespace {

constexpr int cWidth = 640;
constexpr int cHeight = 420;
constexpr int cMargin = 6;

struct TFound
{
    int fEntry = 0;
    int fScore = 0;
    int fRank = 0; // among those used last
    bool fIsEnabled = true;
    QVector<int> fPlaces;
};

} // namespace

WCommandPalette::WCommandPalette(const TCollect &collect, QWidget *window)
    : QFrame(window)
    , fCollect(collect)
    , fLine(new QLineEdit(this))
    , fList(new QListWidget(this))
{
    setObjectName("commandPalette");
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    fLine->setPlaceholderText(tr("Type what you want to do"));
    fLine->setClearButtonEnabled(true);
    fList->setFocusPolicy(Qt::NoFocus); // keys stay in the line
    fList->setUniformItemSizes(true);
    fList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fList->setItemDelegate(new TPaletteDelegate(fList));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(cMargin, cMargin, cMargin, cMargin);
    layout->setSpacing(cMargin);
    layout->addWidget(fLine);
    layout->addWidget(fList);
    setFocusProxy(fLine);
    hide();
    fLine->installEventFilter(this);
    window->installEventFilter(this);
    connect(fLine, &QLineEdit::textChanged, this, &WCommandPalette::fill);
    connect(fList, &QListWidget::itemClicked, this, &WCommandPalette::runCurrent);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (isVisible() && now && !isAncestorOf(now))
            hide();
    });
}

void WCommandPalette::open()
{
    fFocusBefore = QApplication::focusWidget();
    fEntries = fCollect();
    fLine->clear();
    fill();
    place();
    show();
    raise();
    fLine->setFocus();
}

void WCommandPalette::dismiss()
{
    hide();
    if (fFocusBefore && fFocusBefore->isVisible())
        fFocusBefore->setFocus();
}

void WCommandPalette::place()
{
    const QRect room = parentWidget()->rect();
    resize(std::min(cWidth, room.width()), std::min(cHeight, room.height()));
    move((room.width() - width()) / 2, room.height() / 12);
}

void WCommandPalette::fill()
{
    const QStringList recent = TDefaultsIni().value(cRecentKey, QStringList()).toStringList();
    QVector<TFound> found;
    for (int i = 0; i < fEntries.size(); ++i) {
        const TPaletteEntry &entry = fEntries.at(i);
        TFound one;
        one.fEntry = i;
        one.fScore = TFuzzyMatch::score(fLine->text(), entry.fTitle, entry.fPath, &one.fPlaces);
        const int rank = entry.fId.isEmpty() ? -1 : recent.indexOf(entry.fId);
        one.fRank = rank < 0 ? cMaxRecent : rank;
        one.fIsEnabled = entry.fIsEnabled;
        if (one.fScore >= 0)
            found.append(one);
    }
    const bool isTyped = !fLine->text().trimmed().isEmpty();
    const auto order = [isTyped](const TFound &one) {
        // what was used last comes first of equals, whatever can be used now
        return std::make_tuple(-one.fScore, one.fRank, isTyped && !one.fIsEnabled, one.fEntry);
    };
    std::sort(found.begin(), found.end(), [&](const TFound &a, const TFound &b) { return order(a) < order(b); });
    fList->clear();
    for (const TFound &one : qAsConst(found)) {
        auto *row = new QListWidgetItem(fList);
        TPaletteDelegate::fill(*row, fEntries.at(one.fEntry), one.fPlaces);
        row->setData(TPaletteDelegate::cEntryRole, one.fEntry);
    }
    fList->setCurrentRow(0);
}

QStringList WCommandPalette::titles() const
{
    QStringList titles;
    for (int row = 0; row < fList->count(); ++row)
        titles.append(fList->item(row)->text());
    return titles;
}

void WCommandPalette::remember(const QString &id)
{
    if (id.isEmpty())
        return;
    QStringList recent = TDefaultsIni().value(cRecentKey, QStringList()).toStringList();
    recent.removeAll(id);
    recent.prepend(id);
    TDefaultsIni().setValue(cRecentKey, QStringList(recent.mid(0, cMaxRecent)));
}

void WCommandPalette::runCurrent()
{
    const QListWidgetItem *row = fList->currentItem();
    if (!row)
        return;
    const TPaletteEntry entry = fEntries.at(row->data(TPaletteDelegate::cEntryRole).toInt());
    if (!entry.fIsEnabled)
        return; // the row says why
    dismiss();
    remember(entry.fId);
    entry.fRun();
}

bool WCommandPalette::eventFilter(QObject *object, QEvent *event)
{
    if (object == parentWidget()) {
        if (event->type() == QEvent::Resize && isVisible())
            place();
        return false;
    }
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept(); // a mode of the plot stays on
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Escape:
        dismiss();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        runCurrent();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QApplication::sendEvent(fList, event);
        return true;
    default:
        return false;
    }
}
