// Chains as JSON from foreign bytes: what is accepted writes and reads back to the same, fits into a template, and
// holds nothing that ends in a fatal error.
#include "TYrexChainCheck.h"
#include "TYrexChainJson.h"
#include "TYrexProcParams.h"
#include "stream/TDataStream.h"

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

QByteArray reread(const TYrexProcParams &params, TYrexChainJson::TStyle style)
{
    TYrexProcParams again;
    QString error;
    QStringList warnings;
    require(TYrexChainJson::parse(TYrexChainJson::toJson(params.actions(), style), again, error, warnings));
    return TYrexChainJson::toJson(again.actions());
}

} // namespace

// Qt 5.15's parser loses a list or object whose key stands twice in one object. What this project allocates itself is
// still watched.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libQt5Core";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray json = QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
    TYrexProcParams params;
    QString error;
    QStringList warnings;
    if (!TYrexChainJson::parse(json, params, error, warnings)) {
        require(!error.isEmpty());
        return 0;
    }
    const QByteArray written = TYrexChainJson::toJson(params.actions());
    require(reread(params, TYrexChainJson::cIds) == written);
    require(reread(params, TYrexChainJson::cLabels) == written);
    for (int i = 0; i < params.actionCount(); ++i)
        require(TYrexChainCheck::fatalProblem(params.action(i)).isEmpty());

    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        params.write(out);
    }
    TYrexProcParams back;
    TDataStream in(bytes);
    back.read(in);
    require(TYrexChainJson::toJson(back.actions()) == written);
    return 0;
}
