// Saves of a form that come to a bad end.
#include <thread>

#include "frame/memory.h"
#include "frame/owned.h"
#include "frame/text.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_saves.h"

using namespace tessarine;

namespace {

class FailedSave : public FormSaves {};

// A save that goes into a pipe in place of the locked file; the pipe breaks after some bytes.
class BrokenSave : public FormSaves {
protected:
    int SaveUntil(size_t length) {
        const std::string path = folder.Path("FORM.FP");
        WriteWholeFile(path, "old");
        // Held, so that the file can't be renamed and the session's handle is written to.
        const OwnedFile held(CreateFileA(path.c_str(), GENERIC_READ,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                         0, nullptr));
        HANDLE source = nullptr;
        HANDLE sink = nullptr;
        CreatePipe(&source, &sink, nullptr, 64);
        session->form.FormLock = sink;
        CopyText(path.c_str(), session->form.LockedPath, sizeof session->form.LockedPath);
        std::thread reader([=] {
            std::string taken(length, '\0');
            DWORD moved = 0;
            for (size_t place = 0; place < length; place += moved)
                if (!ReadFile(source, taken.data() + place, static_cast<DWORD>(length - place),
                              &moved, nullptr) ||
                    !moved)
                    break;
            CloseHandle(source);
        });
        const int result = Save(path);
        reader.join();
        return result;
    }
    // Rows enough that no buffer of the system holds a block.
    void FillTables() {
        FormBuilder large;
        large.Section(SECTION_DETAIL_1, 100);
        while (large.items[SECTION_DETAIL_1].size() < MAX_ITEMS)
            large.Label(SECTION_DETAIL_1, 200, 0, 50, 50, "x");
        while (large.fields.size() < MAX_FIELDS) large.Field(FIELD_DATA, "N", TYPE_NUMERIC);
        ASSERT_EQ(ReadBytes(large.Bytes()), READ_DONE);
        DropLock();
    }
};

constexpr size_t ITEMS_SIZE = MAX_ITEMS * sizeof(ItemRecord);
constexpr size_t FIELDS_SIZE = MAX_FIELDS * sizeof(FieldRecord);

} // namespace

TEST_F(FailedSave, FontWhoseNumbersDoNotFitEndsTheSaveSilently) {
    const std::string path = Load();
    session->form.FormModified = 1;
    session->form.Fonts[1].LogFont.lfWidth = 32768;
    EXPECT_EQ(Save(path), 1);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
}

TEST_F(FailedSave, PictureThatCannotBeLockedEndsTheSave) {
    const std::string path = Load();
    session->form.FormModified = 1;
    session->form.Fonts[1].IsPicture = 1;
    session->form.Fonts[1].InfoSize = 40;
    EXPECT_EQ(Save(path), 1);
    ExpectBox("Ran Out of Memory", "File Save Incomplete!");
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
}

TEST_F(FailedSave, SaveThatCannotMakeItsFileBringsTheBackupBack) {
    const std::string path = Load();
    DropLock();
    WriteWholeFile(path, "before");
    const FailingCall fails("CreateFileA", CreateFileA, INVALID_HANDLE_VALUE);
    EXPECT_EQ(Save(path), 1);
    ExpectBox("Error creating the output file.", "");
    EXPECT_EQ(ReadWholeFile(path), "before");
    EXPECT_FALSE(Stands("FORM.BP"));
    EXPECT_EQ(session->form.LockedPath, SavedPath());
    EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
}

TEST_F(FailedSave, SaveThatCannotOpenItsNewFileIsToldAndLeavesTheBackup) {
    const std::string path = Load();
    DropLock();
    WriteWholeFile(path, "before");
    const FailingCall fails("CreateFileA", CreateFileA, INVALID_HANDLE_VALUE, 2);
    EXPECT_EQ(Save(path), 1);
    ExpectBox("Error Opening the Output File", "");
    EXPECT_EQ(ReadWholeFile(folder.Path("FORM.BP")), "before");
    EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
}

