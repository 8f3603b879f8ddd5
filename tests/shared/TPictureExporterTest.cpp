#include "exchange/TPictureExporter.h"

#include "plot/PainterUtils.h"
#include "plot/TTypesetter.h"

#include <QBuffer>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

TPictureOrigin origin()
{
    TPictureOrigin origin;
    origin.fTitle = "A < B";
    origin.fProgram = "test 1.0";
    origin.fFacts = {{"Filename", "/data/a&b.spc"}, {"md5sum", QVariantMap{{"a&b.spc", "0123"}}}};
    origin.fChain = "[{\"step\":0.10000000000000001}]";
    return origin;
}

/// 60 x 40 mm with a black frame and a raised exponent.
TPictureExporter picture()
{
    const auto draw = [](QPainter &painter) {
        painter.setPen(QPen(Qt::black, 20.0));
        painter.drawRect(QRectF(10, 10, 580, 380));
        TTypesetter(Utils::Painter::fontSizeInPixels(Utils::Painter::plotFont(40)))
            .draw(painter, QPointF(100, 200), "cm^-1");
    };
    return TPictureExporter(QSizeF(600, 400), draw, origin());
}

bool isDark(const QImage &image, double x, double y)
{
    const QColor color = image.pixelColor(int(x * image.width()), int(y * image.height()));
    return color.alpha() > 128 && color.lightness() < 128;
}

} // namespace

TEST(TPictureExporterTest, pngHasItsSizeItsResolutionAndTellsItsOrigin)
{
    TPictureExporter exporter = picture();
    exporter.setResolution(254);
    const QImage image = QImage::fromData(exporter.bytes(TPictureExporter::cPng));
    EXPECT_EQ(image.size(), QSize(600, 400));
    EXPECT_EQ(image.dotsPerMeterX(), 10000);
    EXPECT_EQ(image.text("Source"), "a&b.spc") << "folders stay at home";
    EXPECT_EQ(image.text("MD5"), "0123");
    EXPECT_EQ(image.text("Chain"), "[{\"step\":0.10000000000000001}]");
    EXPECT_EQ(image.text("Software"), "test 1.0");
    EXPECT_FALSE(image.hasAlphaChannel());
    exporter.setBackground(TPictureExporter::cTransparent);
    EXPECT_EQ(exporter.image().pixelColor(300, 100).alpha(), 0);
}

TEST(TPictureExporterTest, nothingIsStretchedInAnotherShape)
{
    TPictureExporter exporter = picture();
    exporter.setSizeMm(QSizeF(120, 40));
    const QImage image = exporter.image();
    EXPECT_NEAR(image.width(), image.height() * 3, 2);
    EXPECT_TRUE(isDark(image, 0.25 + 0.5 * 10 / 600.0, 0.5)); // the frame stands in the middle
    EXPECT_FALSE(isDark(image, 10 / 600.0, 0.5));
}

TEST(TPictureExporterTest, svgHasItsSizeInMillimetresAndTextAsTextOrAsOutlines)
{
    TPictureExporter exporter = picture();
    const QByteArray svg = exporter.bytes(TPictureExporter::cSvg);
    EXPECT_TRUE(svg.contains("width=\"60mm\" height=\"40mm\""));
    EXPECT_TRUE(svg.contains(">cm</text>"));
    EXPECT_TRUE(svg.contains("A &lt; B"));
    EXPECT_TRUE(svg.contains("a&amp;b.spc") && !svg.contains("/data/"));
    EXPECT_TRUE(svg.contains("0.10000000000000001"));
    QSvgRenderer renderer(svg);
    ASSERT_TRUE(renderer.isValid());
    QImage image(600, 400, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    EXPECT_TRUE(isDark(image, 10 / 600.0, 0.5));
    exporter.setTextAsText(false);
    EXPECT_FALSE(exporter.bytes(TPictureExporter::cSvg).contains("<text"));
}

TEST(TPictureExporterTest, pdfHasItsSizeAndItsOriginAsMetadata)
{
    const QByteArray pdf = picture().bytes(TPictureExporter::cPdf);
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    const QRegularExpressionMatch box = QRegularExpression("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]")
                                            .match(QString::fromLatin1(pdf.constData(), pdf.size()));
    EXPECT_NEAR(box.captured(1).toDouble(), 60 / 25.4 * 72, 1.0);
    EXPECT_NEAR(box.captured(2).toDouble(), 40 / 25.4 * 72, 1.0);
    EXPECT_TRUE(pdf.contains("<dc:source>a&amp;b.spc</dc:source>"));
    EXPECT_TRUE(pdf.contains("<xmp:CreatorTool>test 1.0</xmp:CreatorTool>"));
    EXPECT_TRUE(pdf.contains("/FontFile2")); // the font is in the file
}

TEST(TPictureExporterTest, aFileThatCannotBeWrittenLeavesNothing)
{
    const QTemporaryDir folder;
    QString error;
    EXPECT_FALSE(picture().save(folder.filePath("none/a.png"), TPictureExporter::cPng, &error));
    EXPECT_TRUE(error.contains("a.png"));
    EXPECT_TRUE(picture().save(folder.filePath("a.png"), TPictureExporter::cPng, &error));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("a.png"));
    EXPECT_EQ(TPictureExporter::formOf("x.PDF"), TPictureExporter::cPdf);
}
