/* The blocks as a host in C sees them. */
#include "tessarine.h"

#include "tests/dll/block_sizes.h"

const BlockSize block_sizes[] = {
    {"RepParams", sizeof(RepParams), 885},
    {"RepViewParams", sizeof(RepViewParams), 565},
    {"FormParams", sizeof(FormParams), 376},
    {"HostData", sizeof(HostData), 76},
    {"PreviewWords", sizeof(PreviewWords), 8},
    {"FormDesk", sizeof(FormDesk), 76},
    {"SessionHead", sizeof(SessionHead), 1910},
    {"NewFormData", sizeof(NewFormData), 330},
    {"FieldRecord", sizeof(FieldRecord), 543},
    {"LabelGeometry", sizeof(LabelGeometry), 40},
    {"ReportFileHeader", sizeof(ReportFileHeader), 490},
};
const int block_total = sizeof block_sizes / sizeof *block_sizes;
