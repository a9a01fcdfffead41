/* Menu, keys and dialog of the viewer: shared with the resource script. */
#ifndef TESS_VIEW_RESOURCE_IDS_H
#define TESS_VIEW_RESOURCE_IDS_H

#define VIEWER_MENU 1
#define VIEWER_KEYS 1
#define GO_TO_DIALOG 1

#define VIEW_OPEN 101
#define VIEW_RELOAD 102
#define VIEW_EXIT 103
#define VIEW_ZOOM_IN 111
#define VIEW_ZOOM_OUT 112
#define VIEW_ACTUAL_SIZE 113
#define VIEW_FIT_PAGE 114
#define VIEW_FIT_WIDTH 115
#define VIEW_FIRST 121
#define VIEW_PREVIOUS 122
#define VIEW_NEXT 123
#define VIEW_LAST 124
#define VIEW_GO_TO 125
#define VIEW_UP 131
#define VIEW_DOWN 132
#define VIEW_LEFT 133
#define VIEW_RIGHT 134
#define VIEW_PAGE_UP 135
#define VIEW_PAGE_DOWN 136

#define GO_TO_PAGE 201
#define GO_TO_RANGE 202

#endif
