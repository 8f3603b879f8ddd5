#include "ui/TIcons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace {

constexpr char cInk[] = "#2B2F36"; // of all drawings
constexpr char cDarkInk[] = "#E4E7EB";
constexpr double cDisabledOpacity = 0.38;

bool isDark()
{
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

/// The file for one theme; empty when there is none.
QString fileOf(const QString &path, bool dark)
{
    QStringList places{path};
    if (path.startsWith(QLatin1String("::/"))) {
        const QString rest = path.mid(2);
        places = QStringList{(dark ? ":/themes/dark" : ":/themes/light") + rest, ':' + rest};
    }
    for (const QString &place : qAsConst(places)) {
        QString drawing = place.left(place.lastIndexOf('.')) + ".svg";
        if (QFile::exists(drawing))
            return drawing;
        if (QFile::exists(place))
            return place;
    }
    return QString();
}

class TThemedIconEngine : public QIconEngine
{
public:
    explicit TThemedIconEngine(const QString &path)
        : fPath(path)
    {
    }

    QIconEngine *clone() const override { return new TThemedIconEngine(fPath); }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const bool dark = isDark();
        const QString file = fileOf(fPath, dark);
        painter->save();
        painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * cDisabledOpacity);
        QFile drawing(file);
        if (!file.endsWith(QLatin1String(".svg"))) {
            painter->drawPixmap(rect, QIcon(file).pixmap(rect.size()));
        } else if (drawing.open(QIODevice::ReadOnly)) {
            QByteArray bytes = drawing.readAll();
            if (dark)
                bytes.replace(cInk, cDarkInk);
            QSvgRenderer(bytes).render(painter, rect);
        }
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        const bool isGrey = mode == QIcon::Disabled;
        const QString key = QString("kelmora %1 %2 %3 %4 %5")
                                .arg(fPath)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(int(isDark()))
                                .arg(int(isGrey));
        QPixmap made;
        if (QPixmapCache::find(key, &made))
            return made;
        made = QPixmap(size);
        made.fill(Qt::transparent);
        QPainter painter(&made);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        painter.end();
        QPixmapCache::insert(key, made);
        return made;
    }

private:
    QString fPath;
};

} // namespace

namespace TIcons {

QIcon load(const QString &path)
{
    if (fileOf(path, false).isEmpty() && fileOf(path, true).isEmpty())
        return QIcon();
    return QIcon(new TThemedIconEngine(path));
}

} // namespace TIcons
