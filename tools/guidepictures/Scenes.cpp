#include "Scenes.h"

QVector<TScene> Scenes::all()
{
    return files() + views() + processing() + marks() + stacks() + figures() + documents() + scripts();
}
