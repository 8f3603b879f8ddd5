// The file: "KLMAUTO\0", a block with what TAutosaveInfo holds, then the document as TDocument stores it.
#include "TAutosaveFile.h"

#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include "utils/TFileWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <new>

namespace {

constexpr char cMagic[] = "KLMAUTO"; // with the closing zero the eight bytes of the file
constexpr int cMagicSize = 8;
constexpr char cEnding[] = ".autosave";
constexpr int cMaxCopies = 100; // of one document

QDateTime timeOf(qint64 ms)
{
    return ms > 0 ? QDateTime::fromMSecsSinceEpoch(ms) : QDateTime();
}

qint64 msOf(const QDateTime &time)
{
    return time.isValid() ? time.toMSecsSinceEpoch() : 0;
}

/// Leaves the stream behind the block, where the document begins.
bool readHead(TDataStream &stream, TAutosaveInfo &info)
{
    char magic[cMagicSize] = {};
    if (stream.readRawData(magic, cMagicSize) != cMagicSize ||
        QByteArray(magic, cMagicSize) != QByteArray(cMagic, cMagicSize))
        return false;
    TDataStreamAdaptor block(stream);
    if (!block.hasData())
        return false;
    qint64 saved = 0, autosaved = 0;
    qint32 steps = 0;
    stream >> info.fDocumentPath >> saved >> autosaved >> info.fOwner >> steps >> info.fThumbnail;
    info.fSaved = timeOf(saved);
    info.fAutosaved = timeOf(autosaved);
    info.fSteps = steps;
    block.skipData();
    return stream.isGood();
}

} // namespace

TAutosaveFile::TAutosaveFile(const QString &path)
    : fPath(path)
    , fLock(path + ".lock")
{
    fLock.setStaleLockTime(0); // a lock is as old as its process lives
}

QString TAutosaveFile::defaultFolder()
{
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (state.isEmpty())
        state = QDir::home().filePath(".local/state");
    QString folder = QDir(state).filePath("kelmora");
    QDir().mkpath(folder);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return folder;
}

std::unique_ptr<TAutosaveFile> TAutosaveFile::claim(const QString &folder, const TDocument &document)
{
    const QString name = document.id().toString(QUuid::WithoutBraces);
    for (int i = 1; i <= cMaxCopies; ++i) {
        const QString counted = i == 1 ? name : QString("%1-%2").arg(name).arg(i);
        std::unique_ptr<TAutosaveFile> file(new TAutosaveFile(QDir(folder).filePath(counted + cEnding)));
        if (!QFileInfo::exists(file->path()) && file->lock())
            return file;
    }
    return nullptr;
}

std::vector<std::unique_ptr<TAutosaveFile>> TAutosaveFile::abandoned(const QString &folder)
{
    std::vector<std::unique_ptr<TAutosaveFile>> files;
    const QFileInfoList found = QDir(folder).entryInfoList({QString("*") + cEnding}, QDir::Files, QDir::Time);
    for (const QFileInfo &info : found) {
        std::unique_ptr<TAutosaveFile> file(new TAutosaveFile(info.absoluteFilePath()));
        TAutosaveInfo head;
        if (file->lock() && file->readInfo(head))
            files.push_back(std::move(file));
    }
    return files;
}

bool TAutosaveFile::write(const TDocument &document, const TAutosaveInfo &info, QString *error) const
{
    TFileWriter file(fPath);
    bool good = file.open() && file.makePrivate();
    QString reason;
    if (good) {
        try {
            TDataStream stream(file.device());
            stream.writeRawData(cMagic, cMagicSize);
            {
                TDataStreamAdaptor block(stream);
                block.startStore();
                stream << info.fDocumentPath << msOf(info.fSaved) << msOf(info.fAutosaved) << info.fOwner;
                stream << qint32(info.fSteps) << info.fThumbnail;
            }
            document.store(stream);
            good = stream.isGood() && file.commit();
        } catch (const std::bad_alloc &) { // a copy less is no reason to end the program
            good = false;
            reason = QCoreApplication::translate("TAutosaveFile", "there is not enough memory");
        }
    }
    if (!good && error)
        *error = reason.isEmpty() ? file.error() : reason;
    return good;
}

bool TAutosaveFile::readInfo(TAutosaveInfo &info) const
{
    QFile file(fPath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    TDataStream stream(&file);
    return readHead(stream, info);
}

std::unique_ptr<TDocument> TAutosaveFile::read(TLoadReport &report) const
{
    QFile file(fPath);
    if (!file.open(QIODevice::ReadOnly)) {
        report.fError = file.errorString();
        return nullptr;
    }
    TDataStream stream(&file);
    TAutosaveInfo info;
    auto document = std::make_unique<TDocument>();
    try {
        if (!readHead(stream, info) || !document->restore(stream, info.fDocumentPath, report))
            return nullptr;
    } catch (const std::bad_alloc &) {
        report.fError = QCoreApplication::translate("TAutosaveFile", "there is not enough memory to read it");
        return nullptr;
    }
    document->setFileTime(info.fSaved);
    return document;
}

void TAutosaveFile::remove() const
{
    QFile::remove(fPath);
}
