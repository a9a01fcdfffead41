
#include <algorithm>
#include <cstring>
#include <random>

#include "form/modified.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/text.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_session.h"

using namespace tessarine;

namespace {

constexpr int KIND_RUN = KIND_REPORT;

struct OfferedField {
    HWND window;
    std::string name;
    int table;
    int field;
    int level;
    void *context;
};
std::vector<OfferedField> offered;

HCURSOR cursor_of_offer; // that stood when a field was offered

int32_t __stdcall CheckField(HWND window, FieldRecord *record, int32_t level, void *context) {
    offered.push_back(
        {window, record->FieldName, record->HostTable, record->HostField, level, context});
    cursor_of_offer = GetCursor();
    record->HostTable = 4;
    record->HostField = static_cast<int16_t>(offered.size());
    return 1;
}

class OpenFormTest : public FormSession {
protected:
    const FieldRecord &FieldNamed(const char *name) const {
        int row = 0;
        while (std::strcmp(session->form.Fields[row].FieldName, name)) ++row;
        return session->form.Fields[row];
    }
    // A form whose third font row is a picture that an item shows.
    std::string WithPicture(bool shown) {
        if (shown) {
            ItemRecord &item = form.Label(SECTION_DETAIL_1, 1000, 0, 100, 100, "");
            item.ItemType = ITEM_PICTURE;
            item.FontIndex = 2;
        }
        return WithFontRow(form.Bytes(), PictureRow());
    }

    FullForm form;
};

} // namespace

TEST_F(OpenFormTest, PathIsUpperCasedAndStrippedInPlace) {
    std::string path = Put(form.Bytes());
    LowerText(path.data());
    ASSERT_EQ(Start(path + "   "), 0) << boxes.LastText();
    UpperText(path.data());
    EXPECT_EQ(session->CurrentFile, path);
    EXPECT_EQ(session->form.LockedPath, path);
}

TEST_F(OpenFormTest, EmptyPathStartsANewForm) {
    ASSERT_EQ(Start("   "), 0);
    EXPECT_EQ(session->form.TotalItems, 3);
}

TEST_F(OpenFormTest, FileThatDoesNotExistIsMadeNewOnYes) {
    std::string path = folder.Path("absent.fp");
    boxes.Answer(IDYES);
    ASSERT_EQ(Start(path), 0);
    UpperText(path.data());
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0], (BoxRecord{"New Form",
                                         "File " + path + " does not exist. Create a new form?",
                                         {IDYES, IDNO}}));
    EXPECT_EQ(session->form.TotalItems, 3);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 0);
}

TEST_F(OpenFormTest, FileThatDoesNotExistClosesTheSessionOnNo) {
    boxes.Answer(IDNO);
    EXPECT_EQ(Start(folder.Path("ABSENT.FP")), 11);
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 1);
    EXPECT_EQ(session->form.TablesAllocated, 0u);
}

TEST_F(OpenFormTest, FolderInPlaceOfAFormIsToldInTheSystemsWords) {
    EXPECT_EQ(Start(folder.Root()), 11);
    EXPECT_EQ(boxes.LastTitle(), "Open");
}

