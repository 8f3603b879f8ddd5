#include "jcamp/TJCAMPDatasetInterpreter.h"

TJCAMPDatasetInterpreter::TJCAMPDatasetInterpreter(TJCAMPBlock *block, const QList<const char *> &)
    : fBlock(block)
{
}
TJCAMPDatasetInterpreter::~TJCAMPDatasetInterpreter() = default;
QByteArray TJCAMPDatasetInterpreter::getString(const char *, bool &found) const
{
    found = false;
    return QByteArray();
}
double TJCAMPDatasetInterpreter::getDouble(const char *, bool &found) const
{
    return found = false;
}
int TJCAMPDatasetInterpreter::nPoints() const
{
    return 0;
}
qint64 TJCAMPDatasetInterpreter::dataBlockStart() const
{
    return 0;
}
TJCAMPDataIterator *TJCAMPDatasetInterpreter::dataIterator()
{
    return nullptr;
}
QVector<QPointF> TJCAMPDatasetInterpreter::pairs() const
{
    return {};
}
void TJCAMPDatasetInterpreter::setDataLabel(const char *label)
{
    fDataLabel = label;
}
