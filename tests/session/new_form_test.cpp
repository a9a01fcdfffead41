#include <cstring>

#include "frame/host_data.h"
#include "frame/mapping.h"
#include "frame/text.h"
#include "session/new_form.h"
#include "tests/support/form_session.h"

using namespace tessarine;

namespace {

class NewForm : public FormSession {
protected:
    void ExpectItem(int row, int type, const RECT &place, int section) {
        SCOPED_TRACE(row);
        const ItemRecord &item = session->form.Items[row];
        EXPECT_EQ(+item.ItemType, type);
        EXPECT_EQ(+item.x, place.left);
        EXPECT_EQ(+item.y, place.top);
        EXPECT_EQ(+item.width, place.right);
        EXPECT_EQ(+item.height, place.bottom);
        EXPECT_EQ(+item.SectionIndex, section);
        EXPECT_EQ(+item.ItemFlags, 68);
    }
    std::string Preset(float left, float right) {
        const std::string path = folder.Path("PRESET.FP");
        new_form_data = NewFormData{};
        CopyText("Preset name", new_form_data.NewFormName, sizeof new_form_data.NewFormName);
        CopyText(path.c_str(), new_form_data.NewFormFile, sizeof new_form_data.NewFormFile);
        new_form_data.NewFormTop = 1.25F;
        new_form_data.NewFormLeft = left;
        new_form_data.NewFormRight = right;
        new_form_data.NewFormBottom = 1.5F;
        return path;
    }
};

} // namespace

TEST_F(NewForm, ReportHasItsThreeItemsAndTwoSections) {
    ASSERT_EQ(Start(""), 0) << boxes.LastText();
    const FormState &form = session->form;
    const int bar = form.Header.BarHeight;
    const int width = session->printer.ReportWidth - 125;
    ASSERT_EQ(form.TotalItems, 3);
    ExpectItem(0, ITEM_BAR, {62, 0, width, 400}, SECTION_PAGE_HEADER);
    ExpectItem(1, ITEM_GROUP, {62 + (width - 600) / 2, bar + (400 - bar - 100) / 2, 600, 100},
               SECTION_PAGE_HEADER);
    ExpectItem(2, ITEM_BAR, {62, 400, width, 400}, SECTION_DETAIL_1);
    for (int section = 0; section < MAX_SECTIONS; ++section)
        EXPECT_EQ(+form.Sections[section].InUse, section == 0 || section == 11) << section;
    EXPECT_EQ(+form.Sections[0].BarItem, 0);
    EXPECT_EQ(+form.Sections[11].BarItem, 2);
    EXPECT_EQ(+form.Sections[0].SectionFlags, 24);
    EXPECT_EQ(+form.Sections[11].SectionFlags, 24);
    EXPECT_EQ(session->form.SelectedItem, 0);
    EXPECT_EQ(form.ReportHeight, 800);
    EXPECT_EQ(form.FormModified, 0u);
    EXPECT_EQ(edit_allowed, 1u);
}

TEST_F(NewForm, HeaderOfAReportHasItsStartValues) {
    ASSERT_EQ(Start(""), 0);
    const FormHeader &header = session->form.Header;
    EXPECT_EQ(+header.Signature, 57018);
    EXPECT_EQ(+header.FormVersion, 4);
    EXPECT_STREQ(header.ReportName, "");
    EXPECT_EQ(+header.FontCount, 1);
    EXPECT_EQ(+header.FormFlags, 0);
    EXPECT_EQ(+header.RulerFlags, 5);
    EXPECT_EQ(+header.Reserved742, 1);
    EXPECT_EQ(+header.LeftMargin, 0.25F);
    EXPECT_EQ(+header.RightMargin, 0.25F);
    EXPECT_EQ(+header.TopMargin, 0.5F);
    EXPECT_EQ(+header.BottomMargin, 0.5F);
    EXPECT_EQ(+header.ReportFilter[0], CELL_END);
    EXPECT_EQ(+header.HostWord, 0);
    EXPECT_EQ(+header.LabelType, 0u);
    EXPECT_EQ(std::string(header.PrinterDevice), session->printer.DeviceName);
}

TEST_F(NewForm, CaptionIsAsHighAsTheDefaultFont) {
    ASSERT_EQ(Start(""), 0);
    EXPECT_GT(session->form.Header.BarHeight, 0);
    EXPECT_EQ(+session->form.Header.BarHeight, static_cast<int>(session->form.Fonts[0].Height));
}

