#include "WScriptPage.h"

#include "ScriptHabits.h"
#include "settings/TDefaultsIni.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QSpinBox>

WScriptPage::WScriptPage(QWidget *parent)
    : WSettingsPage(parent)
    , fFontSize(new QSpinBox(this))
    , fEcho(new QCheckBox(tr("&Echo actions as script lines"), this))
    , fHistory(new QCheckBox(tr("&Keep inputs from one start to the next"), this))
{
    fFontSize->setObjectName("scriptFontSpinBox");
    fFontSize->setRange(ScriptHabits::cSmallestFont, ScriptHabits::cLargestFont);
    fFontSize->setSuffix(tr(" pt"));
    fFontSize->setValue(QFontInfo(ScriptHabits::font()).pointSize());
    fEcho->setObjectName("scriptEchoSettingCheckBox");
    fEcho->setChecked(ScriptHabits::isEchoing());
    fHistory->setObjectName("scriptHistoryCheckBox");
    fHistory->setToolTip(tr("Off: what was kept is forgotten"));
    fHistory->setChecked(ScriptHabits::keepsHistory());
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Font of the console"), fFontSize);
    form->addRow(QString(), fEcho);
    form->addRow(QString(), fHistory);
}

void WScriptPage::apply()
{
    TDefaultsIni settings;
    settings.setValue(ScriptHabits::cFontSizeKey, fFontSize->value());
    ScriptHabits::setEchoing(fEcho->isChecked());
    settings.setValue(ScriptHabits::cKeepHistoryKey, fHistory->isChecked());
    if (!fHistory->isChecked())
        settings.setValue(ScriptHabits::cHistoryKey, QStringList());
}