TEST_F(OpenFormTest, FormOfTheOtherKindGivesTheCodeOfItsKindAndNoBox) {
    form.header.LabelType = 5;
    EXPECT_EQ(StartOn(form, KIND_RUN), 101);
    uint32_t label = 1;
    host_data.LabelForm = &label;
    form.header.LabelType = 0;
    EXPECT_EQ(StartOn(form, KIND_RUN), 102);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(OpenFormTest, HostLearnsTheLabelSheet) {
    uint32_t label = 1;
    uint32_t type = 0;
    LabelGeometry geometry{};
    host_data.LabelForm = &label;
    host_data.LabelTypePtr = &type;
    host_data.LabelGeometryPtr = &geometry;
    FormBuilder sheet;
    sheet.header.LabelType = 5160;
    sheet.header.LabelGeometry.PageWidth = 8.5F;
    sheet.header.LabelGeometry.PageHeight = 11.0F;
    sheet.header.LabelGeometry.LabelsAcross = 3;
    sheet.Section(SECTION_DETAIL_1, 250);
    ASSERT_EQ(StartOn(sheet), 0) << boxes.LastText();
    EXPECT_EQ(type, 5160u);
    EXPECT_EQ(+geometry.LabelsAcross, 3);
    EXPECT_EQ(session->printer.PaperWidth, 8.5F);
}

TEST_F(OpenFormTest, ReportFormLeavesTheHostsLabelWordsAlone) {
    uint32_t type = 7;
    host_data.LabelTypePtr = &type;
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_EQ(type, 7u);
}

TEST_F(OpenFormTest, DataFieldsAreOfferedToTheHostByName) {
    offered.clear();
    int context = 0;
    host_data.HostContext = &context;
    ASSERT_EQ(StartOn(form), 0);
    session->FormBlock.CheckFieldProc = CheckField;
    form.fields[1].HostTable = 9;
    form.fields[1].HostField = 9;
    ASSERT_EQ(Open(Put(form.Bytes())), 1);
    ASSERT_EQ(offered.size(), 2u);
    EXPECT_EQ(offered[0].name, "TABLE->NAME");
    EXPECT_EQ(offered[1].name, "TABLE->N");
    EXPECT_EQ(offered[0].window, host.Get());
    EXPECT_EQ(offered[0].table, -1);
    EXPECT_EQ(offered[0].field, -1);
    EXPECT_EQ(offered[0].level, 0);
    EXPECT_EQ(offered[0].context, &context);
    EXPECT_EQ(+FieldNamed("TABLE->NAME").HostTable, 4);
    EXPECT_EQ(+FieldNamed("TABLE->N").HostField, 2);
}

TEST_F(OpenFormTest, WaitCursorShowsUntilTheFormIsWhollyOpen) {
    ASSERT_EQ(StartOn(form), 0);
    ASSERT_NE(session->device.WaitCursor, nullptr);
    session->FormBlock.CheckFieldProc = CheckField;
    const HCURSOR arrow = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    SetCursor(arrow);
    ASSERT_EQ(Open(Put(form.Bytes())), 1);
    EXPECT_EQ(cursor_of_offer, session->device.WaitCursor);
    EXPECT_EQ(GetCursor(), arrow);
    std::string damaged = form.Bytes();
    damaged.resize(FormBlocks(damaged).sections);
    EXPECT_EQ(Open(Put(damaged)), 36);
    EXPECT_EQ(GetCursor(), arrow);
}

TEST_F(OpenFormTest, DataFieldsStayUnresolvedInARun) {
    form.fields[1].HostTable = 9;
    form.fields[1].HostField = 9;
    ASSERT_EQ(StartOn(form, KIND_RUN), 0) << boxes.LastText();
    EXPECT_EQ(+session->form.Fields[1].HostTable, -1);
    EXPECT_EQ(+session->form.Fields[1].HostField, -1);
    EXPECT_EQ(edit_allowed, 0u);
}

TEST_F(OpenFormTest, ReferencesAreCountedAnew) {
    form.fields[static_cast<size_t>(form.shared)].RefCount = 99;
    ASSERT_EQ(StartOn(form), 0);
    // The record filter, a calculation, a section's filter and a user field.
    EXPECT_EQ(+session->form.Fields[form.shared].RefCount, 4);
    EXPECT_EQ(+FieldNamed("TABLE->N").RefCount, 0);
}

TEST_F(OpenFormTest, RowsOutOfUseCountNoReferences) {
    for (FieldRecord &field : form.fields)
        if (field.FieldKind == FIELD_CALC) field.InUse = 0;
    FormBuilder::Store({form.shared}, form.sections[SECTION_DETAIL_1 + 1].SectionFilter);
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_EQ(+session->form.Fields[form.shared].RefCount, 3);
}

TEST_F(OpenFormTest, FormKeepsTheCaptionHeightThatItWasMadeWith) {
    form.header.BarHeight = 77;
    ASSERT_EQ(StartOn(form), 0);
    ASSERT_NE(session->device.FontHeight, 77);
    EXPECT_EQ(+session->form.Header.BarHeight, 77);
    EXPECT_EQ(+RecordAt<FormHeader>(Save("A.FP"), 0).BarHeight, 77);
}

TEST_F(OpenFormTest, PictureThatAnItemShowsGetsItsBitmap) {
    ASSERT_EQ(Start(Put(WithPicture(true))), 0) << boxes.LastText();
    const FontEntry &picture = session->form.Fonts[2];
    EXPECT_NE(picture.Bitmap, nullptr);
    EXPECT_EQ(picture.PixelWidth, 4u);
    EXPECT_EQ(picture.PixelHeight, 2u);
    EXPECT_EQ(picture.Height, 125u);
    EXPECT_EQ(picture.CharWidth[0], 250);
}

TEST_F(OpenFormTest, PictureThatNoItemShowsIsGivenUpWithItsBlocks) {
    ASSERT_EQ(StartOn(form), 0);
    const int blocks = LiveBlocks();
    ASSERT_EQ(Open(Put(WithPicture(false))), 1);
    EXPECT_EQ(+session->form.Fonts[2].InUse, 0u);
    EXPECT_EQ(session->form.Fonts[2].BitsBlock, nullptr);
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(OpenFormTest, PictureThatAnItemShowsWithoutDataIsToldAndTheFormOpens) {
    std::string empty = PictureRow().substr(0, 2 + 12);
    std::fill(empty.begin() + 6, empty.end(), '\0');
    form.Label(SECTION_DETAIL_1, 1000, 0, 100, 100, "").ItemType = ITEM_PICTURE;
    form.items[SECTION_DETAIL_1].back().FontIndex = 2;
    ASSERT_EQ(Start(Put(WithFontRow(form.Bytes(), empty))), 0);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0],
              (BoxRecord{"", "Ran out of memory for Bitmap Image and info!", {IDOK}}));
    EXPECT_EQ(session->form.Fonts[2].Bitmap, nullptr);
}

