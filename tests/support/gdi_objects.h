// The drawing objects of this process.
#pragma once

// How many contexts, bitmaps, brushes, fonts, pens, regions and metafiles there are.
int CountGdiObjects();
