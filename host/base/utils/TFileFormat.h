#pragma once

namespace Common {
namespace Types {

/// Numbers of the file formats. They are persisted; a number without a name here stays readable.
enum TFileFormat {
    cFormatUnknown = 23, // no format is known yet
    cFormatJCAMP = 36,
    cFormatCSV = 37,
    cFormatSPC = 39,
    cFormatOMNIC = 40,
    cFormatOPUS = 41,
    cFormatSP = 44,
    cFormatSERSBT = 53
};

} // namespace Types
} // namespace Common
