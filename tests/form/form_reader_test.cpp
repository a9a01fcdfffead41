#include "form/form_reader.h"

#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/owned.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_files.h"

using namespace tessarine;

namespace {

class FormReader : public FormFiles {
protected:
    FormReader() { host_data.EditAllowed = &edit_allowed; }

    HANDLE Hold(const std::string &path, DWORD access, DWORD share) {
        return CreateFileA(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr);
    }
    bool MayBeWritten(const std::string &path) {
        const OwnedFile file(Hold(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE));
        return static_cast<bool>(file);
    }

    uint32_t edit_allowed = 77;
    FullForm form;
};

std::string SystemText(DWORD error) {
    char text[512] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                   text, sizeof text, nullptr);
    return text;
}

} // namespace

TEST_F(FormReader, FormStandsInTheTablesWithItsLiveCounters) {
    ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    const FormState &state = session->form;
    EXPECT_EQ(state.TotalItems, 13);
    EXPECT_EQ(+state.FieldCount, static_cast<int>(form.fields.size()));
    EXPECT_EQ(+state.BreakCount, 1);
    EXPECT_EQ(+state.FontCount, 2);
    EXPECT_EQ(state.UserFieldCount, 1);
    EXPECT_STREQ(state.Header.ReportName, "Test");
    EXPECT_EQ(state.ReportHeight, 5 * 40 + 100 + 100 + 200 + 100 + 100);
    EXPECT_EQ(session->form.SelectedItem, 0);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, BothSignaturesAreAccepted) {
    for (const int signature : {57018, 57020}) {
        form.header.Signature = static_cast<uint16_t>(signature);
        EXPECT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    }
}

TEST_F(FormReader, OtherSignaturesEndSilently) {
    for (const int signature : {0, 57017, 57019, 57021, 65535}) {
        form.header.Signature = static_cast<uint16_t>(signature);
        EXPECT_EQ(ReadBytes(form.Bytes()), READ_REFUSED);
    }
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, FileShorterThanTheHeaderEndsSilently) {
    const std::string bytes = form.Bytes();
    for (const size_t length : {0, 1, 2, 500, 991})
        EXPECT_EQ(ReadBytes(bytes.substr(0, length)), READ_REFUSED);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, FileThatCannotBeOpenedShowsTheSystemsText) {
    const std::string path = Put(form.Bytes());
    const OwnedFile alone(Hold(path, GENERIC_READ | GENERIC_WRITE, 0));
    ASSERT_TRUE(alone);
    EXPECT_EQ(Read(path), READ_REFUSED);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.LastTitle(), "Open");
    EXPECT_EQ(boxes.Log()[0].buttons, std::vector<int>{IDOK});
    EXPECT_EQ(boxes.LastText().substr(0, 10), SystemText(ERROR_SHARING_VIOLATION).substr(0, 10));
}

TEST_F(FormReader, ReportSessionRefusesALabelFileSilently) {
    form.header.LabelType = 3;
    EXPECT_EQ(ReadBytes(form.Bytes()), READ_REFUSED);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(session->form.FormLock, INVALID_HANDLE_VALUE);
}

TEST_F(FormReader, LabelSessionRefusesAReportFileSilently) {
    session->LabelMode = 1;
    EXPECT_EQ(ReadBytes(form.Bytes()), READ_REFUSED);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, LabelSessionReadsALabelFile) {
    session->LabelMode = 1;
    form.header.LabelType = 3;
    EXPECT_EQ(ReadBytes(form.Bytes()), READ_DONE);
}

