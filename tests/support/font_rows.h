// A designer whose font table is filled and named by hand.
#pragma once

#include <cstring>
#include <vector>

#include "form/font_table.h"
#include "tests/support/form_session.h"

// A designer on a form whose items are labels; row 0 is the default font.
class FontRows : public FormSession {
protected:
    void SetUp() override { ASSERT_EQ(StartOn(form), 0) << boxes.LastText(); }

    FontEntry &Row(int row) { return session->form.Fonts[row]; }
    static LOGFONTA FontOfHeight(int height) {
        LOGFONTA font{};
        font.lfHeight = -height;
        std::strcpy(font.lfFaceName, "Arial");
        return font;
    }
    int AddItem(int type, int font) {
        const int row = session->form.TotalItems++;
        ItemRecord *item = &session->form.Items[row];
        *item = ItemRecord{};
        item->ItemType = static_cast<uint16_t>(type);
        item->FontIndex = static_cast<int16_t>(font);
        std::strcpy(item->LabelText, "Text");
        return row;
    }
    // Fills the table with fonts of different heights, each shown by a label.
    void FillTable() {
        while (session->form.FontCount < MAX_FONTS) {
            const int row = tessarine::FindFontRow(session);
            Row(row).LogFont = FontOfHeight(100 + row);
            Row(row).InUse = 1;
        }
        for (int row = 1; row < MAX_FONTS; ++row) {
            Row(row).IsPicture = 0;
            Row(row).LogFont = FontOfHeight(100 + row);
            Row(row).InUse = 1;
            AddItem(ITEM_LABEL, row);
        }
    }
    // A label with the focus.
    ItemRecord *Focus(int type = ITEM_LABEL, int font = 0) {
        session->form.SelectedItem = AddItem(type, font);
        return &session->form.Items[session->form.SelectedItem];
    }

    static std::vector<BoxRecord> NoRowBoxes() {
        return {{"", "Ran Out of Font/Picture Table", {IDOK}},
                {"", "Ran out of Font Table", {IDOK}}};
    }

    FullForm form;
};
