#pragma once

#include <QTextBrowser>

/// Shows pages of the guide (Markdown files with pictures) and follows their links.
class WGuideBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit WGuideBrowser(QWidget *parent = nullptr);

    /// Pictures as wide as the page at most; what is no picture as it is.
    QVariant loadResource(int type, const QUrl &name) override;

protected:
    /// Pictures follow the width of the page.
    void resizeEvent(QResizeEvent *event) override;

private:
    int textWidth() const;
    void dress();
    void goToHeading(const QString &fragment);

    QTimer *fFit; // once the size stays
    int fFittedWidth = 0;
};
