#pragma once

#include <QByteArray>
#include <QtGlobal>

/// What a byte of a text table is. The signs that stand between columns, ":", ";" and the tabulator, count as commas.
enum class TAsciiClass : quint8 { cOther, cSpace, cComma, cEquals, cLineEnd, cBeyond };

extern const TAsciiClass cAsciiClasses[256];

inline TAsciiClass asciiClass(char c)
{
    return cAsciiClasses[quint8(c)];
}

/// A line of text without its end. Blanks at its ends are gone when it is cleaned; a tabulator is no blank.
struct TAsciiLine
{
    const char *fBegin = nullptr;
    const char *fEnd = nullptr;
    bool fPlain = true; // all bytes below 128
    QByteArray fOwned;  // holds the text where it is not that of the file

    int size() const { return int(fEnd - fBegin); }
};

/// The lines of UTF-8 text in memory, forwards or backwards, without a copy; "\r\n" gives an empty line between its two
/// signs, which does no harm where empty lines do not count.
class TAsciiLines
{
public:
    static constexpr int cShortestLine = 3; // characters of a line that may hold numbers

    /// The bytes must outlive the object.
    TAsciiLines(const char *begin, const char *end)
        : fFront(begin)
        , fBack(end)
    {
    }
    /// The start of a text without its byte order mark, which inside a text is a sign like any other.
    static const char *textStart(const char *begin, const char *end);

    /// The next line from the front; false behind the last one. A text that ends with a line end has an empty last
    /// line.
    bool next(TAsciiLine *line);
    /// Whether the line that next() gave stood in front of a line end.
    bool hadLineEnd() const { return fHadLineEnd; }
    /// The next line from the back; false in front of the first one.
    bool previous(TAsciiLine *line);
    /// Where the next line begins, and the end of the text; behind the last line both are the same.
    const char *position() const { return fFront; }
    const char *end() const { return fBack; }
    /// Takes a line as read whose end is known: next() goes on behind it.
    void passLine(const char *lineEnd)
    {
        fHadLineEnd = lineEnd < fBack;
        fFrontDone = !fHadLineEnd;
        fFront = fHadLineEnd ? lineEnd + 1 : lineEnd;
    }
    /// Trims the line, and says whether it may hold numbers: at least three characters, all below 128.
    static bool clean(TAsciiLine *line);

private:
    const char *fFront;
    const char *fBack;
    bool fFrontDone = false;
    bool fBackDone = false;
    bool fHadLineEnd = false;
};
