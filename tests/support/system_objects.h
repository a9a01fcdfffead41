// What the system keeps for this process.
#pragma once

// How many contexts, bitmaps, brushes, fonts, pens, regions and metafiles there are.
int CountGdiObjects();
// How many windows and menus there are.
int CountUserObjects();
