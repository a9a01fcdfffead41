#include "host/tess/design_command.h"

#include <windows.h>

#include "host/base/failure.h"
#include "host/base/interrupt.h"
#include "host/data/json_source.h"
#include "host/design/columns.h"
#include "host/design/form_designer.h"
#include "host/forms/form_image.h"

int DesignCommand(const DesignOptions &options) {
    std::vector<FieldRecord> columns;
    if (!options.data.empty()) columns = FieldsOf(ReadTable(options.data));
    const bool there = GetFileAttributesA(options.form.c_str()) != INVALID_FILE_ATTRIBUTES;
    const bool label_form = there && ReadFormHeader(options.form).LabelType != 0;
    SetProcessDPIAware();
    WatchInterrupt();
    FormDesigner designer(options.form, std::move(columns), label_form);
    if (!designer.Run()) throw Failure("stopped; the designer was closed", EXIT_CANCELLED);
    return EXIT_DONE;
}
