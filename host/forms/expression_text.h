// Expressions of a form as text and back.
#pragma once

#include <string>

#include "host/forms/form_image.h"
#include "host/forms/record_json.h"

// A default field record, as a designer makes it.
FieldRecord DefaultField();
// Appends a field row, past the rows that are always free, and returns its number. A full table
// is a mistake at the place.
int AppendField(FormImage *form, const FieldRecord &field, const JsonPlace &place);

// The row that NAME@ROW or #ROW tells, 0 when the text is neither or the row bears another name.
int NamedRow(const FormImage &form, const std::string &text);

// The text of a list of cells, which compiles to these cells again. A row that its plain name
// wouldn't find is written NAME@ROW, or #ROW when the name can't stand in an expression.
std::string ExpressionOf(const FormImage &form, const Cells &cells);

// Compiles the text at a place into cells; constants and operands get rows of their own. A data
// field must be among the form's fields.
Cells CompileExpression(FormImage *form, const JsonPlace &place);
