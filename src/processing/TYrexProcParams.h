#pragma once

#include "TYrexMultipointSetup.h"
#include "TYrexProcIds.h"

#include <QByteArray>
#include <QString>
#include <QVariantList>
#include <QVariantMap>
#include <QVector>
#include <array>

class TDataStream;

/// One entry of the report of a chain.
struct TYrexProcReportEntry
{
    QString fTitle;
    QString fText;       // for the entry without parameters
    QVariantMap fParams; // key to value; enumerated keys hold the label of their option
};

/// A processing chain as data: an ordered list of actions, each a map of its parameters, the current defaults of every
/// known action, and the set-up of the multipoint baseline.
///
/// A map holds "yrexProcOpId" (int) and "apply" (bool) besides the action's own keys; the order of the list is the
/// order of application, and an action may stand in it more than once.
class TYrexProcParams
{
public:
    enum TReadResult { cReadOk = 0, cNotOpened = 1, cDimensionMismatch = 2, cWrongFormat = 3 };
    /// A chain of more actions than this is taken for corrupt.
    static constexpr int cMaxActions = 10000;

    /// The default chain with the defaults of the settings store.
    TYrexProcParams();

    /// The display text of an action, an option or a field, translated; empty for an id that has none.
    static QString label(int id);
    /// Whether the values of that key are ids, which are shown by their label.
    static bool isEnumKey(const QString &key);

    const QVariantList &actions() const { return fActions; }
    void setActions(const QVariantList &actions) { fActions = actions; }
    int actionCount() const { return fActions.size(); }
    /// The map at that place of the chain; empty when there is none.
    QVariantMap action(int index) const { return fActions.value(index).toMap(); }
    /// The action id at that place of the chain; 0 for a map without one, -1 when there is no such place.
    int actionId(int index) const;
    /// Whether the action at that place takes part.
    bool isApplied(int index) const;
    /// Whether any action of the chain takes part.
    bool isAnyApplied() const;
    /// The first place of an action in the chain; -1 when it is not there.
    int indexOfAction(int id) const;
    /// Replaces the map at that place; a place outside the chain is passed over.
    void setAction(int index, const QVariantMap &map);

    /// The current default map of one of the thirteen actions; empty for any other id.
    QVariantMap defaultMap(int action) const;
    /// Replaces a default map; an unknown id is passed over.
    void setDefaultMap(int action, const QVariantMap &map);

    const TYrexMultipointSetup &multipoint() const { return fMultipoint; }
    TYrexMultipointSetup &multipoint() { return fMultipoint; }

    /// Lets a chain that is identical to the other's, to the last bit, take no memory of its own. The spectra of a
    /// loaded stack have nearly always one chain.
    void shareActions(const TYrexProcParams &other);

    /// Clears "apply" in every action of the chain.
    void setApplyNothing();

    /// Reads a processing template. With another result than cReadOk nothing has changed; a corrupt list behind a good
    /// header leaves the chain that the upgrade makes of an empty one.
    int readFile(const QString &path);
    /// Writes a processing template; false, with the reason where one is asked for and an older file whole,
    /// when it cannot be written.
    bool writeFile(const QString &path, QString *error = nullptr) const;
    /// The same from an open stream that stands at the header.
    int readTemplate(TDataStream &stream);
    /// The first bytes of every template.
    static QByteArray templateHeader();
    /// The body of a template, as a spectrum embeds it. Reading ends with the upgrade of the chain.
    void read(TDataStream &stream);
    void write(TDataStream &stream) const;
    /// Brings a chain of an older version up to the present set of actions.
    void upgrade();

    /// Writes the values of the chain, and the default maps of actions that it does not hold, as the next defaults.
    void storeDefaults() const;
    void readMultipointDefaults();
    void storeMultipointDefaults() const;

    /// One entry per applied action, or the single entry of a chain that applies nothing.
    QVector<TYrexProcReportEntry> report() const;

private:
    static constexpr int cActionKinds = 13;

    void readActions(TDataStream &stream);
    void readMultipoint(TDataStream &stream);
    void upgradeBaseline();
    void upgradeNormalization();

    std::array<QVariantMap, cActionKinds> fDefaults; // in the order of TYrexProcDefaults::actionIds()
    QVariantList fActions;
    TYrexMultipointSetup fMultipoint;
};
