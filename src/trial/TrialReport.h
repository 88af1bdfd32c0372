// What the user is shown of a blind test.
#pragma once

#include "trial/BlindTest.h"

namespace ssq {

// Fills lines, grid and caption from the rest of the result.
void WriteReport(TrialResult& result);

}  // namespace ssq
