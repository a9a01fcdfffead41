#include "designer/picture_items.h"

#include <limits>

#include "commands.h"
#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/item_table.h"
#include "designer/placement.h"
#include "designer/tracking.h"
#include "form/bitmaps.h"
#include "form/file_dialog.h"
#include "form/font_table.h"
#include "form/form_blocks.h"
#include "form/modified.h"
#include "form/pictures.h"
#include "frame/files.h"
#include "frame/memory.h"
#include "frame/message_box.h"
#include "frame/owned.h"

namespace tessarine {

namespace {

constexpr int NO_PICTURE = -1;
constexpr WORD SIGNATURE = 19778; // BM
constexpr const char *NOT_AVAILABLE = "Not Available";
constexpr const char *NO_MEMORY = "Ran Out of Memory";
constexpr int64_t MOST_BYTES = std::numeric_limits<int32_t>::max();
static_assert(sizeof(BITMAPFILEHEADER) == 14);

bool Tell(const Session *session, const char *text, const char *title = "") {
    ShowSessionBox(session, text, title);
    return false;
}

// The system's clipboard, open for as long as one stands.
class OpenedClipboard {
public:
    explicit OpenedClipboard(HWND window) : open_(OpenClipboard(window)) {}
    OpenedClipboard(const OpenedClipboard &) = delete;
    OpenedClipboard &operator=(const OpenedClipboard &) = delete;
    ~OpenedClipboard() {
        if (open_) CloseClipboard();
    }
    explicit operator bool() const { return open_; }

private:
    bool open_;
};

void FreeBlock(HGLOBAL block) { FreeHandle(block); }
using OwnedBlock = Owned<HGLOBAL, FreeBlock>;

// A movable block, locked for as long as one stands.
class LockedBlock {
public:
    explicit LockedBlock(HGLOBAL block) : block_(block), memory_(LockHandle(block)) {}
    LockedBlock(const LockedBlock &) = delete;
    LockedBlock &operator=(const LockedBlock &) = delete;
    ~LockedBlock() {
        if (memory_) UnlockHandle(block_);
    }
    void *Get() const { return memory_; }

private:
    HGLOBAL block_;
    void *memory_;
};

// The bitmap of a picture row, which goes again when that can't be had.
bool TakePicture(Session *session, int row) {
    if (!RestoreBitmap(session, session->drawing.ScreenDC, row)) {
        if (session->State != STATE_ENDING) ReleaseFontRow(session, row);
        return false;
    }
    DesignerOf(session).NewPicture = row;
    return true;
}

// A file that begins as those of bitmaps do, read as far as that; INVALID_HANDLE_VALUE after a
// message.
HANDLE OpenBitmapFile(Session *session, const char *path, BITMAPFILEHEADER *header) {
    OwnedFile file(OpenShared(path, GENERIC_READ, OPEN_EXISTING));
    const char *fault = !file ? "Cannot Open the Bitmap File"
                        : !ReadBlock(file.Get(), header, sizeof *header)
                            ? "Cannot Read the Bitmap File"
                        : header->bfType != SIGNATURE ? "Invalid Bitmap File"
                                                      : nullptr;
    if (!fault) return file.Leave();
    ShowSessionBox(session, fault);
    return INVALID_HANDLE_VALUE;
}

// Asks until there is one, or the user cancels.
HANDLE AskBitmapFile(Session *session, BITMAPFILEHEADER *header) {
    char path[MAX_PATH] = "";
    while (AskFileName(session, path, "Bitmap Files(*.BMP)|*.BMP|", "Bitmap File Name Selection",
                       false)) {
        if (session->State == STATE_ENDING) break;
        const HANDLE file = OpenBitmapFile(session, path, header);
        if (file != INVALID_HANDLE_VALUE || session->State == STATE_ENDING) return file;
    }
    return INVALID_HANDLE_VALUE;
}

// What follows the file's header: the information block and, to the end, the bits. What is wrong
// with it, or null.
const char *ReadPicture(const Session *session, HANDLE file, DWORD offset, FontEntry *picture) {
    LARGE_INTEGER length{};
    GetFileSizeEx(file, &length);
    const int64_t info_size = int64_t{offset} - int64_t{sizeof(BITMAPFILEHEADER)};
    const int64_t bits_size = length.QuadPart - offset;
    if (info_size <= 0 || bits_size < 0 || length.QuadPart > MOST_BYTES) return NO_MEMORY;
    picture->InfoSize = static_cast<uint32_t>(info_size);
    picture->BitsSize = static_cast<uint32_t>(bits_size);
    OwnedBlock bits(QuietAlloc(picture->BitsSize));
    OwnedBlock info(QuietAlloc(picture->InfoSize));
    const LockedBlock bits_lock(bits.Get());
    const LockedBlock info_lock(info.Get());
    if (!bits_lock.Get() || !info_lock.Get()) return NO_MEMORY;
    auto *header = static_cast<BITMAPINFO *>(info_lock.Get());
    if (!ReadBlock(file, header, picture->InfoSize) ||
        !ReadBlock(file, bits_lock.Get(), picture->BitsSize))
        return NO_MEMORY;
    if (!MendBitmap(header, picture->InfoSize, bits_lock.Get(), picture->BitsSize))
        return "Unrecognized Bitmap File Format!";
    picture->PointHeight = PointsOf(header->bmiHeader.biHeight, session->drawing.LogPixelsY);
    picture->PointWidth = PointsOf(header->bmiHeader.biWidth, session->drawing.LogPixelsX);
    picture->BitsBlock = bits.Leave();
    picture->InfoBlock = info.Leave();
    return nullptr;
}

// Under the dialog a row that was found may have been taken.
int StillFree(Session *session, int row) {
    return session->form.Fonts[row].InUse ? FindFontRow(session) : row;
}

void ReleasePicture(const FontEntry &picture) {
    FreeHandle(picture.BitsBlock);
    FreeHandle(picture.InfoBlock);
}

} // namespace

int PictureFromClipboard(Session *session) {
    const OpenedClipboard clipboard(session->Window);
    if (!clipboard) return Tell(session, "Clipboard in use by another application", NOT_AVAILABLE);
    const HANDLE bitmap = GetClipboardData(CF_BITMAP);
    if (!bitmap)
        return Tell(session, "Clipboard does not contain a Picture Bitmap Data", NOT_AVAILABLE);
    const int row = StoreBitmap(session, static_cast<HBITMAP>(bitmap));
    return row != NO_PICTURE && TakePicture(session, row);
}

int PictureFromFile(Session *session) {
    int row = FindFontRow(session);
    if (row == NO_PICTURE) return 0;
    BITMAPFILEHEADER header;
    const OwnedFile file(AskBitmapFile(session, &header));
    if (!file || session->State == STATE_ENDING) return 0;
    // Under the dialog the host may have begun to place something of its own.
    if (DesignerOf(session).PendingCommand != IDLE) return 0;
    FontEntry picture{};
    if (const char *fault = ReadPicture(session, file.Get(), header.bfOffBits, &picture))
        return Tell(session, fault);
    row = StillFree(session, row);
    if (row == NO_PICTURE) {
        ReleasePicture(picture);
        return 0;
    }
    picture.InUse = picture.IsPicture = 1;
    session->form.Fonts[row] = picture;
    return TakePicture(session, row);
}

void BeginPicture(Session *session, int command) {
    if (ItemRoomCheck(session) != ITEM_MAY_BEGIN || session->State == STATE_ENDING) return;
    const int made = command == COMMAND_PICTURE_PASTED ? PictureFromClipboard(session)
                                                       : PictureFromFile(session);
    if (!made || session->State == STATE_ENDING) return;
    const FontEntry &picture = session->form.Fonts[DesignerOf(session).NewPicture];
    BeginPlacement(session, command, static_cast<int>(picture.Height), picture.CharWidth[0]);
}

// As SettlePlacement, but that the paint mode stays.
void PlacePicture(Session *session) {
    ItemRecord item = ItemAtFocus(session, ITEM_PICTURE);
    item.FontIndex = static_cast<int16_t>(DesignerOf(session).NewPicture);
    const int row = InsertItem(session, item);
    EndGesture(session);
    if (row == NO_ROW) return ReleaseFontRow(session, item.FontIndex);
    session->form.SelectedItem = row;
    RepaintCanvas(session);
    SetModified(session, 1);
}

} // namespace tessarine
