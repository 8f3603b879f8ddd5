#pragma once

#include "TYrexSpectrumList.h"
#include "contexts/IStackedItemCtx.h"

class T1DStackedPlotProperties;
class T1DYrexPlot;
class TCanvasYrexSpectrum;

/// The stack of a spectrum item as the host's tables and commands see it.
class TYrexStackedItemCtx : public IStackedItemCtx
{
public:
    /// `item` is not owned; null gives the empty values.
    explicit TYrexStackedItemCtx(TCanvasYrexSpectrum *item)
        : fItem(item)
    {
    }

    int activeIndex() const override;
    void setActiveIndex(int index) override;
    int idOf(int index) const override;
    int count() const override;
    void setSelected(const QVector<int> &indices) override;
    bool take(int index, QByteArray &bytes) override;
    bool insert(int index, const QByteArray &bytes) override;
    QList<quint32> ids(bool visibleOnly, bool withSelected) const override;
    bool isVisible(int index) const override;
    bool allVisible() const override;
    bool selectionEmpty() const override;
    int anchor() const override;
    void storeOrder(TDataStream &stream) const override;
    void makeCurrent(int index) override;
    void setVisible(int index, bool visible) override;
    void setVisibleRange(int from, int to, bool visible) override;
    int pointedIndex(const QPoint &windowPoint) const override;
    int indexOfRow(int row) const override;
    int rowOf(int index) const override;
    bool isHidden(int index) const override;
    void move(const QVector<int> &indices) override;
    QVector<int> visibleOrder() const override;
    QVector<int> order() const override;
    QColor color(int index) const override;
    QString title(int index) const override;
    double arrayedValue(int index) const override;
    double relativeFactor(int index) const override;
    double factor(int index) const override;
    QString offsetText(int index, int decimals) const override;
    QString className(int index) const override;
    QColor color2(int index) const override { return color(index); }
    void setClassName(int index, const QString &name) override;
    QVector<QColor> colors() const override;
    void restoreClasses(const QMap<QString, TStackedClassProperties> &classes) override;
    int colorMode() const override;
    TStackedClassProperties classProperties(int index) const override;
    void setClass(int index, const TStackedClassProperties &properties) override;
    QMap<QString, TStackedClassProperties> classes() const override;
    void setClasses(const QMap<QString, TStackedClassProperties> &classes) override;
    void generateColors(const TStackedClassProperties &properties, const QVector<int> &indices) override;
    void regenerate(int colorSetting) override;
    QStringList classNames() const override;
    void setAllColors(const QVector<QColor> &colors) override;
    void dropClasses() override;
    int colorSetting() const override;
    void setColorSetting(int setting) override;
    void update() override;
    int displayMode() const override;
    void setDisplayMode(int mode) override;
    void refit() override;
    double zoomShare(int direction) const override;

private:
    TYrexStack &stack() const;
    TYrexSpectrum *spectrum(int index) const { return stack().at(index); }
    T1DYrexPlot *plot() const;
    T1DStackedPlotProperties *properties() const;

    TCanvasYrexSpectrum *fItem;
};
