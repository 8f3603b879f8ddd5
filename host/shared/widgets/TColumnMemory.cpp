#include "widgets/TColumnMemory.h"

#include "settings/TDefaultsIni.h"

#include <QHeaderView>
#include <QTableView>

namespace {

constexpr int cMinWidth = 12; // narrower is lost
constexpr int cMaxWidth = 4000;

} // namespace

TColumnMemory::TColumnMemory(QTableView *view, const QString &name, const std::function<QStringList()> &keys)
    : QObject(view)
    , fView(view)
    , fName(name)
    , fKeys(keys)
{
    const QHeaderView *header = view->horizontalHeader();
    connect(header, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { noteWidth(column, width); });
    connect(header, &QHeaderView::sectionMoved, this, [this] {
        if (!fIsArranging)
            save();
    });
}

QString TColumnMemory::settingsKey() const
{
    return "Kelmora/Tables/" + fName;
}

void TColumnMemory::arrange(const std::function<void()> &work)
{
    const bool before = fIsArranging;
    fIsArranging = true;
    work();
    fIsArranging = before;
}

void TColumnMemory::noteWidth(int column, int width)
{
    const QHeaderView *header = fView->horizontalHeader();
    if (fIsArranging || width < cMinWidth || header->sectionResizeMode(column) != QHeaderView::Interactive)
        return;
    int last = header->count() - 1;
    while (last > 0 && header->isSectionHidden(header->logicalIndex(last)))
        --last;
    if (header->stretchLastSection() && header->visualIndex(column) == last)
        return; // it takes what the window leaves
    const QString key = fKeys().value(column);
    if (key.isEmpty())
        return;
    fWidths.insert(key, width);
    save();
}

void TColumnMemory::setShown(int column, bool shown)
{
    arrange([this, column, shown] { fView->setColumnHidden(column, !shown); });
    fShown.insert(fKeys().value(column), shown);
    save();
}

void TColumnMemory::save() const
{
    const QStringList keys = fKeys();
    QStringList entries;
    for (int visual = 0; visual < fView->horizontalHeader()->count(); ++visual) {
        const QString key = keys.value(fView->horizontalHeader()->logicalIndex(visual));
        if (key.isEmpty())
            continue;
        const QString shown = fShown.contains(key) ? QString::number(int(fShown.value(key))) : QString();
        entries.append(QString("%1:%2:%3").arg(key).arg(fWidths.value(key)).arg(shown));
    }
    TDefaultsIni().setValue(settingsKey(), entries.join(';'));
}

void TColumnMemory::restore()
{
    const QStringList keys = fKeys();
    QHeaderView *header = fView->horizontalHeader();
    arrange([&] {
        int visual = 0;
        for (const QString &entry : TDefaultsIni().value(settingsKey(), "").toString().split(';', Qt::SkipEmptyParts)) {
            const QStringList parts = entry.split(':');
            const int column = keys.indexOf(parts.first());
            if (parts.size() != 3 || column < 0 || column >= header->count())
                continue;
            while (visual < header->count() && keys.value(header->logicalIndex(visual)).isEmpty())
                ++visual;
            header->moveSection(header->visualIndex(column), qMin(visual++, header->count() - 1));
            const int width = parts.at(1).toInt();
            if (width >= cMinWidth && width <= cMaxWidth) {
                fWidths.insert(parts.first(), width);
                header->resizeSection(column, width);
            }
            if (!parts.at(2).isEmpty()) {
                fShown.insert(parts.first(), parts.at(2) == QLatin1String("1"));
                fView->setColumnHidden(column, !fShown.value(parts.first()));
            }
        }
    });
}
