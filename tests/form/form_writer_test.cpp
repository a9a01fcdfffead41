#include "form/form_writer.h"

#include <cstring>

#include "frame/boundary.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/owned.h"
#include "frame/text.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_saves.h"
#include "tests/support/host_window.h"

using namespace tessarine;

namespace {

class FormWriter : public FormSaves {};

std::vector<HCURSOR> cursors; // that stood when files were opened

HANDLE WINAPI NoteCursor(LPCSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES *security,
                         DWORD disposition, DWORD flags, HANDLE model) {
    cursors.push_back(GetCursor());
    // By its other name, since this one leads here.
    wchar_t wide[MAX_PATH];
    MultiByteToWideChar(CP_ACP, 0, path, -1, wide, MAX_PATH);
    return CreateFileW(wide, access, share, security, disposition, flags, model);
}

} // namespace

TEST_F(FormWriter, FormReadAndSavedIsTheSameByteForByte) {
    ASSERT_EQ(ReadBytes(WithFontRow(form.Bytes(), PictureRow())), READ_DONE);
    session->form.Fonts[2].InUse = 1;
    const std::string copy = folder.Path("COPY.FP");
    ASSERT_EQ(Save(copy), 1);
    EXPECT_EQ(ReadWholeFile(copy), WithFontRow(form.Bytes(), PictureRow()));
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormWriter, LargestFormIsTheSameByteForByte) {
    FormBuilder large;
    large.Section(SECTION_DETAIL_1, 100);
    while (large.items[SECTION_DETAIL_1].size() < MAX_ITEMS) {
        ItemRecord &item = large.Label(SECTION_DETAIL_1, 200, 0, 50, 50, "x");
        item.FontIndex = static_cast<int16_t>(large.items[SECTION_DETAIL_1].size() %
                                              static_cast<size_t>(MAX_FONTS));
    }
    while (large.fields.size() < MAX_FIELDS) large.Field(FIELD_DATA, "N", TYPE_NUMERIC);
    for (int row = 0; row < MAX_BREAKS; ++row) large.Break(1, 1, SECTION_SORT_HEADER_1 + row);
    while (large.fonts.size() < MAX_FONTS) {
        large.fonts.push_back(large.fonts[0]);
        large.fonts.back().Weight = static_cast<int16_t>(large.fonts.size());
    }
    ASSERT_EQ(ReadBytes(large.Bytes()), READ_DONE);
    const std::string copy = folder.Path("COPY.FP");
    ASSERT_EQ(Save(copy), 1);
    EXPECT_EQ(ReadWholeFile(copy), large.Bytes());
}

TEST_F(FormWriter, FreeRowIsSavedUnchangedAndTheFileDoesNotShrink) {
    const std::string path = Load();
    session->form.Fields[2].FieldKind = FIELD_FREE;
    session->form.Fields[2].InUse = 0;
    ASSERT_EQ(Save(path), 1);
    const std::string bytes = ReadWholeFile(path);
    EXPECT_EQ(bytes.size(), form.Bytes().size());
    const size_t place = FormBlocks(bytes).fields + 2 * sizeof(FieldRecord);
    EXPECT_STREQ(RecordAt<FieldRecord>(bytes, place).FieldName, "TABLE->N");
}

TEST_F(FormWriter, LiveCountersAndVersionGoIntoTheHeader) {
    const std::string path = Load();
    session->form.Header.ItemCount = session->form.Header.FieldCount = 0;
    session->form.Header.BreakCount = session->form.Header.FontCount = 0;
    session->form.Header.FormVersion = 2;
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(ReadWholeFile(path), form.Bytes());
    EXPECT_EQ(+session->form.Header.FormVersion, 4);
}

TEST_F(FormWriter, PaperOfThePrinterIsWrittenOnceMore) {
    const std::string path = Load();
    session->form.Header.PrinterMode.Orientation = 2;
    session->form.Header.PrinterMode.PaperSize = 9;
    session->form.Header.PrinterMode.PaperLength = 2970;
    session->form.Header.PrinterMode.PaperWidth = 2100;
    session->form.Header.PrinterMode.PrintQuality = -4;
    ASSERT_EQ(Save(path), 1);
    const auto header = RecordAt<FormHeader>(ReadWholeFile(path), 0);
    const int16_t expected[5] = {2, 9, 2970, 2100, -4};
    EXPECT_EQ(std::memcmp(header.PrinterModeAgain, expected, sizeof expected), 0);
}