TEST_F(FailedSave, EveryWriteThatFailsIsToldByItsBlockAndFromTheMarkerOnNot) {
    FormBuilder small;
    small.Section(SECTION_DETAIL_1, 100);
    small.Break(0, 0, SECTION_SORT_HEADER_1);
    ASSERT_EQ(ReadBytes(small.Bytes()), READ_DONE);
    const FormBlocks blocks(small.Bytes());
    const auto words = [&](size_t written) -> std::vector<std::string> {
        if (written < blocks.items) return {"Error writing to output file"};
        if (written < blocks.fields) return {"Error writing to output file!"};
        if (written < blocks.marker) return {"Error Writing the field information!"};
        return {};
    };
    size_t written = 0;
    int number = 1;
    for (; written < small.Bytes().size(); ++number) {
        SCOPED_TRACE(number);
        const std::string path = folder.Path("SAVE" + std::to_string(number) + ".FP");
        boxes.Clear();
        session->form.FormModified = 1;
        const FailingCall fails("WriteFile", WriteFile, FALSE, number);
        ASSERT_EQ(Save(path), 1);
        written = ReadWholeFile(path).size();
        if (written == small.Bytes().size()) break;
        EXPECT_EQ(boxes.Texts(), words(written));
        EXPECT_EQ(boxes.LastTitle(), "");
        EXPECT_EQ(session->form.FormModified, 1u);
        EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
        EXPECT_EQ(session->form.LockedPath, SavedPath());
    }
    EXPECT_GT(number, 40);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(FailedSave, MarkerThatCannotBeWrittenLeavesTheFileCutShortBeforeIt) {
    const std::string path = Load();
    const FormBlocks blocks(form.Bytes());
    const size_t parts[] = {blocks.fields - blocks.items, blocks.breaks - blocks.fields,
                            blocks.sections - blocks.breaks, blocks.users - blocks.sections,
                            blocks.marker - blocks.users};
    size_t writes = 1; // the header
    for (const size_t size : parts) writes += (size + 299) / 300;
    const std::string copy = folder.Path("COPY.FP");
    {
        const FailingCall fails("WriteFile", WriteFile, FALSE, static_cast<int>(writes) + 1);
        const FailingCall no_lock("CreateFileA", CreateFileA, INVALID_HANDLE_VALUE, 3);
        EXPECT_EQ(Save(copy), 1);
        EXPECT_EQ(no_lock.Seen(), 3); // no recovery, in which this would be fatal
    }
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(ReadWholeFile(copy), form.Bytes().substr(0, blocks.marker));
}

TEST_F(FailedSave, SilentEndIsNoFailureThoughTheFormCannotBeLockedAgain) {
    const std::string path = Load();
    DropLock();
    session->form.Fonts[1].LogFont.lfWidth = 32768;
    const FailingCall fails("CreateFileA", CreateFileA, INVALID_HANDLE_VALUE, 3);
    EXPECT_EQ(Save(path), 1);
    EXPECT_EQ(fails.Seen(), 3);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(session->form.FormLock, INVALID_HANDLE_VALUE);
}

TEST_F(FailedSave, BackupStaysBesideTheHalfWrittenFormThatStandsInItsWay) {
    const std::string path = Load();
    DropLock();
    session->form.Fonts[1].IsPicture = 1;
    session->form.Fonts[1].InfoSize = 40;
    WriteWholeFile(path, "before");
    EXPECT_EQ(Save(path), 1);
    EXPECT_EQ(ReadWholeFile(folder.Path("FORM.BP")), "before");
    EXPECT_EQ(session->form.LockedPath, SavedPath());
}

TEST_F(FailedSave, PathInAnAbsentFolderIsFatalInTheEnd) {
    Load();
    DropLock();
    EXPECT_EQ(Save(folder.Path("ABSENT\\FORM.FP")), -32);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"", "Error creating the output file.", {IDOK}},
                                      {"Fatal Error", "Could Not Re-Open the File.", {IDOK}}}));
}

TEST_F(FailedSave, FileHeldByAnotherProgramIsFatalInTheEnd) {
    Load();
    DropLock();
    const std::string path = Put("held", "HELD.FP");
    const OwnedFile alone(
        CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(Save(path), -32);
    EXPECT_EQ(boxes.Log(),
              (std::vector<BoxRecord>{{"", "Error Opening the Output File", {IDOK}},
                                      {"Fatal Error", "Could Not Re-Open the File.", {IDOK}}}));
}

TEST_F(FailedSave, LockOnAnotherFileIsNotWrittenTo) {
    Load();
    const std::string own = session->form.LockedPath;
    const std::string before = ReadWholeFile(own);
    const std::string path = Put("held", "HELD.FP");
    const OwnedFile other(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    session->form.FormModified = 1;
    session->form.Items[0].TextColor = 0x123456;
    EXPECT_EQ(Save(path), -32);
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_EQ(ReadWholeFile(own), before);
    EXPECT_EQ(ReadWholeFile(path), "held");
}

TEST_F(BrokenSave, HeaderThatCannotBeWrittenIsToldAndTheFormIsLockedAgain) {
    FillTables();
    const OwnedFile reading(CreateFileA(Put("x").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, 0, nullptr));
    const std::string path = Put("old", "HELD.FP");
    const OwnedFile held(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, OPEN_EXISTING, 0, nullptr));
    DuplicateHandle(GetCurrentProcess(), reading.Get(), GetCurrentProcess(),
                    &session->form.FormLock, 0, FALSE, DUPLICATE_SAME_ACCESS);
    CopyText(path.c_str(), session->form.LockedPath, sizeof session->form.LockedPath);
    EXPECT_EQ(Save(path), 1);
    ExpectBox("Error writing to output file", "");
    EXPECT_EQ(session->form.LockedPath, SavedPath());
    EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
}

TEST_F(BrokenSave, ItemsThatCannotBeWrittenAreTold) {
    FillTables();
    EXPECT_EQ(SaveUntil(sizeof(FormHeader) + 1000), 1);
    ExpectBox("Error writing to output file!", "");
}

TEST_F(BrokenSave, FieldsThatCannotBeWrittenAreTold) {
    FillTables();
    session->form.FormModified = 1;
    EXPECT_EQ(SaveUntil(sizeof(FormHeader) + ITEMS_SIZE + 1000), 1);
    ExpectBox("Error Writing the field information!", "");
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(BrokenSave, FontTableThatCannotBeWrittenEndsTheSaveSilently) {
    FillTables();
    FontEntry &picture = session->form.Fonts[session->form.FontCount++];
    picture.InUse = picture.IsPicture = 1;
    picture.BitsSize = 200000;
    picture.InfoSize = 40;
    picture.BitsBlock = sAlloc(picture.BitsSize);
    picture.InfoBlock = sAlloc(picture.InfoSize);
    session->form.FormModified = 1;
    EXPECT_EQ(SaveUntil(sizeof(FormHeader) + ITEMS_SIZE + FIELDS_SIZE +
                        MAX_SECTIONS * sizeof(SectionRecord) +
                        MAX_USER_FIELDS * sizeof(UserFieldRecord) + 1000),
              1);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(session->form.FormModified, 1u);
    EXPECT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
}
