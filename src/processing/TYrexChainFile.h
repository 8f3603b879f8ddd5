#pragma once

#include <QString>
#include <QStringList>

class TYrexProcParams;

/// Chain files of either form, for programs that take them from anywhere.
namespace TYrexChainFile {

/// Larger files are refused unread.
constexpr qint64 cMaxSize = 64 * 1024 * 1024;

/// Reads a processing template, recognised by its header, or else JSON. Values that would end in a fatal numerical
/// error are refused in both forms. False, with `params` untouched and an error text, when the file is no chain.
bool load(const QString &path, TYrexProcParams &params, QString &error, QStringList &warnings);

/// Writes a template, or the JSON form for a name that ends in ".json". False, with the reason where one is asked
/// for, when the file cannot be written.
bool save(const QString &path, const TYrexProcParams &params, QString *error = nullptr);

} // namespace TYrexChainFile
