#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <unordered_map>

class IEditSession;
class TAutosaveFile;
class TDocument;
class TDocumentController;

/// Keeps copies of documents with unsaved changes, so that a crash costs little: some minutes after the first change
/// and at every tenth command. A copy is written while nothing else is to be done and never within a gesture; it goes
/// when the document is saved or closed.
class TAutosave : public QObject
{
    Q_OBJECT

public:
    static constexpr int cMinutes = 3;
    static constexpr int cMostMinutes = 60;
    static constexpr int cCommands = 10;
    static constexpr char cMinutesKey[] = "Kelmora/Autosave/Minutes";

    TAutosave(TDocumentController &documents, const QString &folder, QObject *parent);
    ~TAutosave() override;

    /// Looks after a document from now on.
    void watch(TDocument *document);
    /// The copy from which a document was recovered becomes the document's own, so that it lives until it is saved.
    void adopt(TDocument *document, std::unique_ptr<TAutosaveFile> file);
    /// The minutes of the settings are others now: what is due is counted from now on.
    void takeMinutes();
    /// Tells of an edit that shows something else than the data.
    void setSession(const std::function<IEditSession *()> &session) { fSession = session; }
    /// No copy is written while this says so.
    void holdWhile(const std::function<bool()> &isHeld) { fIsHeld = isHeld; }
    /// Removes all copies: the program ends and the user has decided about every document.
    void end();

private:
    struct TState
    {
        QTimer fTimer; // since the first change without a copy
        std::unique_ptr<TAutosaveFile> fFile;
        int fEditsAtCopy = 0;
        bool fIsDue = false;
    };

    void follow(TDocument *document);
    static int delay();
    void schedule(TDocument *document, int delay);
    void write(TDocument *document);
    void forget(TDocument *document);
    QByteArray thumbnail(const TDocument &document) const;

    TDocumentController &fDocuments;
    QString fFolder;
    std::function<IEditSession *()> fSession;
    std::function<bool()> fIsHeld;
    std::unordered_map<TDocument *, TState> fStates;
};