TEST_F(NewForm, LabelHasItsTwoItemsAndOneSection) {
    uint32_t label = 1;
    uint32_t type = 5160;
    LabelGeometry geometry{};
    geometry.PageWidth = 8.5F;
    geometry.PageHeight = 11.0F;
    geometry.LabelWidth = 2.5F;
    geometry.LabelHeight = 1.5F;
    geometry.HostWord1 = 0x1234;
    geometry.HostWord2 = 0x5678;
    host_data.LabelForm = &label;
    host_data.LabelTypePtr = &type;
    host_data.LabelGeometryPtr = &geometry;
    ASSERT_EQ(Start(""), 0) << boxes.LastText();
    const FormState &form = session->form;
    ASSERT_EQ(form.TotalItems, 2);
    ExpectItem(0, ITEM_BAR, {62, 0, 625, form.Header.BarHeight + 375}, SECTION_DETAIL_1);
    ExpectItem(1, ITEM_GROUP, {62, 0, 0, 0}, SECTION_DETAIL_1);
    for (int section = 0; section < MAX_SECTIONS; ++section)
        EXPECT_EQ(+form.Sections[section].InUse, section == 11) << section;
    EXPECT_EQ(+form.Sections[11].BarItem, 0);
    EXPECT_EQ(+form.Sections[11].SectionFlags, 0);
    EXPECT_EQ(+form.Header.LabelType, 5160u);
    EXPECT_EQ(std::memcmp(&form.Header.LabelGeometry, &geometry, sizeof geometry), 0);
    EXPECT_EQ(+form.Header.LeftMargin, 0.0F);
    EXPECT_EQ(+form.Header.BottomMargin, 0.0F);
    EXPECT_EQ(form.ReportHeight, form.Header.BarHeight + 375);
}

TEST_F(NewForm, PresetFormStandsOnDiskBeforeAnyChange) {
    const std::string path = Preset(0.5F, 0.75F);
    ASSERT_EQ(Start(""), 0) << boxes.LastText();
    const std::string bytes = ReadWholeFile(path);
    ASSERT_GT(bytes.size(), sizeof(FormHeader));
    const auto header = RecordAt<FormHeader>(bytes, 0);
    EXPECT_STREQ(header.ReportName, "Preset name");
    EXPECT_EQ(+header.ItemCount, 3);
    EXPECT_EQ(+header.TopMargin, 1.25F);
    EXPECT_EQ(+header.LeftMargin, 0.5F);
    EXPECT_EQ(+header.RightMargin, 0.75F);
    EXPECT_EQ(+header.BottomMargin, 1.5F);
    EXPECT_EQ(+session->form.Items[0].x, 125);
    EXPECT_EQ(+session->form.Items[0].width, session->printer.ReportWidth - 312);
    std::string upper = path;
    UpperText(upper.data());
    EXPECT_EQ(session->CurrentFile, upper);
    EXPECT_EQ(session->FormBlock.FormFile, path);
    EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(NewForm, PresetFormOpensAgain) {
    const std::string path = Preset(0.5F, 0.5F);
    ASSERT_EQ(Start(""), 0);
    new_form_data = NewFormData{};
    ASSERT_EQ(Start(path), 0) << boxes.LastText();
    EXPECT_EQ(session->form.TotalItems, 3);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(NewForm, PresetWithoutANameMakesLaterFormsOrdinary) {
    const std::string path = Preset(2.0F, 2.0F);
    ASSERT_EQ(Start(""), 0);
    ASSERT_EQ(+session->form.Header.LeftMargin, 2.0F);
    End();
    DeleteFileA(path.c_str());
    NewFormData block = new_form_data;
    block.NewFormName[0] = 0;
    SetNewFormData(&block);
    ASSERT_EQ(Start(""), 0);
    EXPECT_EQ(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_STREQ(session->form.Header.ReportName, "");
    EXPECT_EQ(+session->form.Header.LeftMargin, 0.25F);
    EXPECT_EQ(session->form.FormLock, INVALID_HANDLE_VALUE);
}

TEST_F(NewForm, LeftMarginOfATenthOfAnInchGivesX62) {
    Preset(0.1F, 0.5F);
    ASSERT_EQ(Start(""), 0);
    EXPECT_EQ(+session->form.Items[0].x, 62);
    EXPECT_EQ(+session->form.Items[0].width, session->printer.ReportWidth - InchesToUnits(0.6));
}

TEST_F(NewForm, HostsTextsFillTheirFields) {
    const std::string comment(300, 'c');
    const uint16_t word = 4711;
    host_data.NewHostName = "sixteen letters and more";
    host_data.NewHostComment = comment.c_str();
    host_data.NewHostShort = &word;
    ASSERT_EQ(Start(""), 0);
    const FormHeader &header = session->form.Header;
    EXPECT_EQ(std::string(header.HostName1, 16), "sixteen letters ");
    EXPECT_EQ(std::string(header.HostComment, 202), std::string(202, 'c'));
    EXPECT_EQ(+header.HostShort, 4711);
    EXPECT_EQ(header.HostName2[0], 0);
}

TEST_F(NewForm, CallersTagAndFileNameGoIntoTheHeader) {
    ASSERT_EQ(Start(""), 0);
    std::strcpy(session->FormBlock.CallerTag, "tag");
    std::strcpy(session->CurrentFile, "C:\\NAMED.FP");
    EXPECT_EQ(InitNewForm(session), 1);
    EXPECT_STREQ(session->form.Header.CallerTag, "tag");
    EXPECT_STREQ(session->form.Header.ReportName, "C:\\NAMED.FP");
}

TEST_F(NewForm, ReportSessionGetsNone) {
    ASSERT_EQ(Start("", KIND_REPORT), 0);
    EXPECT_EQ(session->form.TotalItems, 0);
    EXPECT_EQ(edit_allowed, 77u);
}
