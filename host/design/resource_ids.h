/* Keys and dialogs of the designer's host: shared with the resource script. */
#ifndef TESS_DESIGN_RESOURCE_IDS_H
#define TESS_DESIGN_RESOURCE_IDS_H

#define DESIGN_KEYS 2
#define COLUMN_DIALOG 2

#define COLUMN_LIST 211

#endif
