#include <cstddef>
#include <exception>

#include "fuzz/changes.h"
#include "fuzz/kinds.h"
#include "fuzz/places.h"
#include "fuzz/runs.h"
#include "host/forms/form_image.h"
#include "host/forms/form_to_json.h"

namespace {

std::vector<std::string> Seeds() {
    std::vector<std::string> forms;
    for (const std::string &json : SeedForms()) forms.push_back(FormFile(json));
    return forms;
}

template <typename Rows> void ChangeRow(Random *random, Rows *rows, size_t hot) {
    if (std::size(*rows) == 0) return;
    auto &row = *(std::begin(*rows) + static_cast<ptrdiff_t>(random->Below(std::size(*rows))));
    ChangeRecord(random, &row, hot);
}

void ChangeTables(Random *random, FormImage *form) {
    switch (random->Below(9)) {
    case 0: ChangeRecord(random, &form->header, offsetof(FormHeader, PrinterMode)); break;
    case 1: ChangeRecord(random, &form->header.LabelGeometry, sizeof(LabelGeometry)); break;
    case 2: ChangeRow(random, &form->breaks, sizeof(BreakFieldRecord)); break;
    case 3: ChangeRow(random, &form->sections, sizeof(SectionRecord)); break;
    case 4: ChangeRow(random, &form->users, offsetof(UserFieldRecord, UserPrompt)); break;
    case 5:
        if (!form->fonts.empty()) {
            FontImage &font = form->fonts[random->Below(form->fonts.size())];
            ChangeRecord(random, &font.font, sizeof font.font);
            font.info = ChangedBytes(random, font.info);
        }
        break;
    case 6: ChangeRow(random, &form->items, offsetof(ItemRecord, LabelText)); break;
    case 7:
        if (!form->items.empty()) form->items.push_back(random->Of(form->items));
        break;
    default: {
        if (form->fields.empty()) break;
        FieldRecord &row = form->fields[random->Below(form->fields.size())];
        if (random->OneIn(2)) return ChangeRecord(random, &row, sizeof row);
        Cells cells = CellsAt(row.FieldTokens);
        cells[random->Below(random->OneIn(4) ? cells.size() : 8)] =
            static_cast<uint16_t>(OddNumber(random));
        PutCells(cells, row.FieldTokens);
    }
    }
}

std::string Changed(Random *random, const std::string &input) {
    if (random->OneIn(4)) return ChangedBytes(random, input);
    WriteScratch("CHANGE.FP", input);
    try {
        FormImage form = ReadForm(ScratchPath("CHANGE.FP"));
        for (int times = random->Between(1, 4); times > 0; --times) ChangeTables(random, &form);
        return FormBytes(form);
    } catch (const std::exception &) { // it is no whole form any more
        return ChangedBytes(random, input);
    }
}

void Run(const std::string &input) {
    WriteScratch("CASE.FP", input);
    RunForm("CASE.FP");
    try {
        JsonFromForm("CASE.FP", ReadForm(ScratchPath("CASE.FP")));
    } catch (const std::exception &) { // told to the user
    }
}

} // namespace

const Kind form_files = {"form", Seeds, Changed, Run};