TEST_F(OpenFormTest, FontsAreMadeAndMeasured) {
    ASSERT_EQ(StartOn(form), 0);
    for (const int row : {0, 1}) {
        EXPECT_NE(session->form.Fonts[row].Font, nullptr);
        EXPECT_GT(session->form.Fonts[row].Height, 0u);
        EXPECT_GT(session->form.Fonts[row].CharWidth['W'], 0);
    }
}

TEST_F(OpenFormTest, FontThatCannotBeMadeIsFatal) {
    ASSERT_EQ(StartOn(form), 0);
    const HDC screen = session->drawing.ScreenDC;
    session->drawing.ScreenDC = nullptr;
    EXPECT_EQ(Open(Put(form.Bytes())), 12);
    session->drawing.ScreenDC = screen;
    ASSERT_FALSE(boxes.Log().empty());
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Fatal Error", "Error Creating Font: Courier New", {IDOK}}));
}

TEST_F(OpenFormTest, HostIsNotAskedForFieldsOfAFormWhoseFontsCannotBeMade) {
    ASSERT_EQ(StartOn(form), 0);
    offered.clear();
    session->FormBlock.CheckFieldProc = CheckField;
    {
        const FailingCall fails("CreateFontIndirectA", CreateFontIndirectA, nullptr, 1, EVERY_CALL);
        EXPECT_EQ(Open(Put(form.Bytes())), 12);
    }
    EXPECT_TRUE(offered.empty());
    EXPECT_EQ(Open(Put(form.Bytes())), 1);
    EXPECT_EQ(offered.size(), 2u);
}

TEST_F(OpenFormTest, PrinterThatCannotBeOpenedForOutputIsFatal) {
    ASSERT_EQ(StartOn(form), 0);
    const PrinterState printer = session->printer;
    std::strcpy(session->printer.DeviceName, "No such printer");
    session->OutputToPrinter = 1;
    EXPECT_EQ(Open(Put(form.Bytes())), 2);
    session->OutputToPrinter = 0;
    std::memcpy(session->printer.DeviceName, printer.DeviceName, sizeof printer.DeviceName);
    EXPECT_EQ(boxes.Log().back(),
              (BoxRecord{"Fatal Error", "Can not initialize printing", {IDOK}}));
}

