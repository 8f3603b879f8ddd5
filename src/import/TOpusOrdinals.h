#pragma once

/// The numbers under which a closed OPUS library of another platform offers its calls: one for each operation of
/// IOpusLibrary, in the same order. A binding asks that library for its entries by this table alone.
enum TOpusOrdinal : int {
    cOpusErrorTextLength = 1,
    cOpusErrorText = 2,
    cOpusOpen = 3,
    cOpusBlockCount = 4,
    cOpusBlockIds = 5,
    cOpusPointCount = 6,
    cOpusPoints = 7,
    cOpusIsSpectrum = 8,
    cOpusHasHistory = 10,
    cOpusHistoryLineCount = 11,
    cOpusHistoryLineLength = 12,
    cOpusHistoryLine = 13,
    cOpusIsParameterBlock = 16,
    cOpusParameterKind = 17,
    cOpusHasParameters = 18,
    cOpusParameterCount = 20,
    cOpusParameterNameLength = 21,
    cOpusParameterName = 22,
    cOpusParameterValueLength = 24,
    cOpusParameterValue = 25,
    cOpusHasTraces = 26,
    cOpusBlockNameLength = 28,
    cOpusBlockName = 29,
    cOpusFirstTrace = 31,
    cOpusTraceAxis = 32,
    cOpusTraceCount = 33,
    cOpusJoinKey = 38,
    cOpusTracePointCount = 45,
    cOpusTraceDescriptionA = 47,
    cOpusTraces = 48,
    cOpusKeepsParameter = 50,
    cOpusTraceDescriptionB = 87,
    cOpusTraceDescriptionC = 88
};