TEST_F(FormReader, HostWordDecidesWhetherTheFormMayBeWritten) {
    uint32_t right = 0;
    uint32_t word = 0;
    host_data.HostWordPtr = &word;
    const struct {
        uint16_t host_word;
        bool right_given;
        uint32_t right;
        bool writable;
        uint32_t told;
    } cases[] = {
        {0, false, 0, true, 0},  {0, true, 0, true, 0},
        {1, false, 0, false, 1}, {1, true, 0, false, 1},
        {1, true, 1, true, 1},   {1, true, 2, false, 1},
        {2, true, 1, false, 2},  {0xFFFE, true, 1, false, 0xFFFFFFFE},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.host_word);
        CloseFileHandle(session->form.FormLock);
        session->form.FormLock = INVALID_HANDLE_VALUE;
        right = row.right;
        host_data.HostRightPtr = row.right_given ? &right : nullptr;
        form.header.HostWord = row.host_word;
        const std::string path = Put(form.Bytes());
        ASSERT_EQ(Read(path), READ_DONE);
        EXPECT_EQ(edit_allowed, row.writable ? 1u : 0u);
        EXPECT_EQ(word, row.told);
        EXPECT_EQ(session->form.FormLock != INVALID_HANDLE_VALUE, row.writable);
    }
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, DesignerKeepsTheFileLockedAgainstWriters) {
    const std::string path = Put(form.Bytes());
    ASSERT_EQ(Read(path), READ_DONE);
    EXPECT_FALSE(MayBeWritten(path));
    const OwnedFile reader(Hold(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE));
    EXPECT_TRUE(reader);
    EXPECT_EQ(session->form.LockedPath, path);
}

TEST_F(FormReader, RunReadsAFormThatADesignerHoldsAndLocksNothing) {
    const std::string path = Put(form.Bytes());
    const OwnedFile designer(Hold(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ));
    ASSERT_TRUE(designer);
    session->SessionKind = KIND_REPORT;
    EXPECT_EQ(Read(path), READ_DONE);
    EXPECT_EQ(session->form.FormLock, INVALID_HANDLE_VALUE);
    EXPECT_EQ(edit_allowed, 0u);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, LockOnTheSameFileIsTakenAnew) {
    const std::string path = Put(form.Bytes());
    ASSERT_EQ(Read(path), READ_DONE);
    ASSERT_EQ(Read(path), READ_DONE);
    EXPECT_EQ(edit_allowed, 1u);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, LockMovesToTheNextFile) {
    const std::string first = Put(form.Bytes(), "A.FP");
    const std::string second = Put(form.Bytes(), "B.FP");
    ASSERT_EQ(Read(first), READ_DONE);
    ASSERT_EQ(Read(second), READ_DONE);
    EXPECT_TRUE(MayBeWritten(first));
    EXPECT_FALSE(MayBeWritten(second));
}

TEST_F(FormReader, ReportUnderAnotherUsersHandOpensReadOnly) {
    const std::string path = Put(form.Bytes());
    const OwnedFile other(Hold(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ));
    ASSERT_TRUE(other);
    EXPECT_EQ(Read(path), READ_DONE);
    ExpectBox("The selected report is being edited by another user. The report will be opened in "
              "read-only mode.",
              "Warning");
    EXPECT_EQ(edit_allowed, 0u);
    EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
}

TEST_F(FormReader, LabelUnderAnotherUsersHandOpensReadOnly) {
    session->LabelMode = 1;
    form.header.LabelType = 3;
    const std::string path = Put(form.Bytes());
    const OwnedFile other(Hold(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ));
    ASSERT_TRUE(other);
    EXPECT_EQ(Read(path), READ_DONE);
    ExpectBox("The selected label is being edited by another user. The label will be opened in "
              "read-only mode.",
              "Warning");
    EXPECT_EQ(edit_allowed, 0u);
}

TEST_F(FormReader, FileMarkedReadOnlyOpensReadOnly) {
    const std::string path = Put(form.Bytes());
    // Held as well, since a privileged user may write what is marked read-only.
    const OwnedFile other(Hold(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ));
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Read(path), READ_DONE);
    ExpectBox("The selected file is marked read-only. It will be opened in read-only mode.",
              "Warning");
    EXPECT_EQ(edit_allowed, 0u);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FormReader, CountsBeyondTheTablesAreRefused) {
    const std::string bytes = form.Bytes();
    const struct {
        uint16_t FormHeader::*count;
        int most;
    } cases[] = {
        {&FormHeader::ItemCount, MAX_ITEMS},
        {&FormHeader::FieldCount, MAX_FIELDS},
        {&FormHeader::BreakCount, MAX_BREAKS},
    };
    for (const auto &row : cases)
        for (const int count : {row.most + 1, 65535}) {
            boxes.Clear();
            std::string damaged = bytes;
            auto header = RecordAt<FormHeader>(bytes, 0);
            header.*row.count = static_cast<uint16_t>(count);
            PutRecord(&damaged, 0, header);
            damaged.resize(damaged.size() + 200000);
            EXPECT_EQ(ReadBytes(damaged), 33);
            ExpectBox("Not a valid form file", "Fatal Error");
        }
}

