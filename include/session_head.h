/* What stands at the head of every session: a host reads it through the pointer of
 * GetSessionPointer and changes nothing of it. */
#ifndef TESSARINE_SESSION_HEAD_H
#define TESSARINE_SESSION_HEAD_H

#include "tessarine_records.h"

#pragma pack(push, 1)

typedef struct PreviewWords { /* of a run's preview, as its status strip shows them */
    int32_t PageOnView;       /* from 1; 0 while no page is finished */
    int32_t FinishedPages;
} PreviewWords;

typedef struct SessionHead {
    FormParams Form;    /* in a designer session */
    RepParams Run;      /* in a run */
    RepViewParams View; /* ReportWindow in a run with a preview too */
    PreviewWords Preview;
} SessionHead;

#pragma pack(pop)

#endif
