// The dialog that offers a table's columns.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

#include "tessarine.h"

// The place of the chosen field, or -1. title tells what it is for; name is selected at first.
int AskForColumn(HWND owner, const std::vector<FieldRecord> &fields, const std::string &title,
                 const std::string &name);