TEST_F(FormReader, FullTablesAreRead) {
    FormBuilder full;
    full.Section(SECTION_DETAIL_1, 100);
    while (full.items[SECTION_DETAIL_1].size() < MAX_ITEMS)
        full.Label(SECTION_DETAIL_1, 200, 0, 50, 50, "x");
    while (full.fields.size() < MAX_FIELDS) full.Field(FIELD_DATA, "N", TYPE_NUMERIC);
    for (int row = 0; row < MAX_BREAKS; ++row) full.Break(1, 1, SECTION_SORT_HEADER_1 + row);
    while (full.fonts.size() < MAX_FONTS) full.fonts.push_back(full.fonts[0]);
    ASSERT_EQ(ReadBytes(full.Bytes()), READ_DONE) << boxes.LastText();
    EXPECT_EQ(session->form.TotalItems, MAX_ITEMS);
    EXPECT_EQ(+session->form.FieldCount, MAX_FIELDS);
    EXPECT_EQ(+session->form.BreakCount, MAX_BREAKS);
    EXPECT_EQ(+session->form.FontCount, MAX_FONTS);
}

TEST_F(FormReader, FontCountOf40Reads32RowsAndLeavesTheRest) {
    for (int row = 0; row < 38; ++row) {
        form.fonts.push_back(form.fonts[0]);
        form.fonts.back().Weight = static_cast<int16_t>(100 + row);
    }
    ASSERT_EQ(form.fonts.size(), 40u);
    ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    EXPECT_EQ(+session->form.FontCount, 32);
    EXPECT_EQ(session->form.Fonts[31].LogFont.lfWeight, 129);
    EXPECT_EQ(+session->form.Header.FontCount, 40);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, RowsThatItemsNameAreInUse) {
    form.fonts.push_back(form.fonts[0]);
    ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    EXPECT_EQ(+session->form.Fonts[1].InUse, 1u);
    EXPECT_EQ(+session->form.Fonts[2].InUse, 0u);
    EXPECT_EQ(session->form.Fonts[1].LogFont.lfWeight, 700);
    EXPECT_STREQ(session->form.Fonts[1].LogFont.lfFaceName, "Courier New");
}

TEST_F(FormReader, PictureRowIsReadWithItsBitsAndInformation) {
    ASSERT_EQ(ReadBytes(WithFontRow(form.Bytes(), PictureRow())), READ_DONE);
    const FontEntry &picture = session->form.Fonts[2];
    EXPECT_EQ(picture.IsPicture, 1u);
    EXPECT_EQ(picture.PointHeight, 36u);
    EXPECT_EQ(picture.PointWidth, 72u);
    EXPECT_EQ(picture.BitsSize, 8u);
    EXPECT_EQ(picture.InfoSize, 1064u);
    EXPECT_EQ(std::string(static_cast<char *>(LockHandle(picture.BitsBlock)), 8),
              "\1\2\3\4\5\6\7\10");
    UnlockHandle(picture.BitsBlock);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, AnyKindButZeroIsAPicture) {
    std::string row = PictureRow();
    row.replace(0, 2, "\xFF\xFF", 2);
    ASSERT_EQ(ReadBytes(WithFontRow(form.Bytes(), row)), READ_DONE);
    EXPECT_EQ(session->form.Fonts[2].IsPicture, 1u);
}