TEST_F(FormWriter, ReportNameIsTrimmedAndAnEmptyOneTakesThePath) {
    const std::string path = Load();
    CopyText("  My report ", session->form.Header.ReportName, 52);
    ASSERT_EQ(Save(path), 1);
    EXPECT_STREQ(session->form.Header.ReportName, "My report");
    CopyText("   ", session->form.Header.ReportName, 52);
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(session->form.Header.ReportName, SavedPath().substr(0, 51));
}

TEST_F(FormWriter, PathIsTheTitleOfTheDesignersWindow) {
    Load();
    const HostWindow window;
    session->Window = window.Get();
    ASSERT_EQ(Save(folder.Path("COPY.FP")), 1);
    char title[MAX_PATH] = "";
    GetWindowTextA(session->Window, title, sizeof title);
    session->Window = nullptr;
    EXPECT_STREQ(title, session->form.LockedPath);
}

TEST_F(FormWriter, NewFileIsFlushedBeforeTheFormIsWritten) {
    Load();
    const FailingCall flushes("FlushFileBuffers", FlushFileBuffers, TRUE);
    ASSERT_EQ(Save(folder.Path("COPY.FP")), 1);
    EXPECT_EQ(flushes.Seen(), 1);
}

TEST_F(FormWriter, HostWithTheRightSetsTheHostWord) {
    uint32_t word = 0x12345;
    uint32_t right = 0;
    host_data.HostWordPtr = &word;
    host_data.HostRightPtr = &right;
    const std::string path = Load();
    EXPECT_EQ(word, 0u);
    word = 0x12345;
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(+session->form.Header.HostWord, 0);
    right = 2;
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(+session->form.Header.HostWord, 0);
    right = 1;
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(+session->form.Header.HostWord, 0x2345);
}

TEST_F(FormWriter, ReadOnlyFormIsNotSaved) {
    edit_allowed = 0;
    EXPECT_EQ(Save(folder.Path("NEW.FP")), 0);
    ExpectBox("Read-Only form cannot be saved", "");
    EXPECT_FALSE(Stands("NEW.FP"));
}

TEST_F(FormWriter, ReadOnlyFormIsNotSavedUnderAnotherNameEither) {
    edit_allowed = 0;
    char path[260] = "C:\\X.FP";
    EXPECT_EQ(SaveAs(session, path), 0);
    ExpectBox("Read-Only form cannot be saved", "");
}

TEST_F(FormWriter, EndingIsAddedWhereNoPointStandsInTheLastFiveCharacters) {
    const struct {
        const char *name;
        const char *saved;
    } cases[] = {
        {"PLAIN", "PLAIN.FP"},
        {"A", "A.FP"},
        {"B.X", "B.X"},
        {"C.HTML", "C.HTML"},
        {"D.FORMS", "D.FORMS.FP"},
        {"E.", "E."},
        {"low", "LOW.FP"},
        {"DIR.X\\F", "DIR.X\\F.FP"},
        {"LONG.DIRECTORY\\GHIJKL", "LONG.DIRECTORY\\GHIJKL.FP"},
    };
    CreateDirectoryA(folder.Path("DIR.X").c_str(), nullptr);
    CreateDirectoryA(folder.Path("LONG.DIRECTORY").c_str(), nullptr);
    Load();
    for (const auto &row : cases) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(Save(folder.Path(row.name)), 1);
        std::string expected = folder.Path(row.saved);
        UpperText(expected.data());
        EXPECT_EQ(SavedPath(), expected);
        EXPECT_EQ(ReadWholeFile(expected).size(), form.Bytes().size());
    }
}

TEST_F(FormWriter, EndingThatDoesNotFitThePathIsLeftOut) {
    char path[260];
    std::memset(path, 'x', sizeof path);
    path[259] = 0;
    Load();
    EXPECT_EQ(AtEntry(
                  session, [&] { return FrSave(session, path); }, [] { return -1; }),
              -1);
    EXPECT_EQ(std::strlen(path), 259u);
}

