// A form file in memory, block by block.
#pragma once

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

struct FormImage {
    FormHeader header{};
    std::vector<ItemRecord> items;
    std::vector<FieldRecord> fields;
    std::vector<BreakFieldRecord> breaks;
    SectionRecord sections[MAX_SECTIONS]{};
    UserFieldRecord users[MAX_USER_FIELDS]{};
    std::vector<FontImage> fonts;
};

// Throws Failure when the file is no form of version 4 or is cut short.
FormImage ReadForm(const std::string &path);
// The file's bytes; the counts of the header are taken from the tables.
std::string FormBytes(const FormImage &form);
bool IsForm(const std::string &bytes);
