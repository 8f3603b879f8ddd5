#pragma once

#include "TYrexSpectrumConverter.h"

class TOmnicFile;
struct TOmnicAxis;
struct TOmnicEntry;

/// OMNIC files: single spectra (spa) and spectrum groups (spg), whose spectra become one item. Import only.
class TYrexOmnicSpaConverter : public TYrexSpectrumConverter
{
public:
    /// `plugin` is not owned and may be null.
    explicit TYrexOmnicSpaConverter(QObject *plugin = nullptr);

    QString formatName() const override;
    /// Taken when the magic is there, entries are announced and one of them is a data block; a directory of up to 16
    /// entries also has a point count behind it.
    QString refusal(const QString &fileName) override;
    /// Header, directory with the meaning of its types, descriptions with units, texts, and what is passed over.
    TFileNode inspect(const QString &fileName) override;

protected:
    /// 0; 51 when the file does not open; 52 when a block that is needed is not there; out of memory when the directory
    /// asks for far more values than the file can hold.
    int readFile(const QString &fileName) override;

private:
    struct TSeries;

    int readSingle(const TOmnicFile &file, TSeries &series);
    int readGroup(const TOmnicFile &file, TSeries &series);
    int appendData(const TOmnicFile &file, const TOmnicEntry &data, const TOmnicAxis &axis, TSeries &series);
    int failed(const QString &problem);
};
