#include "TCliStack.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliEnvironment.h"
#include "YrexGathering.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "commands/TCmdCreateItem.h"
#include "plugin/IConverter.h"
#include "services/IBatchHost.h"
#include "services/IPluginHost.h"
#include "utils/CommonUtils.h"

#include <QFileInfo>

TCliStack::TCliStack(const QStringList &files, const QString &format, const TCliEnvironment &environment)
{
    for (const QString &file : files) {
        TCliInput read = TCliInputs::open(file, format, environment);
        for (const QString &note : qAsConst(read.fNotes))
            environment.warn(file + ": " + note);
        if (read.isOk() && !fits(read))
            read.fail(cConverterContentUnusable, "its x unit is not that of the stack");
        if (read.isOk()) {
            take(read);
        } else {
            read.fItems.clear(); // their document goes with the next file
            fFailed.append(read);
        }
    }
    if (!fSpectra.isEmpty())
        putTogether(format, environment);
}

bool TCliStack::fits(const TCliInput &read) const
{
    QString unit = fHorzUnit;
    for (ICanvasItem *item : read.fItems) {
        const QString own = YrexGathering::horzUnitOf(*yrexItem(item));
        if (unit.isEmpty())
            unit = own;
        if (own.isEmpty() || own != unit)
            return false;
    }
    return true;
}

void TCliStack::take(TCliInput &read)
{
    for (ICanvasItem *item : read.fItems) {
        fHorzUnit = YrexGathering::horzUnitOf(*yrexItem(item));
        fSpectra += YrexGathering::copiesOf(*yrexItem(item));
    }
    if (fTaken.isEmpty()) {
        fInput.fFormat = read.fFormat;
        fInput.fFormatName = read.fFormatName;
    }
    fTaken.append(read.fFile);
    fSums.insert(QFileInfo(read.fFile).fileName(), QString::fromLatin1(read.fMd5));
    fInput.fMd5 += read.fMd5;
}

void TCliStack::putTogether(const QString &format, const TCliEnvironment &environment)
{
    Utils::Common::setDeterministic(fInput.fMd5);
    environment.fBatch.setDocument(std::make_unique<TDocument>());
    TDocument &document = *environment.fHost.document();
    auto *item = new TCanvasYrexSpectrum(fSpectra, document.appendPage(), nullptr);
    fSpectra.clear();
    fInput.fFile = fTaken.join("; ");
    fInput.fSums = fSums;
    auto *command = new TCmdCreateItem(TCmdCreateItem::cImport, {item}, &document, nullptr,
                                       {{"Filename", fInput.fFile}, {"md5sum", fSums}}, 0);
    command->setDescription("Import Item"); // as that of a file by itself
    command->setStackedFiles(fTaken, format);
    document.history().push(command);
    fInput.fItems = {item};
}
