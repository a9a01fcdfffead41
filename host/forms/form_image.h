// A form file in memory, block by block.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "tessarine.h"

struct FontImage {
    bool picture = false;
    PortableFont font{};
    uint16_t point_height = 0; // of a picture, 1/72 inch
    uint16_t point_width = 0;
    std::string bits; // of a picture: the bits and the information block of its bitmap
    std::string info;
};

// An expression. In a record it may stand at any address, so it is copied to be looked at.
using Cells = std::array<uint16_t, MAX_CELLS>;
Cells CellsAt(const void *record_cells);
void PutCells(const Cells &cells, void *record_cells);

struct FormImage {
    FormHeader header{};
    std::vector<ItemRecord> items;
    std::vector<FieldRecord> fields;
    std::vector<BreakFieldRecord> breaks;
    SectionRecord sections[MAX_SECTIONS]{};
    UserFieldRecord users[MAX_USER_FIELDS]{};
    std::vector<FontImage> fonts;
};

// Reads a form of any version, brought up to date. Throws Failure when the file is no form or is
// cut short. What the rows point to is not looked at.
FormImage ReadForm(const std::string &path);
// The file's bytes; the counts of the header are taken from the tables.
std::string FormBytes(const FormImage &form);
// The header alone. Throws Failure when the file is no form.
FormHeader ReadFormHeader(const std::string &path);
bool IsForm(const std::string &bytes);
