#pragma once

#include <QList>
#include <memory>

class QObject;
class TDocument;
class TImportDriver;

/// What a program without windows, which works through files one by one, gives to its commands.
class IBatchHost
{
public:
    virtual ~IBatchHost() = default;
    /// Closes the open document and opens another, which the host takes over.
    virtual void setDocument(std::unique_ptr<TDocument> document) = 0;
    virtual QList<QObject *> plugins() const = 0;
    virtual const TImportDriver &importDriver() const = 0;
};
