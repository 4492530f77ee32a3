// Old forms; they go when the last caller has changed.
#pragma once

#include "review/plot/colour_table.h"  // IWYU pragma: export
