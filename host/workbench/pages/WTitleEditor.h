#pragma once

#include <QLineEdit>

class WDocumentView;

/// A line that is typed into on the page, over the title that it takes the place of. Return and the loss of the focus
/// accept, Escape gives up; then it goes. No key that is pressed in it reaches the plot.
class WTitleEditor : public QLineEdit
{
    Q_OBJECT

public:
    static constexpr int cLeastWidth = 240; // pixels

    WTitleEditor(const QString &text, WDocumentView &view);

    /// `rect` in pixels of the viewport; the text gets the size of its height.
    void showOver(const QRectF &rect);
    void finish(bool accepts);

signals:
    /// The text is another one now, and accepted.
    void edited(const QString &text);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    QString fBefore;
    bool fIsOver = false;
};
