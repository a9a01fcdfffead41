#include "designer/open.h"

#include "designer/canvas_paint.h"
#include "designer/designer_state.h"
#include "designer/ending.h"
#include "designer/window.h"
#include "form/field_sample.h"
#include "frame/boundary.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "session/session_life.h"

namespace tessarine {

namespace {

constexpr WORD VERSION_WITHOUT_ARIAL = 3; // 3.0: the major version in the low byte

void TakeFormParams(Session *session, const FormParams &params) {
    FormParams &block = session->FormBlock;
    block = params;
    EndText(block.FormFile);
    EndText(block.CallerTag);
    EndText(block.DefaultFont);
    block.DesignerOpen = block.DesignerModified = 0;
    if (!*block.DefaultFont)
        CopyText(LOWORD(GetVersion()) == VERSION_WITHOUT_ARIAL ? "Helv" : "Arial",
                 block.DefaultFont, sizeof block.DefaultFont);
    CopyText(block.FormFile, session->CurrentFile, sizeof session->CurrentFile);
    session->SessionKind = KIND_DESIGNER;
    session->WindowProcedure = FrWndProc;
    session->view.HorzScroll = block.HorzScroll;
    session->view.VertScroll = block.VertScroll;
    session->ParentWindow = block.ParentWindow;
    session->OutputToScreen = 1;
}

// Forms that no designer made, and those of programs, may lack the samples of their fields. They
// are what is seen of a field, and no change of the form.
void FillSamples(Session *session) {
    for (int row = 0; row < session->form.TotalItems; ++row) {
        ItemRecord &item = session->form.Items[row];
        if (item.ItemType == ITEM_FIELD && !*item.LabelText)
            CreateFieldLabel(session, item.FieldIndex, item.LabelText, item.width, item.FontIndex);
    }
}

int OpenDesigner(Session *session) {
    const FormParams &block = session->FormBlock;
    DesignerOf(session); // before the first message of its window
    const int code = CreateFormWindow(session, block.WindowStyle, block.WindowX, block.WindowY,
                                      block.WindowWidth, block.WindowHeight);
    if (code) return code;
    FillSamples(session);
    LayOutCanvas(session);
    RepaintAll(session);
    return session->State == STATE_ENDING ? CODE_DISPLAY : CODE_DONE; // a host may close it at once
}

} // namespace

int form(FormParams *params) {
    Session *session = nullptr;
    if (const int code = OpenSession(&session)) return code;
    TakeFormParams(session, *params);
    session->EndSession = EndDesigner;
    const auto leave = [&](int code) {
        session->FormBlock.DesignerOpen = code == CODE_DONE;
        if (code) session->FormBlock.FormWindow = nullptr;
        *params = session->FormBlock;
        if (code) WantEnd(session);
        return code;
    };
    return AtEntry(
        session, [&] { return leave(OpenDesigner(session)); },
        [&] { return leave(session->ErrorCode); });
}

} // namespace tessarine
