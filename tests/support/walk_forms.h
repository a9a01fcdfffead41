// Forms that random walks begin on.
#pragma once

#include "tests/support/form_builder.h"

// Two sort levels with footers, two detail sections, a report footer.
FormBuilder SortedForm();
// A sheet of labels: one section.
FormBuilder LabelSheetForm();