TEST_F(FormReader, EmptyPictureRowHasItsSizesAndNoBlocks) {
    std::string row = PictureRow().substr(0, 14);
    row.replace(10, 4, std::string(4, '\0'));
    ASSERT_EQ(ReadBytes(WithFontRow(form.Bytes(), row)), READ_DONE);
    const FontEntry &picture = session->form.Fonts[2];
    EXPECT_EQ(picture.IsPicture, 1u);
    EXPECT_EQ(picture.BitsSize, 8u);
    EXPECT_EQ(picture.BitsBlock, nullptr);
    EXPECT_EQ(picture.InfoBlock, nullptr);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, NextLoadReleasesFontsAndPictures) {
    const std::string bytes = WithFontRow(form.Bytes(), PictureRow());
    ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    const int blocks = LiveBlocks();
    ASSERT_EQ(ReadBytes(bytes), READ_DONE);
    session->form.Fonts[2].InUse = 1;
    EXPECT_EQ(LiveBlocks(), blocks + 2);
    ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(FormReader, PictureWithoutMemoryIsFatal) {
    const std::string bytes = WithFontRow(form.Bytes(), PictureRow());
    for (const int allocation : {1, 2}) {
        boxes.Clear();
        FailAllocation(allocation);
        EXPECT_EQ(ReadBytes(bytes), 3);
        FailAllocation(0);
        ASSERT_FALSE(boxes.Log().empty());
        EXPECT_EQ(boxes.Log().back(),
                  (BoxRecord{"Fatal Error", "Ran Out of Memory for Picture Bitmap", {IDOK}}));
        session->form.Fonts[2].InUse = 1;
    }
}

TEST_F(FormReader, EveryReadThatFailsEndsWithTheWordsOfItsBlock) {
    const std::string bytes = form.Bytes();
    const FormBlocks blocks(bytes);
    const auto reads = [](size_t begin, size_t end) {
        return static_cast<int>((end - begin + 299) / 300);
    };
    struct Block {
        int reads;
        int outcome;
        std::vector<BoxRecord> boxes;
    };
    const auto fatal = [](const char *text) {
        return std::vector<BoxRecord>{{"Fatal Error", text, {IDOK}}};
    };
    const std::vector<BoxRecord> no_fonts{{"", "Font Table Incomplete!", {IDOK}}};
    const int item_reads = static_cast<int>((blocks.fields - blocks.items) / sizeof(ItemRecord)) *
                           reads(0, sizeof(ItemRecord));
    const Block sequence[] = {
        {1, READ_REFUSED, {}}, // the look at the header
        {1, 33, fatal("Not a valid form file")},
        {item_reads, 35, fatal("Error reading the item data")},
        {reads(blocks.fields, blocks.breaks), 36, fatal("Error reading the fields")},
        {reads(blocks.breaks, blocks.sections), 36, fatal("Error reading the break fields")},
        {reads(blocks.sections, blocks.users), 36, fatal("Error reading the sections")},
        {reads(blocks.users, blocks.marker), 37, fatal("User fields missing!")},
        {1, READ_DONE, no_fonts},                                       // the marker
        {2 * static_cast<int>(form.fonts.size()), READ_DONE, no_fonts}, // kind and font
    };
    const std::string path = Put(bytes);
    const int memory = LiveBlocks();
    int number = 1;
    for (const Block &block : sequence)
        for (const int end = number + block.reads; number < end; ++number) {
            SCOPED_TRACE(number);
            boxes.Clear();
            const FailingCall fails("ReadFile", ReadFile, FALSE, number);
            EXPECT_EQ(Read(path), block.outcome);
            EXPECT_EQ(boxes.Log(), block.boxes);
        }
    boxes.Clear();
    const FailingCall none("ReadFile", ReadFile, FALSE, number);
    EXPECT_EQ(Read(path), READ_DONE);
    EXPECT_EQ(none.Seen(), number - 1);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(LiveBlocks(), memory);
}

TEST_F(FormReader, FormThatBreaksOffOrContradictsItselfLeavesNoRowsToWorkOn) {
    const std::string bytes = WithFontRow(form.Bytes(), PictureRow());
    const FormBlocks blocks(bytes);
    std::vector<std::string> broken;
    for (const size_t end :
         {blocks.fields, blocks.breaks, blocks.sections, blocks.users, blocks.marker})
        broken.push_back(bytes.substr(0, end - 1));
    broken.push_back(bytes); // an item of a field far behind the table
    auto item = RecordAt<ItemRecord>(bytes, blocks.items);
    item.ItemType = ITEM_FIELD;
    item.FieldIndex = 30000;
    PutRecord(&broken.back(), blocks.items, item);
    for (const std::string &damaged : broken) {
        SCOPED_TRACE(damaged.size());
        ASSERT_EQ(ReadBytes(bytes), READ_DONE);
        EXPECT_GE(ReadBytes(damaged), 33);
        const FormState &state = session->form;
        EXPECT_EQ(state.TotalItems + state.FieldCount + state.BreakCount, 0);
        EXPECT_EQ(state.UserFieldCount, 0);
        EXPECT_EQ(session->form.SelectedItem, -1);
        for (const SectionRecord &section : state.Sections) EXPECT_EQ(+section.InUse, 0);
        for (const UserFieldRecord &user : state.UserFields) EXPECT_EQ(+user.InUse, 0);
    }
    EXPECT_EQ(ReadBytes(bytes), READ_DONE);
}

TEST_F(FormReader, WrongMarkerAbandonsTheFontTable) {
    std::string bytes = form.Bytes();
    bytes[FormBlocks(bytes).marker] = 'x';
    EXPECT_EQ(ReadBytes(bytes), READ_DONE);
    ExpectBox("Font Table Incomplete!", "");
    EXPECT_EQ(+session->form.FontCount, 2);
}

TEST_F(FormReader, PictureLargerThanTheFileAllocatesNothing) {
    std::string row = PictureRow();
    row.replace(6, 4, "\xFF\xFF\xFF\x7F", 4);
    const int blocks = LiveBlocks();
    EXPECT_EQ(ReadBytes(WithFontRow(form.Bytes(), row)), READ_DONE);
    ExpectBox("Font Table Incomplete!", "");
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(FormReader, PictureWithFewerBitsThanItsSizeNeedsIsDropped) {
    std::string row = PictureRow();
    row.replace(22 + 4, 4, "\0\1\0\0", 4); // 256 pixels across
    const int blocks = LiveBlocks();
    EXPECT_EQ(ReadBytes(WithFontRow(form.Bytes(), row)), READ_DONE);
    ExpectBox("Font Table Incomplete!", "");
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(FormReader, PictureOfADepthThatNoBitmapHasIsDropped) {
    const auto depth_is_read = [&](uint16_t depth, int32_t width, int32_t height) {
        std::string row = PictureRow();
        PutRecord(&row, 22 + 4, width);
        PutRecord(&row, 22 + 8, height);
        PutRecord(&row, 22 + 14, depth);
        boxes.Clear();
        EXPECT_EQ(ReadBytes(WithFontRow(form.Bytes(), row)), READ_DONE);
        return boxes.Log().empty();
    };
    EXPECT_TRUE(depth_is_read(8, 4, 2));
    EXPECT_TRUE(depth_is_read(32, 1, 2));
    for (const uint16_t depth : {0, 2, 7, 64, 65535}) EXPECT_FALSE(depth_is_read(depth, 1, 1));
    // Sizes whose product passes 64 bits and comes out as nothing.
    EXPECT_FALSE(depth_is_read(0x8000, 0x40000000, 0x40000000));
}

TEST_F(FormReader, DefaultFontIsNeverAPicture) {
    const std::string whole = form.Bytes();
    const std::string bytes = whole.substr(0, FormBlocks(whole).fonts) + PictureRow();
    EXPECT_EQ(ReadBytes(bytes), READ_DONE);
    ExpectBox("Font Table Incomplete!", "");
    EXPECT_EQ(session->form.Fonts[0].IsPicture, 0u);
    EXPECT_EQ(+session->form.Fonts[0].InUse, 1u);
}

TEST_F(FormReader, TextPointersOfAFileAreDropped) {
    form.fields[1].TextValue = reinterpret_cast<char *>(0x12345678);
    ASSERT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    EXPECT_TRUE(session->form.Fields[1].TextValue == nullptr);
}

TEST_F(FormReader, BytesBehindTheLastFontRowAreIgnored) {
    EXPECT_EQ(ReadBytes(form.Bytes() + std::string(5000, 'z')), READ_DONE);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormReader, EmptyTablesAreAForm) {
    FormBuilder empty;
    empty.fields.clear();
    empty.fonts.clear();
    EXPECT_EQ(ReadBytes(empty.Bytes()), READ_DONE);
    EXPECT_EQ(session->form.TotalItems, 0);
    EXPECT_EQ(+session->form.FontCount, 0);
}

TEST_F(FormReader, FileThatIsTakenAwayBehindTheLookAtItsHeaderIsToldInTheSystemsWords) {
    const std::string path = Put(form.Bytes());
    const FailingCall gone("CreateFileA", CreateFileA, INVALID_HANDLE_VALUE, 2, 2);
    EXPECT_EQ(Read(path), READ_UNOPENED);
    EXPECT_EQ(gone.Seen(), 3);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.LastTitle(), "Open");
}
