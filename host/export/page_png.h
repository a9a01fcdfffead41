// A page drawn by the platform's own metafile player, as a PNG picture.
#pragma once

#include <string>

#include "host/export/report_pages.h"

// The whole sheet in white with the page on it, at dpi pixels to the inch. Throws Failure.
void WritePagePng(const ReportPages &report, int page, int dpi, const std::string &path);