TEST_F(FormWriter, FileThatNobodyHoldsLeavesABackup) {
    const std::string path = Load();
    DropLock();
    WriteWholeFile(path, "before");
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(ReadWholeFile(folder.Path("FORM.BP")), "before");
    EXPECT_EQ(ReadWholeFile(path), form.Bytes());
}

TEST_F(FormWriter, OlderBackupIsReplaced) {
    const std::string path = Load();
    DropLock();
    WriteWholeFile(folder.Path("FORM.BP"), "older");
    WriteWholeFile(path, "before");
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(ReadWholeFile(folder.Path("FORM.BP")), "before");
}

TEST_F(FormWriter, BackupCutsAnEndingOfUpToThreeCharacters) {
    Load();
    DropLock();
    WriteWholeFile(folder.Path("A.HTML"), "long");
    ASSERT_EQ(Save(folder.Path("A.HTML")), 1);
    EXPECT_EQ(ReadWholeFile(folder.Path("A.HTML.BP")), "long");
    DropLock();
    WriteWholeFile(folder.Path("B."), "short");
    ASSERT_EQ(Save(folder.Path("B.")), 1);
    EXPECT_TRUE(Stands("B.BP"));
}

TEST_F(FormWriter, LockedFormLosesItsOldBackupAndGetsNone) {
    const std::string path = Load();
    WriteWholeFile(folder.Path("FORM.BP"), "older");
    ASSERT_EQ(Save(path), 1);
    EXPECT_FALSE(Stands("FORM.BP"));
    EXPECT_EQ(ReadWholeFile(path), form.Bytes());
}

TEST_F(FormWriter, SaveThatShrankLeavesAnOldTailThatNoReaderLooksAt) {
    const std::string path = Load();
    const size_t before = form.Bytes().size();
    session->form.BreakCount = 0;
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(ReadWholeFile(path).size(), before);
    ASSERT_EQ(Read(SavedPath()), READ_DONE);
    EXPECT_EQ(+session->form.BreakCount, 0);
    EXPECT_EQ(session->form.Fonts[1].LogFont.lfWeight, 700);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(FormWriter, SavedFormIsLockedAndUnmodified) {
    Load();
    session->form.FormModified = 1;
    const std::string path = folder.Path("NEXT.FP");
    ASSERT_EQ(Save(path), 1);
    EXPECT_EQ(session->form.FormModified, 0u);
    EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
    EXPECT_EQ(SavedPath(), session->form.LockedPath);
    const OwnedFile writer(CreateFileA(path.c_str(), GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                       0, nullptr));
    EXPECT_FALSE(writer);
}

TEST_F(FormWriter, WaitCursorShowsFromTheOpenFileToTheEnd) {
    Load();
    const HCURSOR arrow = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    const HCURSOR wait = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT));
    session->device.WaitCursor = wait;
    SetCursor(arrow);
    cursors.clear();
    {
        const ReplacedCall opens("CreateFileA", NoteCursor);
        ASSERT_EQ(Save(folder.Path("COPY.FP")), 1);
    }
    // The file is made, opened, and in the end opened again.
    EXPECT_EQ(cursors, (std::vector<HCURSOR>{arrow, arrow, wait}));
    EXPECT_EQ(GetCursor(), arrow);
}

TEST_F(FormWriter, RowOutOfUseIsWrittenFree) {
    ASSERT_EQ(ReadBytes(WithFontRow(form.Bytes(), PictureRow())), READ_DONE);
    const int blocks = LiveBlocks();
    session->form.Fonts[1].InUse = 0;
    const std::string copy = folder.Path("COPY.FP");
    ASSERT_EQ(Save(copy), 1);
    const std::string bytes = ReadWholeFile(copy);
    const size_t fonts = FormBlocks(bytes).fonts;
    EXPECT_EQ(+RecordAt<PortableFont>(bytes, fonts + 52 + 2).Weight, 0);
    EXPECT_EQ(bytes.substr(fonts + 2 * 52), std::string("\1\0", 2) + std::string(12, '\0'));
    EXPECT_EQ(LiveBlocks(), blocks - 2);
}
