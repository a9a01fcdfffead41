// What stands on the disk at each moment of a save, as a process that ends there leaves it.
#include <vector>

#include "frame/owned.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_saves.h"

using namespace tessarine;

namespace {

using WriteRoutine = BOOL(WINAPI *)(HANDLE, const void *, DWORD, DWORD *, OVERLAPPED *);

struct Moment {
    std::string form;
    std::string backup;
};

std::string BytesOf(const std::string &path) {
    const OwnedFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, OPEN_EXISTING, 0, nullptr));
    std::string bytes(file ? GetFileSize(file.Get(), nullptr) : 0, '\0');
    DWORD moved = 0;
    if (file) ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &moved, nullptr);
    return bytes;
}

class SaveMoments : public FormSaves {
protected:
    // Both files as they stand before and after each write of the save.
    int SaveWatched(const std::string &path) {
        watched = this;
        real = reinterpret_cast<WriteRoutine>(
            ReplaceImport("WriteFile", reinterpret_cast<void *>(Write)));
        const int result = Save(path);
        ReplaceImport("WriteFile", reinterpret_cast<void *>(real));
        return result;
    }
    void Look() {
        moments.push_back({BytesOf(folder.Path("FORM.FP")), BytesOf(folder.Path("FORM.BP"))});
    }
    static BOOL WINAPI Write(HANDLE file, const void *bytes, DWORD size, DWORD *moved,
                             OVERLAPPED *place) {
        watched->Look();
        const BOOL done = real(file, bytes, size, moved, place);
        watched->Look();
        return done;
    }
    // Each of them finds the form before or after the save whole, in one file or the other.
    void ExpectNothingLost(const std::string &before, const std::string &after) {
        ASSERT_GT(moments.size(), 10U);
        for (size_t number = 0; number < moments.size(); ++number) {
            const Moment &moment = moments[number];
            EXPECT_TRUE(moment.form == before || moment.form == after || moment.backup == before)
                << "moment " << number << " of " << moments.size();
        }
    }

    std::vector<Moment> moments;

private:
    static inline SaveMoments *watched;
    static inline WriteRoutine real;
};

} // namespace

TEST_F(SaveMoments, AFormThatIsLockedHasItsBackupForAsLongAsItIsWritten) {
    const std::string path = Load();
    const std::string before = BytesOf(path);
    session->form.Header.TopMargin = 3.0F;
    ASSERT_EQ(SaveWatched(path), 1);
    const std::string after = BytesOf(path);
    EXPECT_NE(before, after);
    ExpectNothingLost(before, after);
    EXPECT_FALSE(Stands("FORM.BP"));
}

TEST_F(SaveMoments, AFormThatNobodyHoldsKeepsItsBackup) {
    const std::string path = Load();
    const std::string before = BytesOf(path);
    DropLock();
    session->form.Header.TopMargin = 3.0F;
    ASSERT_EQ(SaveWatched(path), 1);
    ExpectNothingLost(before, BytesOf(path));
    EXPECT_EQ(BytesOf(folder.Path("FORM.BP")), before);
}

TEST_F(SaveMoments, AWriteThatFailsLeavesTheBackupOfALockedForm) {
    const std::string path = Load();
    const std::string before = BytesOf(path);
    session->form.Header.TopMargin = 3.0F;
    {
        const FailingCall failing("WriteFile", WriteFile, FALSE, 3);
        Save(path);
    }
    EXPECT_EQ(BytesOf(folder.Path("FORM.BP")), before);
}

TEST_F(SaveMoments, AFormWithoutRoomForItsBackupIsNotTouched) {
    const std::string path = Load();
    const std::string before = BytesOf(path);
    session->form.Header.TopMargin = 3.0F;
    const FailingCall failing("CopyFileA", CopyFileA, FALSE);
    EXPECT_EQ(Save(path), 0);
    EXPECT_EQ(boxes.LastText(), "There is no room for a backup beside the form. Make room, or save "
                                "the form elsewhere.");
    EXPECT_EQ(BytesOf(path), before);
}
