#pragma once

#include <QImage>
#include <QStringList>
#include <QVector>

class TGuideWindow;

/// A picture of the guide: its file name without ending, the actions without which it is left out, and what draws it
/// in a new window.
struct TScene
{
    QString fName;
    QStringList fNeeds;
    QImage (*fDraw)(TGuideWindow &);
};

namespace Scenes {

/// All pictures, in the order of the guide.
QVector<TScene> all();

QVector<TScene> files();
QVector<TScene> views();
QVector<TScene> processing();
QVector<TScene> marks();
QVector<TScene> stacks();
QVector<TScene> figures();
QVector<TScene> documents();
QVector<TScene> scripts();

} // namespace Scenes
