#pragma once

#include <QByteArray>

namespace Consts {
namespace JCAMP {

/// Labels, as they are written. Readers compare them unified (Utils::JCAMP::getUnifiedParamValue).
namespace Params {

inline constexpr char TITLE[] = "TITLE";
inline constexpr char JCAMPDX[] = "JCAMP-DX";
inline constexpr char DATATYPE[] = "DATA TYPE";
inline constexpr char DATACLASS[] = "DATA CLASS";
inline constexpr char BLOCKS[] = "BLOCKS";
inline constexpr char BLOCKID[] = "BLOCK_ID";
inline constexpr char ORIGIN[] = "ORIGIN";
inline constexpr char OWNER[] = "OWNER";
inline constexpr char LONGDATE[] = "LONGDATE";
inline constexpr char DATE[] = "DATE";
inline constexpr char TIME[] = "TIME";
inline constexpr char SPECTROMETERDATASYSTEM[] = "SPECTROMETER/DATA SYSTEM";
inline constexpr char RESOLUTION[] = "RESOLUTION";
inline constexpr char XUNITS[] = "XUNITS";
inline constexpr char YUNITS[] = "YUNITS";
inline constexpr char XFACTOR[] = "XFACTOR";
inline constexpr char YFACTOR[] = "YFACTOR";
inline constexpr char FIRSTX[] = "FIRSTX";
inline constexpr char LASTX[] = "LASTX";
inline constexpr char DELTAX[] = "DELTAX";
inline constexpr char FIRSTY[] = "FIRSTY";
inline constexpr char MAXX[] = "MAXX";
inline constexpr char MINX[] = "MINX";
inline constexpr char MAXY[] = "MAXY";
inline constexpr char MINY[] = "MINY";
inline constexpr char NPOINTS[] = "NPOINTS";
inline constexpr char XYDATA[] = "XYDATA";
inline constexpr char XYPOINTS[] = "XYPOINTS";
inline constexpr char PEAKTABLE[] = "PEAK TABLE";
inline constexpr char PEAKASSIGNMENTS[] = "PEAK ASSIGNMENTS";
inline constexpr char NTUPLES[] = "NTUPLES";
inline constexpr char DATATABLE[] = "DATA TABLE";
inline constexpr char END[] = "END";

} // namespace Params

/// Texts that labels take, unified.
namespace Values {

inline constexpr char INFRAREDSPECTRUM[] = "INFRAREDSPECTRUM";
inline constexpr char NEARINFRAREDSPECTRUM[] = "NEARINFRAREDSPECTRUM";
inline constexpr char INFRAREDTRANSFORMEDSPECTRUM[] = "INFRAREDTRANSFORMEDSPECTRUM";
inline constexpr char UVVISIBLESPECTRUM[] = "UVVISIBLESPECTRUM";
inline constexpr char UVVISSPECTRUM[] = "UVVISSPECTRUM";
inline constexpr char RAMAN[] = "RAMAN";
inline constexpr char RAMANSPECTRUM[] = "RAMANSPECTRUM";
inline constexpr char ULTRAVIOLETSPECTRUM[] = "ULTRAVIOLETSPECTRUM";
inline constexpr char AVASOFT[] = "AVASOFT";
inline constexpr char LINK[] = "LINK";
inline constexpr char XYDATA[] = "XYDATA";
inline constexpr char XYPOINTS[] = "XYPOINTS";
inline constexpr char PEAKTABLE[] = "PEAKTABLE";
inline constexpr char NTUPLES[] = "NTUPLES";
inline constexpr char ONECM[] = "1CM";
inline constexpr char NANOMETERS[] = "NANOMETERS";
inline constexpr char MICROMETERS[] = "MICROMETERS";
inline constexpr char ARBITRARYUNITS[] = "ARBITRARYUNITS";
inline constexpr char ABSORBANCE[] = "ABSORBANCE";
inline constexpr char TRANSMITTANCE[] = "TRANSMITTANCE";
inline constexpr char REFLECTANCE[] = "REFLECTANCE";
inline constexpr char COUNTS[] = "COUNTS";

} // namespace Values

/// The text to write for a unified one: "INFRARED SPECTRUM" for INFRAREDSPECTRUM, "1/CM" for 1CM. A text that is not of
/// Values comes back as it is.
QByteArray written(const char *value);

} // namespace JCAMP
} // namespace Consts
