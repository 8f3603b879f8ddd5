#pragma once

/// One row of the table of parameter ids.
struct TParamName
{
    int fId;
    int fType;         // TSpectrumParam::TParamType
    bool fReadOnly;    // only the reader of the file sets it
    const char *fName; // for programs
    const char *fText; // for users, in the translation context "TSpectrumParam"
};

/// The row of an id, or null for an id that has no name.
const TParamName *paramNameOf(int id);

/// Id of a programmatic name, 0 for an unknown one.
int paramIdOf(const char *name);
