#include "form/versions.h"

#include <cstring>

#include "tests/support/form_files.h"

namespace {

class Versions : public FormFiles {
protected:
    const ItemRecord *LabelNamed(const char *text) {
        for (int row = 0; row < session->form.TotalItems; ++row)
            if (!std::strcmp(text, session->form.Items[row].LabelText))
                return &session->form.Items[row];
        return nullptr;
    }
    FullForm form;
};

} // namespace

TEST_F(Versions, OldFormsComeOutAsTheyWouldBeWrittenToday) {
    const std::string bytes = form.Bytes();
    const FormBlocks blocks(bytes);
    for (const int version : {0, 1}) {
        ASSERT_EQ(ReadBytes(InOldVersion(bytes, version)), READ_DONE) << boxes.LastText();
        const tessarine::FormState &state = session->form;
        for (int row = 0; row < state.TotalItems; ++row)
            EXPECT_EQ(
                +state.Items[row].SectionIndex,
                +RecordAt<ItemRecord>(bytes, blocks.items + row * sizeof(ItemRecord)).SectionIndex);
        for (int row = 0; row < state.FieldCount; ++row)
            EXPECT_EQ(+state.Fields[row].SummarySection,
                      +form.fields[static_cast<size_t>(row)].SummarySection);
        EXPECT_EQ(+state.Sections[SECTION_SORT_FOOTER_1].InUse, 1);
        EXPECT_EQ(+state.Sections[SECTION_PAGE_FOOTER].InUse, 1);
        EXPECT_EQ(+state.Breaks[0].SectionIndex, SECTION_SORT_HEADER_1);
    }
}

TEST_F(Versions, ItemInSection12OfVersion1ComesOutInSection20) {
    FormBuilder old;
    old.Section(SECTION_DETAIL_1, 100);
    old.Section(SECTION_SORT_FOOTER_9, 100);
    old.Label(SECTION_SORT_FOOTER_9, 200, 0, 50, 50, "footer");
    old.Label(SECTION_DETAIL_1, 200, 0, 50, 50, "detail");
    const std::string bytes = InOldVersion(old.Bytes(), 1);
    const FormBlocks blocks(bytes);
    ASSERT_EQ(RecordAt<ItemRecord>(bytes, blocks.items + 3 * sizeof(ItemRecord)).SectionIndex, 12);
    ASSERT_EQ(ReadBytes(bytes), READ_DONE);
    EXPECT_EQ(+LabelNamed("footer")->SectionIndex, 20);
    EXPECT_EQ(+LabelNamed("detail")->SectionIndex, 11);
}

TEST_F(Versions, LaterDetailSectionsOfOldFormsKeepTheSessionsDefaults) {
    ASSERT_EQ(ReadBytes(InOldVersion(form.Bytes(), 1)), READ_DONE);
    for (int row = SECTION_DETAIL_1 + 1; row <= SECTION_DETAIL_9; ++row) {
        EXPECT_EQ(+session->form.Sections[row].InUse, 0);
        EXPECT_EQ(+session->form.Sections[row].Across, 1);
        EXPECT_EQ(+session->form.Sections[row].SectionFilter[0], CELL_END);
    }
}

TEST_F(Versions, LaterDetailSectionsOfTheFormBeforeDoNotStayInAnOldForm) {
    FormBuilder before;
    before.Section(SECTION_DETAIL_1, 100);
    before.Section(SECTION_DETAIL_9, 100);
    before.sections[SECTION_DETAIL_9].Across = 7;
    for (const int version : {0, 1}) {
        ASSERT_EQ(ReadBytes(before.Bytes()), READ_DONE);
        ASSERT_EQ(+session->form.Sections[SECTION_DETAIL_9].InUse, 1);
        ASSERT_EQ(ReadBytes(InOldVersion(form.Bytes(), version)), READ_DONE) << boxes.LastText();
        EXPECT_EQ(+session->form.Sections[SECTION_DETAIL_9].InUse, 0);
        EXPECT_EQ(+session->form.Sections[SECTION_DETAIL_9].Across, 1);
    }
}

TEST_F(Versions, FormsOfVersion2And3ReadAsThoseOfToday) {
    for (const int version : {2, 3, 4}) {
        form.header.FormVersion = static_cast<int16_t>(version);
        ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
        EXPECT_EQ(+LabelNamed("End")->SectionIndex, SECTION_SORT_FOOTER_1);
    }
}

TEST_F(Versions, OldFormIsSavedInTheVersionOfToday) {
    const std::string old = InOldVersion(form.Bytes(), 0);
    ASSERT_EQ(ReadBytes(old), READ_DONE);
    const std::string copy = folder.Path("COPY.FP");
    ASSERT_EQ(Save(copy), 1);
    EXPECT_EQ(ReadWholeFile(copy), form.Bytes());
}
