// The table of contents of all state: one record for each designer, run or viewing.
//
// It is allocated whole and zero-filled, so zero is the start state of every field. The caller's
// blocks stand at its head because a host reads them through GetSessionPointer; each group behind
// them belongs to the room whose header defines it.
#pragma once

#include <type_traits>

#include "state/device_state.h"
#include "state/dialog_state.h"
#include "state/drawing_state.h"
#include "state/form_state.h"
#include "state/output_state.h"
#include "state/report_state.h"
#include "state/run_state.h"
#include "state/view_state.h"
#include "state/windows.h"
#include "tessarine_blocks.h"

namespace tessarine {

struct Designer;

enum { KIND_DESIGNER = 'F', KIND_REPORT = 'R' };

// How far a session is. What a host may ask of it depends on this alone.
enum SessionState {
    STATE_OPENING,   // its start hasn't succeeded yet, or has failed
    STATE_FORM_OPEN, // a designer with its form
    STATE_READY,     // a run that waits for its first record
    STATE_RUNNING,   // a run that has been given one
    STATE_FINISHED,  // a preview that is read behind its run
    STATE_ENDING,    // nothing is taken any more; released as soon as nothing works on it
};

} // namespace tessarine

struct Session {
    FormParams FormBlock; // in a designer session
    RepParams RunBlock;   // in a run
    RepViewParams ViewBlock;
    PreviewWords Preview; // what a host reads of a preview
    FormDesk Desk;        // what a host reads and fills of a designer

    char CurrentFile[260]; // the form's file name as the user knows it
    HWND ParentWindow;
    HWND Window; // the session's window; the parent's in a session without one
    int32_t SessionId;
    int32_t SessionKind;
    uint32_t OutputToScreen;
    uint32_t OutputToPrinter;
    uint32_t OutputToFile;
    uint32_t ViewingFile;    // set by RepView beside one of the first two
    int32_t State;           // a SessionState
    Session *NextLive;       // in the list of live sessions
    int32_t ErrorCode;       // left by the last FatalError
    int32_t UnwindPoint;     // how many entry points of this session are on the stack
    int32_t MessagesInHand;  // how many messages of its window are being handled, one in another
    uint32_t PendingFailure; // a failure that was caught at a callback's boundary
    uint32_t IgnoreMessages; // the window procedures ignore all messages: the session is closing
    uint32_t WindowInMaking; // CreateFormWindow has not finished
    WNDPROC WindowProcedure; // of the window that CreateFormWindow makes
    MessageRoutine MessageCallback;
    void (*EndSession)(Session *); // how this session is released; can't fail
    uint32_t LabelMode;            // the word behind LabelForm when the session began

    tessarine::DialogState dialog;
    tessarine::PaletteState palette;
    tessarine::DrawingState drawing;
    tessarine::FormState form;
    tessarine::PrinterState printer;
    tessarine::DeviceState device;
    tessarine::RunState run;
    tessarine::ReportState report;
    tessarine::PageStoreState pages;
    tessarine::ViewState view;
    tessarine::PreviewState preview;
    tessarine::ProgressState progress; // of a run to a printer or to disk
    tessarine::PreviewJobState job;
    tessarine::Designer *designer;   // only its own room sees inside; null until it is used
    void (*DropDesigner)(Session *); // set with it

    char TextBuffer[TEXT_BUFFER_SIZE]; // composed messages and dialog texts
};

static_assert(std::is_trivially_copyable_v<Session>);
static_assert(offsetof(Session, FormBlock) == 0 &&
              offsetof(Session, RunBlock) == offsetof(SessionHead, Run) &&
              offsetof(Session, ViewBlock) == offsetof(SessionHead, View) &&
              offsetof(Session, Preview) == offsetof(SessionHead, Preview) &&
              offsetof(Session, Desk) == offsetof(SessionHead, Desk));