TEST_F(OpenFormTest, FormOfAPrinterThatIsGoneKeepsTheSessionsPrinter) {
    std::strcpy(form.header.PrinterDevice, "Gone");
    std::strcpy(form.header.PrinterDriver, "GONE.DRV");
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_STRNE(session->printer.DeviceName, "Gone");
    EXPECT_EQ(std::string(session->form.Header.PrinterDevice), session->printer.DeviceName);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(OpenFormTest, ItemBeyondTheMarginsIsToldAfterEveryLoad) {
    form.Label(SECTION_DETAIL_1, 30000, 0, 100, 50, "far");
    for (const int kind : {int{KIND_DESIGNER}, int{KIND_REPORT}}) {
        boxes.Clear();
        ASSERT_EQ(StartOn(form, kind), 0);
        ASSERT_EQ(boxes.Log().size(), 1u);
        EXPECT_EQ(boxes.Log()[0],
                  (BoxRecord{"Warning",
                             "One or more items extend beyond the margins and may be truncated "
                             "when printed. Any items that extend beyond the margins should be "
                             "repositioned.",
                             {IDOK}}));
    }
}

TEST_F(OpenFormTest, OpenedFormIsUnmodifiedAndTheHostKnowsIt) {
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_EQ(host.Count(MESSAGE_MODIFIED) + host.Count(MESSAGE_UNMODIFIED), 0);
    form.Label(SECTION_DETAIL_1, 30000, 0, 100, 50, "far");
    boxes.OnDialog("Warning", [&](DialogDriver warning) {
        SetModified(session, 1); // while the form is being opened
        warning.Press(IDOK);
    });
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_EQ(session->form.FormModified, 0u);
    EXPECT_EQ(host.Count(MESSAGE_MODIFIED), 1);
    EXPECT_EQ(host.Count(MESSAGE_UNMODIFIED), 1);
}

TEST_F(OpenFormTest, FormOpenedAndSavedTwiceIsTheSameByteForByte) {
    ASSERT_EQ(Start(Put(WithPicture(true))), 0) << boxes.LastText();
    const std::string first = Save("A.FP");
    ASSERT_EQ(Start(folder.Path("A.FP")), 0);
    EXPECT_EQ(Save("B.FP"), first);
    EXPECT_EQ(FormBlocks(first).fonts + 2 * 52 + PictureRow().size(), first.size());
}

TEST_F(OpenFormTest, SavedFormGivesItsPathToTheWindow) {
    ASSERT_EQ(StartOn(form), 0);
    Save("TITLE.FP");
    char title[300] = "";
    GetWindowTextA(host.Get(), title, sizeof title);
    EXPECT_EQ(title, std::string(session->form.LockedPath));
}

TEST_F(OpenFormTest, DamagedFormLeavesASessionThatClosesWithoutALoss) {
    const int blocks = LiveBlocks();
    std::string damaged = WithPicture(true);
    damaged.resize(FormBlocks(damaged).sections + 100);
    EXPECT_EQ(Start(Put(damaged)), 36);
    EXPECT_EQ(boxes.LastText(), "Error reading the sections");
    End();
    EXPECT_EQ(LiveBlocks(), blocks);
    damaged = WithPicture(true);
    damaged.resize(damaged.size() - 1);
    EXPECT_EQ(Start(Put(damaged)), 0);
    EXPECT_EQ(boxes.LastText(), "Font Table Incomplete!");
    End();
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(OpenFormTest, FlippedBytesNeverDoMoreThanEndTheOpen) {
    std::mt19937 random(3);
    const std::string whole = WithPicture(true);
    ASSERT_EQ(Start(Put(whole)), 0);
    for (int round = 0; round < 120; ++round) {
        SCOPED_TRACE(round);
        std::string damaged = whole;
        for (unsigned flips = 1 + random() % 8; flips > 0; --flips)
            damaged[2 + random() % (damaged.size() - 2)] = static_cast<char>(random());
        const int result = Open(Put(damaged));
        EXPECT_TRUE(result == 0 || result == 1 || result == 12 || (result >= 33 && result <= 37))
            << result << boxes.LastText();
    }
}
