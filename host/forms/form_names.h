// Names of a form's kinds, and records with their defaults.
#pragma once

#include <string>

#include "tessarine.h"

std::string SectionName(int section);       // "Page Header", "Sort Header 1"...
int SectionNumber(const std::string &name); // -1 when there is none
const char *ItemTypeName(int item_type);
int ItemTypeNumber(const std::string &name); // -1 when there is none

FormHeader DefaultHeader();
SectionRecord DefaultSection();
ItemRecord DefaultItem(int item_type);
PortableFont DefaultFont(); // Arial, 10 points
