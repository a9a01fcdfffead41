// The kinds of input and what each is driven through.
#pragma once

#include <string>
#include <vector>

#include "fuzz/random.h"

struct Kind {
    const char *name;
    std::vector<std::string> (*seeds)(); // sound inputs, from which all others come
    std::string (*changed)(Random *random, const std::string &input);
    void (*run)(const std::string &input);
};

extern const Kind form_files;   // a form file: a run of it, and the host's reader
extern const Kind report_files; // a report file: RepView and its pages
extern const Kind report_pages; // a report file: the host's reader, texts and pictures of its pages
extern const Kind expressions;  // a text: symbols, check, values, text again
extern const Kind json_forms;   // a form as JSON: a form file, a run of it, JSON again
extern const Kind csv_tables;   // a table: its records into a run
extern const Kind bitmaps; // a BMP file: in a form by JSON, and as it is in a form's font table
extern const Kind designer_walks; // steps of a user in the designer, on forms of several kinds
