#pragma once

#include "TCliFileCommand.h"
#include "TCliMarks.h"
#include "TCliScriptLog.h"
#include "TCliTarget.h"
#include "TYrexProcParams.h"

#include <QSize>
#include <memory>

/// zarnu process: imports files, runs a chain on every item, and writes data and pictures.
class TCliProcess : public TCliFileCommand
{
public:
    TCliSyntax syntax() const override;

protected:
    bool prepare(const TCliArguments &arguments, const TCliEnvironment &environment, QString &error) override;
    bool makeFolders(QString &error) override;
    void work(TCliInput &input, int index, const TCliEnvironment &environment, QByteArray &out) override;
    int jsonParts() const override;
    QVariantList chain() const override { return fChain ? fChain->actions() : QVariantList(); }
    bool finish(QString &error) override;
    bool gathers() const override { return fStacks; }

private:
    void tellScript(const TCliInput &input, int index, const TCliEnvironment &environment);
    bool loadChain(const QString &file, const TCliEnvironment &environment, QString &error);
    bool readSize(const QString &text, QString &error);
    void draw(TCliInput &input, int index) const;
    void mark(TCliInput &input, const TCliEnvironment &environment) const;

    TCliTarget fData;
    TCliTarget fPictures;
    TCliMarks fMarks;
    TCliScriptLog fScript;
    bool fStacks = false;
    QSize fSize{1600, 1000};                 // pixels
    std::unique_ptr<TYrexProcParams> fChain; // null without --chain
};
