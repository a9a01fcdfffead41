#include "form/versions.h"

#include "form/defaults.h"
#include "form/form_blocks.h"
#include "frame/fatal_error.h"

namespace tessarine {

namespace {

constexpr int ADDED_SECTIONS = SECTION_DETAIL_9 - SECTION_DETAIL_1;
constexpr size_t EXTRA_BYTES = 4;

int16_t Renumbered(int16_t section) {
    return static_cast<int16_t>(section > SECTION_DETAIL_1 ? section + ADDED_SECTIONS : section);
}

void RenumberSections(Session *session) {
    FormState &form = session->form;
    for (int row = 0; row < form.Header.ItemCount; ++row)
        form.Items[row].SectionIndex = Renumbered(form.Items[row].SectionIndex);
    for (int row = 0; row < form.Header.FieldCount; ++row)
        form.Fields[row].SummarySection = Renumbered(form.Fields[row].SummarySection);
    for (int row = 0; row < form.Header.BreakCount; ++row)
        form.Breaks[row].SectionIndex = Renumbered(form.Breaks[row].SectionIndex);
}

void ReadOldSections(Session *session, HANDLE file) {
    SectionRecord *sections = session->form.Sections;
    InitSections(session); // the later detail sections may be those of an earlier form
    for (int row = 0; row <= SECTION_DETAIL_1; ++row)
        if (!ReadBlock(file, &sections[row], sizeof sections[row]))
            FatalError(session, "Error reading one section", CODE_TABLES);
    for (int row = SECTION_SORT_FOOTER_9; row < MAX_SECTIONS; ++row)
        if (!ReadBlock(file, &sections[row], sizeof sections[row]))
            FatalError(session, "Error reading one section(B)", CODE_TABLES);
    RenumberSections(session);
}

void ReadOldestFields(Session *session, HANDLE file) {
    for (int row = 0; row < session->form.Header.FieldCount; ++row) {
        char extra[EXTRA_BYTES];
        if (!ReadBlock(file, &session->form.Fields[row], sizeof(FieldRecord)))
            FatalError(session, "Error reading one field", CODE_TABLES);
        if (!ReadBlock(file, extra, sizeof extra))
            FatalError(session, "Error reading field extra bytes", CODE_TABLES);
    }
}

} // namespace

void ReadFields(Session *session, HANDLE file) {
    const FormHeader &header = session->form.Header;
    if (header.FormVersion == VERSION_EXTRA_BYTES) {
        ReadOldestFields(session, file);
    } else if (!ReadBlock(file, session->form.Fields, header.FieldCount * sizeof(FieldRecord))) {
        FatalError(session, "Error reading the fields", CODE_TABLES);
    }
    // A pointer of the process that wrote the file means nothing here.
    for (int row = 0; row < header.FieldCount; ++row) session->form.Fields[row].TextValue = nullptr;
}

void ReadSections(Session *session, HANDLE file) {
    if (session->form.Header.FormVersion <= LAST_VERSION_23_SECTIONS)
        ReadOldSections(session, file);
    else if (!ReadBlock(file, session->form.Sections, sizeof session->form.Sections))
        FatalError(session, "Error reading the sections", CODE_TABLES);
}

} // namespace tessarine
