#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

// Renders drawings into the pictures that resources are made of, at build:
//   renderimages FOLDER SIDE FILE.svg...
// writes FOLDER/NAME.png with SIDE pixels a side and FOLDER/NAME@2x.png with twice as many.

namespace {

bool render(const QString &drawing, int side, const QString &path)
{
    QSvgRenderer renderer(drawing);
    if (!renderer.isValid())
        return false;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(0, 0, side, side));
    painter.end();
    return image.save(path, "PNG");
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv); // paths only, so no display is needed
    const QStringList arguments = QCoreApplication::arguments();
    const int side = arguments.value(2).toInt();
    if (arguments.size() < 4 || side < 1 || side > 1024) {
        std::fprintf(stderr, "renderimages FOLDER SIDE FILE.svg...\n");
        return 2;
    }
    const QDir folder(arguments.at(1));
    folder.mkpath(".");
    for (const QString &path : arguments.mid(3)) {
        const QString name = folder.filePath(QFileInfo(path).completeBaseName());
        if (!render(path, side, name + ".png") || !render(path, 2 * side, name + "@2x.png")) {
            std::fprintf(stderr, "renderimages: %s is no drawing that could be rendered\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
