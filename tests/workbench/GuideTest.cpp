#include "TShellController.h"
#include "TWindowFixture.h"
#include "WGuide.h"
#include "WGuideBrowser.h"
#include "utils/FSUtils.h"

#include <QScrollBar>
#include <QTextBlock>

namespace {

class GuideTest : public TWindowFixture
{
protected:
    WGuide &guide()
    {
        fWindow->findChild<QAction *>("guide")->trigger();
        settle();
        return *fWindow->findChild<WGuide *>("guideWindow");
    }

    /// The links and the pictures of the page that is shown.
    static QStringList targets(const QTextDocument &page, int property)
    {
        QStringList found;
        for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
            for (auto it = block.begin(); !it.atEnd(); ++it)
                found.append(it.fragment().charFormat().stringProperty(property));
        }
        found.removeAll(QString());
        return found;
    }
};

} // namespace

TEST_F(GuideTest, everyPageOpensAndEveryLinkAndPictureOfThemIsThere)
{
    WGuideBrowser &browser = guide().browser();
    const QDir folder(Utils::FS::sharedFolder("docs/guide"));
    int pictures = 0;
    for (const QString &name : folder.entryList({"*.md"})) {
        const QUrl page = QUrl::fromLocalFile(folder.filePath(name));
        browser.setSource(page);
        EXPECT_GT(browser.document()->characterCount(), 500) << name.toStdString();
        for (const QString &link : targets(*browser.document(), QTextFormat::AnchorHref)) {
            const QUrl target = page.resolved(QUrl(link));
            EXPECT_TRUE(!target.isLocalFile() || QFileInfo::exists(target.toLocalFile()))
                << name.toStdString() << ": " << link.toStdString();
        }
        for (const QString &picture : targets(*browser.document(), QTextFormat::ImageName)) {
            const auto image = browser.loadResource(QTextDocument::ImageResource, QUrl(picture)).value<QImage>();
            EXPECT_FALSE(image.isNull()) << name.toStdString() << ": " << picture.toStdString();
            EXPECT_LE(image.width(), browser.viewport()->width());
            ++pictures;
        }
    }
    EXPECT_GT(pictures, 20);
}

TEST_F(GuideTest, linksLeadToHeadingsAndBack)
{
    WGuide &window = guide();
    WGuideBrowser &browser = window.browser();
    const QUrl contents = browser.source();
    EXPECT_EQ(window.windowTitle(), "Guide: The guide");
    browser.setSource(contents.resolved(QUrl("opening.md#telling-units")));
    settle();
    EXPECT_EQ(browser.textCursor().block().text(), "Telling units");
    EXPECT_GT(browser.verticalScrollBar()->value(), 0);
    EXPECT_TRUE(window.windowTitle().endsWith("Opening files"));
    browser.backward();
    EXPECT_EQ(browser.source(), contents);
    EXPECT_EQ(&guide(), &window) << "a second F1 brings the same window";
    QTest::keyClick(&browser, Qt::Key_Escape);
    settle();
    EXPECT_FALSE(fWindow->findChild<WGuide *>("guideWindow"));
}
