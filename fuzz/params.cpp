// What a document or a file can hand to the parameter code: bundles, parameter sets, formulas over a header, and Qt's
// value types. The first byte chooses. Seeds: fuzz/makeParamsSeeds.py.
#include "params/TBinaryParamsParser.h"
#include "params/TParamsBundle.h"
#include "params/TSpectrumParams.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"

#include <QBuffer>
#include <QColor>
#include <QFont>
#include <QPen>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

template <class T, class Store, class Load>
void checkStable(const QByteArray &bytes, Store store, Load load)
{
    const auto stored = [&store](const T &value) {
        QByteArray written;
        TDataStream stream(&written, QIODevice::WriteOnly);
        store(stream, value);
        return written;
    };
    TDataStream in(bytes);
    T first;
    load(in, first);
    const QByteArray written = stored(first);
    require(written.size() <= 2 * bytes.size() + 64); // nothing may be sized by a number alone
    TDataStream again(written);
    T second;
    load(again, second);
    require(again.isGood() && stored(second) == written);
}

void checkBundle(const QByteArray &bytes)
{
    checkStable<TParamsBundle>(
        bytes, [](TDataStream &stream, const TParamsBundle &bundle) { stream << bundle; },
        [](TDataStream &stream, TParamsBundle &bundle) { stream >> bundle; });
}

void checkParams(const QByteArray &bytes)
{
    checkStable<TSpectrumParams>(
        bytes, [](TDataStream &stream, const TSpectrumParams &params) { params.store(stream); },
        [](TDataStream &stream, TSpectrumParams &params) { params.load(stream); });
}

/// A formula up to the first zero byte, behind it the header that its fields read.
void checkFormula(const QByteArray &bytes)
{
    const int end = bytes.indexOf('\0');
    TParamsBundle bundle;
    bundle.addParamsBlob(QStringLiteral("h"), QString(), 0, end < 0 ? QByteArray() : bytes.mid(end + 1));
    const QString entry = QString::fromUtf8(bytes.left(end));
    TBinaryParamsParser parser(QDataStream::LittleEndian);
    const QString text = parser.value(entry, bundle);
    require(text.size() <= bytes.size() + 32);
    QString name;
    QString argument;
    if (TParamsParser::parseParamStr(entry, name, argument))
        require(!name.isEmpty() && name.size() + argument.size() < entry.size());
}

template <class T>
void checkValue(const QByteArray &bytes)
{
    TDataStream in(bytes);
    T value;
    if (!Utils::Stream::read(in, value))
        return;
    QByteArray written;
    TDataStream out(&written, QIODevice::WriteOnly);
    out << value;
    TDataStream again(written);
    T second;
    require(Utils::Stream::read(again, second) && again.atLimit());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), int(size - 1));
    switch (data[0]) {
    case 'b':
        checkBundle(bytes);
        break;
    case 'p':
        checkParams(bytes);
        break;
    case 'f':
        checkFormula(bytes);
        break;
    case 'C':
        checkValue<QColor>(bytes);
        break;
    case 'F':
        checkValue<QFont>(bytes);
        break;
    case 'P':
        checkValue<QPen>(bytes);
        break;
    case 'L':
        checkValue<QStringList>(bytes);
        break;
    case 'M':
        checkValue<QVariantMap>(bytes);
        break;
    default:
        break;
    }
    return 0;
}
