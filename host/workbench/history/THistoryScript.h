#pragma once

#include <QDir>
#include <QList>
#include <QString>

class QWidget;
class TDocument;

/// What was done to a document, as a script that does it again.
namespace THistoryScript {

/// The steps that are done at places of the undo stack, in their order; all of them for an empty list. Files below
/// `folder` are told from there. Empty when nothing of it is done.
QString text(const TDocument &document, const QList<int> &steps, const QDir &folder = QDir());
/// Asks for a file and writes it. The file's path; empty when the user gave up, or was told why it failed.
QString save(const TDocument &document, const QList<int> &steps, QWidget *parent);

} // namespace THistoryScript
