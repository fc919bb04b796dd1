#pragma once

#include "addressbook/CaseFolding.h"

/// The folding of the predicates BEGINSWITH[c] and CONTAINS[c], found out by asking the platform.
/// Covers all units where the platform compares strings unit by unit; printable ASCII where it
/// compares whole characters (composed ones equal to decomposed ones, one letter equal to two).
/// Found out once and kept; any thread.
const CaseFolding &platformCaseFolding();
