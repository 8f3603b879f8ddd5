// Draws the pictures of the user's guide and its table of keys: guidepictures OUTDIR [SCENE...] writes
// OUTDIR/pictures/SCENE.png and OUTDIR/keys.md.
#include "KeysPage.h"
#include "Scenes.h"
#include "TGuideWindow.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QHash>
#include <QLocale>
#include <algorithm>
#include <cstdio>

namespace {

constexpr int cFontSize = 9; // points
constexpr int cMaxColors = 256;
constexpr int cNear = 8; // square of the distance below which colours count as one

int distance(QRgb left, QRgb right)
{
    const int r = qRed(left) - qRed(right);
    const int g = qGreen(left) - qGreen(right);
    const int b = qBlue(left) - qBlue(right);
    return r * r + g * g + b * b;
}

/// The picture with at most 256 colours: the most frequent ones that are not too near to each other.
QImage withFewColors(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            ++counts[line[x] | 0xff000000u];
    }
    QVector<QRgb> colors = counts.keys().toVector();
    std::sort(colors.begin(), colors.end(), [&counts](QRgb left, QRgb right) {
        return counts.value(left) != counts.value(right) ? counts.value(left) > counts.value(right) : left < right;
    });
    QVector<QRgb> table;
    for (const QRgb color : colors) {
        const auto isNear = [color](QRgb other) { return distance(color, other) < cNear; };
        if (table.size() < cMaxColors && std::none_of(table.cbegin(), table.cend(), isNear))
            table.append(color);
    }
    return picture.convertToFormat(QImage::Format_Indexed8, table, Qt::ThresholdDither | Qt::AvoidDither);
}

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    if (!isWritten)
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return isWritten;
}

/// False when the picture could not be made.
bool draw(const TScene &scene, const QDir &folder)
{
    TGuideWindow guide;
    for (const QString &action : scene.fNeeds) {
        if (!guide.has(action)) {
            std::printf("%s: left out, the program has no %s\n", qPrintable(scene.fName), qPrintable(action));
            return true;
        }
    }
    const QImage picture = withFewColors(scene.fDraw(guide));
    const QString path = folder.filePath("pictures/" + scene.fName + ".png");
    const bool isSaved = !picture.isNull() && picture.save(path, "PNG", 0);
    std::printf("%s: %d x %d\n", qPrintable(scene.fName), picture.width(), picture.height());
    if (!isSaved)
        std::fprintf(stderr, "%s: not written\n", qPrintable(path));
    return isSaved;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_HASH_SEED", "0");
    qputenv("TZ", "UTC");
    QLocale::setDefault(QLocale::c());
    QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    QFont font("DejaVu Sans");
    font.setPointSize(cFontSize);
    QApplication::setFont(font);
    QStringList wanted = QCoreApplication::arguments().mid(1);
    if (wanted.isEmpty()) {
        std::fprintf(stderr, "usage: guidepictures OUTDIR [SCENE...]\n");
        return 2;
    }
    const QDir folder(QDir::current().absoluteFilePath(wanted.takeFirst()));
    QDir::setCurrent(YREX_SOURCES); // so that no picture shows where they lie
    if (!folder.mkpath("pictures")) {
        std::fprintf(stderr, "%s: cannot be made\n", qPrintable(folder.path()));
        return 1;
    }
    int drawn = 0;
    for (const TScene &scene : Scenes::all()) {
        if (!wanted.isEmpty() && !wanted.contains(scene.fName))
            continue;
        if (!draw(scene, folder))
            return 1;
        ++drawn;
    }
    if (wanted.isEmpty() || wanted.contains("keys")) {
        TGuideWindow guide;
        if (!write(folder.filePath("keys.md"), KeysPage::markdown(guide).toUtf8()))
            return 1;
    } else if (drawn < wanted.size()) {
        std::fprintf(stderr, "there are no such scenes\n");
        return 1;
    }
    return 0;
}
