// The layout of every record, held to its size and offsets.
#pragma once

#include <cstddef>

#include "tessarine_records.h"

static_assert(sizeof(FormHeader) == 992);
static_assert(sizeof(ItemRecord) == 512);
static_assert(sizeof(FieldRecord) == 543);
static_assert(sizeof(SectionRecord) == 236);
static_assert(sizeof(BreakFieldRecord) == 6);
static_assert(sizeof(UserFieldRecord) == 454);
static_assert(sizeof(FontEntry) == 1140);
static_assert(sizeof(PortableFont) == 50);
static_assert(sizeof(ReportFileHeader) == 490);
static_assert(sizeof(LabelGeometry) == 40);
static_assert(sizeof(RepLogbrush) == 8);
static_assert(sizeof(FormParams) == 94 * 4);
static_assert(sizeof(RepParams) == 885);
static_assert(sizeof(RepViewParams) == 565);
static_assert(sizeof(HostData) == 19 * 4);
static_assert(sizeof(NewFormData) == 330);
