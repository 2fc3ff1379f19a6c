#pragma once

// To be included before Highway by sources that keep vectors in arrays: these need vectors of a known size, so the
// instruction sets whose vectors have none are left out.
#define HWY_DISABLED_TARGETS (HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128 | HWY_RVV)
