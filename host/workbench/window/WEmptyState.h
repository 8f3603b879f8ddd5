#pragma once

#include <QPixmap>
#include <QWidget>

/// What stands on the page while there is nothing: where files go, the samples, what was opened last.
class WEmptyState : public QWidget
{
    Q_OBJECT

public:
    explicit WEmptyState(QWidget *parent = nullptr);

    /// Endings that can be opened, as small tags.
    void setFormats(const QStringList &formats) { fFormats = formats; }
    void setSamples(const QStringList &paths) { fSamples = paths; }
    void setRecent(const QStringList &paths) { fRecent = paths; }
    /// A page of a document in use shows the first two lines only.
    void setBrief(bool brief);
    /// What a click at a place opens; empty for nothing.
    QString pathAt(const QPoint &place) const;

signals:
    void chosen(const QString &path);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int cardWidth() const;
    int cardColumns() const;
    int cardsHeight() const;
    QRect cardRect(int index) const;
    QRect recentRect(int index) const;
    int top() const;
    void drawTags(QPainter &painter, int y) const;
    void drawCard(QPainter &painter, int index) const;

    QStringList fFormats;
    QStringList fSamples;
    QStringList fRecent;
    QString fHovered;
    bool fBrief = false;
};
