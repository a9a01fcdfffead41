// tess printers: the printers that can be named.
#pragma once

struct PrintersOptions {};

int PrintersCommand(const PrintersOptions &);
