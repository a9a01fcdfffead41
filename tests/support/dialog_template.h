// Dialog templates of this program's resources, read as they stand there.
#pragma once

#include <string>
#include <vector>

#include "state/windows.h"

enum ControlKind { PUSH_BUTTON, CHECK_BOX, RADIO_BUTTON, GROUP_BOX, EDIT, STATIC, LIST, COMBO };

struct TemplateControl {
    ControlKind kind;
    int id;
    DWORD style;
    RECT place; // dialog units; of a combo box what shows while it is closed
    std::string text;
};

struct DialogTemplate {
    std::string name;
    std::string title;
    DWORD style = 0;
    SIZE size{}; // dialog units
    std::string face;
    int points = 0;
    std::vector<TemplateControl> controls; // in the order of the Tab key
};

std::vector<DialogTemplate> AllDialogTemplates();
