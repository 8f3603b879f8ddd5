#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVector>

/// Writes JSON piece by piece, so that large data need no tree of values.
///
/// Numbers are the shortest that read back to the same double; infinities and NaN are the strings "inf", "-inf", "nan".
/// The caller keeps the order: a key before each value of an object.
class TJsonWriter
{
public:
    enum TStyle {
        cLines, // one element a line
        cFlat   // all in one line
    };

    /// The first value stands at this depth of a document, two blanks each.
    explicit TJsonWriter(int depth = 0)
        : fDepth(depth)
    {
    }

    void beginObject(TStyle style = cLines) { begin('{', style); }
    void endObject() { end('}'); }
    void beginArray(TStyle style = cLines) { begin('[', style); }
    void endArray() { end(']'); }
    void key(const QString &name);

    void value(double number);
    void value(int number);
    void value(bool truth);
    void value(const QString &text);
    void value(const char *) = delete; // it would become a bool
    /// Maps and lists become objects and arrays, what JSON has no type for its text.
    void value(const QVariant &variant);
    void numbers(const double *values, int count);
    /// A value that is JSON already; its lines are indented.
    void json(const QByteArray &text);

    template <typename TValue>
    void pair(const QString &name, const TValue &content)
    {
        key(name);
        value(content);
    }

    const QByteArray &text() const { return fText; }

    static QByteArray number(double number);
    static QByteArray quoted(const QString &text);

private:
    struct TLevel
    {
        TStyle fStyle;
        bool fEmpty;
    };

    void begin(char bracket, TStyle style);
    void end(char bracket);
    void separate();
    void newLine();

    QByteArray fText;
    QVector<TLevel> fLevels;
    int fDepth;
    bool fAfterKey = false;
};
