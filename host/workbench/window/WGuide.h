#pragma once

#include <QWidget>

class WGuideBrowser;

/// The user's guide, in a window beside the program's.
class WGuide : public QWidget
{
    Q_OBJECT

public:
    /// The folder holds README.md, the page of contents, and the pages that it leads to.
    explicit WGuide(const QString &folder, QWidget *parent = nullptr);

    WGuideBrowser &browser() { return *fBrowser; }
    void showContents();

private:
    QString fFolder;
    WGuideBrowser *fBrowser;
};
