#pragma once

#include "text/font.h"

// The font "normal" without a texture, registered and current: for layout without a context.
// Entries that were made from it are deleted.
Font *bare_font();
