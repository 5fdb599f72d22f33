#pragma once

#include "qzinterp/qzInterp.h"

/// Opens the library that brings the interpreter of a language: `qzinterp_LANGUAGE`, which lies beside this
/// one. It is asked once for each language, and stays open for good. Null when there is none, or it cannot
/// start, which is then reported.
qzInterp* OpenBackend(qzString const& language);
