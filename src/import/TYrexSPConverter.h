#pragma once

#include "TYrexSpectrumConverter.h"

class TSpFile;
struct TSpContents;

/// PerkinElmer block structured files with one spectrum. Import only.
class TYrexSPConverter : public TYrexSpectrumConverter
{
public:
    /// `plugin` is not owned and may be null.
    explicit TYrexSPConverter(QObject *plugin = nullptr);

    QString formatName() const override;
    /// Taken when it begins with "PEPE".
    QString refusal(const QString &fileName) override;
    /// The tree of blocks with ids, types and values, and the name values with their positions and keys.
    TFileNode inspect(const QString &fileName) override;
    /// There is no export filter, so no program comes here: it leaves an empty file and returns 0, or 51 when the file
    /// does not open.
    int exportItems(const TCanvasItemList &items, const QString &fileName) override;

protected:
    /// 0; 51 when the file does not open; 52 when blocks and values are not where they are said to be. A file without
    /// a number of points gives a spectrum of no points.
    int readFile(const QString &fileName) override;

private:
    int appendData(const QString &fileName, const TSpFile &file, const TSpContents &contents);
    int failed(const QString &problem);
};
