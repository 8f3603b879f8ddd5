#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class TDataStream;

/// One parameter of a spectrum, a text per dimension; in a template its recipe: expression, source and dimension.
///
/// A null text was never set, an empty text was set to nothing.
class TSpectrumParam
{
public:
    /// The ids that the programs ask for by name; any other number is allowed too. They are persisted.
    enum TParamID : int {
        cAcqTime = 5,
        cSeriesValue = 13,
        cOriginalSize = 501,
        cPointCount = 502,
        cTitle = 1001,
        cOrigin = 1002,
        cOwner = 1003,
        cDescription = 1007,
        cDate = 1008,
        cModificationDate = 1009,
        cOperator = 1010,
        cInstrument = 1011,
        cComment = 1012,
        cClass = 1015,
        cDataType = 1020,
        cHistory = 1022,
        cOriginalName = 1023,
        cExperiment = 2000,
        cXUnits = 2001,
        cYUnits = 2002,
        cOrigXUnits = 2003,
        cOrigYUnits = 2004,
        cSubfileZ = 2043,
        cSubfileNextZ = 2044,
        cSubfileNoise = 2045,
        cSubfileW = 2046,
        cSubfileIndex = 2047
    };
    enum TParamType { cText = 0, cDouble = 1, cInteger = 2 };
    static constexpr int cMaxDimensions = 8; // values beyond are ignored

    TSpectrumParam() = default;
    /// An entry without expression (a null text) is filled by code. `dim`: -1 all dimensions, 0 the first, 1 the
    /// second. Type, precision and whether it is read-only come from the id.
    TSpectrumParam(int id, const QString &expression, const QString &source, int dim, bool visible = true);

    int id() const { return fId; }
    QString expression() const { return fExpression; }
    void setExpression(const QString &expression) { fExpression = expression; }
    bool hasExpression() const { return !fExpression.isEmpty(); }
    QString source() const { return fSource; }
    void setSource(const QString &source) { fSource = source; }
    int dim() const { return fDim; }
    bool isVisible() const { return fVisible; }
    void setVisible(bool visible) { fVisible = visible; }
    bool isReadOnly() const { return fReadOnly; }
    void setReadOnly(bool readOnly) { fReadOnly = readOnly; }
    /// Whether a user changed the value; such a value survives when parameters are evaluated again. Commands set it,
    /// readers and evaluations do not.
    bool isEdited() const { return fEdited; }
    void setEdited(bool edited) { fEdited = edited; }

    /// The text at a zero-based index; null when it was never set.
    QString value(int index = 0) const { return fValues.value(index); }
    /// Indexes below 0 or from cMaxDimensions on are ignored.
    void setValue(int index, const QString &text);
    /// As if no value had ever been set.
    void unset() { fValues.clear(); }
    int valueCount() const { return fValues.size(); }
    /// Whether no value was ever set.
    bool isUnset() const;

    int paramType() const { return fType; }
    /// Decimals when the number is shown in its stated precision.
    int precision() const { return fPrecision; }
    /// Kept between 0 and 17.
    void setPrecision(int precision) { fPrecision = qBound(0, precision, 17); }
    /// The name that users see; a text with the number for an id without name.
    QString translated_paramName() const;
    /// Id of a programmatic name ("Title"); 0 for an unknown one. Where formats share a name, the first id in order.
    static int paramId(const QByteArray &name);
    /// Programmatic name of an id; empty for an unknown one.
    static QByteArray paramName(int id);

    void store(TDataStream &stream) const;
    /// False, with the parameter in an unspecified state, when the stream does not hold one.
    bool load(TDataStream &stream);
    /// Fewest bytes that store writes.
    static constexpr int cMinStoredSize = 4 + 3 + 4 + 4 + 4 + 4;

private:
    int fId = 0;
    int fDim = -1;
    int fType = cText;
    int fPrecision = 0;
    bool fVisible = true;
    bool fReadOnly = false;
    bool fEdited = false;
    QString fExpression;
    QString fSource;
    QStringList fValues;
};

Q_DECLARE_TYPEINFO(TSpectrumParam, Q_MOVABLE_TYPE); // thousands of spectra have some forty each
