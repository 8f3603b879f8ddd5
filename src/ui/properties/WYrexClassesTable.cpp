#include "WYrexClassesTable.h"

#include "WYrexColorButton.h"
#include "plot/ColorUtils.h"
#include "plot/TStackedClassProperties.h"

#include <QComboBox>
#include <QHeaderView>

namespace {

constexpr int cRows = 4; // seen at once at most
constexpr int cWidth = 470;

} // namespace

WYrexClassesTable::WYrexClassesTable(QWidget *parent)
    : QTableWidget(0, cColumnCount, parent)
{
    setAccessibleName(tr("Classes"));
    setToolTip(tr("Classes are given to spectra in the table of stacked spectra. Their colours show in the setting "
                  "Gradient, which an edit of them chooses."));
    setHorizontalHeaderLabels({tr("Class"), tr("Mode"), tr("Base colour"), tr("Line")});
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->hide();
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setMinimumWidth(cWidth);
}

QSize WYrexClassesTable::sizeHint() const
{
    const int rows = qBound(1, rowCount(), cRows);
    const int height = horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize();
    return {cWidth, height + 2 * frameWidth()};
}

void WYrexClassesTable::addRow(int row, const QString &name)
{
    auto *cell = new QTableWidgetItem(name);
    cell->setFlags(Qt::ItemIsEnabled);
    setItem(row, cName, cell);
    const auto box = [this, row, name](int column, const QString &field, const QVector<QPair<int, QString>> &choices) {
        auto *one = new QComboBox(this);
        one->setObjectName(field);
        one->setAccessibleName(horizontalHeaderItem(column)->text() + ' ' + name);
        one->setFocusPolicy(Qt::StrongFocus);
        for (const QPair<int, QString> &choice : choices)
            one->addItem(choice.second, choice.first);
        connect(one, QOverload<int>::of(&QComboBox::activated), this,
                [this, one, name, field](int index) { editClass(name, field, one->itemData(index)); });
        setCellWidget(row, column, one);
    };
    box(cMode, QStringLiteral("mode"),
        {{oneColor, tr("Base")},
         {lightToDarkColors, tr("Light to dark")},
         {sequentialColors, tr("Sequential")},
         {paletteColors, tr("Palette")}});
    box(cLine, QStringLiteral("line"),
        {{int(Qt::SolidLine), tr("Solid")},
         {int(Qt::DashLine), tr("Dashed")},
         {int(Qt::DotLine), tr("Dotted")},
         {int(Qt::DashDotLine), tr("Dash-dot")},
         {int(Qt::DashDotDotLine), tr("Dash-dot-dot")}});
    auto *color = new WYrexColorButton(this);
    color->setObjectName(QStringLiteral("color"));
    color->setAccessibleName(horizontalHeaderItem(cColor)->text() + ' ' + name);
    connect(color, &WYrexColorButton::chosen, this,
            [this, name](const QColor &chosen) { editClass(name, QStringLiteral("color"), chosen.name()); });
    setCellWidget(row, cColor, color);
}

void WYrexClassesTable::showRow(int row, const QVariantMap &fields)
{
    const auto show = [this, row](int column, int value) {
        auto *box = static_cast<QComboBox *>(cellWidget(row, column));
        box->setCurrentIndex(box->findData(value));
    };
    show(cMode, fields.value("mode", int(paletteColors)).toInt());
    show(cLine, fields.value("line", int(Qt::SolidLine)).toInt());
    const QColor color(fields.value("color").toString());
    static_cast<WYrexColorButton *>(cellWidget(row, cColor))
        ->setColor(color.isValid() ? color : Utils::Color::paletteColor(0));
}

void WYrexClassesTable::showClasses(const QStringList &all, const QVariantMap &classes)
{
    QStringList names = all;
    names.removeAll(QString()); // spectra without a class are none
    fClasses = classes;
    if (names != fNames) { // else editors that are open stay
        fNames = names;
        setRowCount(0);
        setRowCount(names.size());
        for (int row = 0; row < names.size(); ++row)
            addRow(row, names.at(row));
        updateGeometry();
    }
    for (int row = 0; row < fNames.size(); ++row)
        showRow(row, classes.value(fNames.at(row)).toMap());
    setEnabled(!fNames.isEmpty());
}

void WYrexClassesTable::editClass(const QString &name, const QString &field, const QVariant &value)
{
    QVariantMap fields = fClasses.value(name).toMap();
    fields.insert(field, value);
    fClasses.insert(name, fields);
    emit edited({{name, fields}});
}
