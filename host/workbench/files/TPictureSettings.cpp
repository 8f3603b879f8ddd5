#include "TPictureSettings.h"

#include "exchange/TPictureExporter.h"
#include "settings/TDefaultsIni.h"

namespace {

constexpr char cFormKey[] = "Kelmora/Export Picture/Form";
constexpr char cDpiKey[] = "Kelmora/Export Picture/Resolution";
constexpr char cBackgroundKey[] = "Kelmora/Export Picture/Background";
constexpr char cTextKey[] = "Kelmora/Export Picture/Text";

} // namespace

TPictureSettings TPictureSettings::load()
{
    const TDefaultsIni settings;
    TPictureSettings read;
    read.fForm = settings.value(cFormKey, int(TPictureExporter::cPng)).toInt();
    read.fDpi = qBound(cLowestDpi, settings.value(cDpiKey, read.fDpi).toInt(), cHighestDpi);
    read.fBackground = settings.value(cBackgroundKey, int(TPictureExporter::cWhite)).toInt();
    read.fTextAsText = settings.value(cTextKey, true).toBool();
    return read;
}

void TPictureSettings::save() const
{
    TDefaultsIni settings;
    settings.setValue(cFormKey, fForm);
    settings.setValue(cDpiKey, fDpi);
    settings.setValue(cBackgroundKey, fBackground);
    settings.setValue(cTextKey, fTextAsText);
}
