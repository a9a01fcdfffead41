#include "run/set_up.h"

#include "canvas/canvas.h"
#include "device/device_names.h"
#include "device/paper.h"
#include "device/printer.h"
#include "expr/postfix.h"
#include "form/defaults.h"
#include "form/fonts.h"
#include "frame/boundary.h"
#include "frame/files.h"
#include "frame/message_box.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "output/clock.h"
#include "output/device_choice.h"
#include "output/page_store.h"
#include "output/preview_paint.h"
#include "output/preview_scroll.h"
#include "output/preview_window.h"
#include "output/report_file.h"
#include "run/page_geometry.h"
#include "run/prompts.h"
#include "run/run_end.h"
#include "run/run_tables.h"
#include "run/section_setup.h"
#include "run/system_fields.h"
#include "session/session_life.h"

namespace tessarine {

namespace {

bool FileExists(const char *path) {
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The path as the current folder has it now: a host may go to another one during the run.
template <size_t Size> void TakeWholePath(const char *name, char (&path)[Size]) {
    const DWORD length = GetFullPathNameA(name, Size, path, nullptr);
    if (length == 0 || length >= Size) CopyText(name, path, Size);
}

void TakeTempDir(Session *session) {
    char given[sizeof session->RunBlock.TempDir];
    CopyText(session->RunBlock.TempDir, given, sizeof given);
    if (*given) TakeWholePath(given, session->RunBlock.TempDir);
}

void TakeParams(Session *session, const RepParams *params) {
    session->SessionKind = KIND_REPORT;
    session->WindowProcedure = RepWndProc;
    session->EndSession = ReleaseRun;
    session->report.RunPhase = PHASE_SETUP;
    session->RunBlock = *params;
    EndText(session->RunBlock.FormFile);
    EndText(session->RunBlock.TempDir);
    EndText(session->RunBlock.OutputFile);
    TakeTempDir(session);
    session->ParentWindow = params->ParentWindow;
}

// What the user chose goes into the caller's block for the length of the choice.
int AskOutput(Session *session, RepParams *params) {
    const int answer = AskDevice(session);
    if (answer < 0) return CODE_NO_DEVICE;
    params->Device = answer == 0 ? 'S' : answer == 1 ? 'P' : 'F';
    if (params->Device != 'F') return CODE_DONE;
    EndText(params->OutputFile);
    return AskReportName(session, params->OutputFile, sizeof params->OutputFile,
                         "Report File Name Selection")
               ? CODE_DONE
               : CODE_NO_OUTPUT_FILE;
}

bool MayBeOutput(const Session *session, const char *path) {
    if (!SameFile(path, session->RunBlock.FormFile)) return true;
    ShowBox(nullptr, "The output file is the form file!");
    return false;
}

int OpenOutputFile(Session *session, const char *name) {
    session->OutputToFile = 1;
    if (!*name) return CODE_NO_OUTPUT_FILE;
    char path[sizeof session->pages.OutputPath];
    TakeWholePath(name, path);
    if (!MayBeOutput(session, path) || !WriteEmptyHeader(session, path)) return CODE_NO_OUTPUT_FILE;
    CopyText(path, session->pages.OutputPath, sizeof path);
    return CODE_DONE;
}

// The letter in the caller's block counts; the session's copy keeps the one that came in.
int ChooseOutput(Session *session, RepParams *params) {
    const bool asked = params->Device == 'A';
    if (asked)
        if (const int code = AskOutput(session, params)) return code;
    if (params->Device == 'F')
        return OpenOutputFile(session, asked ? params->OutputFile : session->RunBlock.OutputFile);
    if (params->Device == 'S') {
        session->OutputToScreen = 1;
        session->view.HorzScroll = 1;
        session->view.VertScroll = 1;
    } else {
        session->OutputToPrinter = 1;
    }
    return CODE_DONE;
}

void CompileCells(Session *session, Cell *cells, const char *failure) {
    uint16_t postfix[MAX_CELLS];
    if (InfixToPostfix(session, cells, postfix) != CELL_END)
        FatalError(session, failure, CODE_EXPRESSION);
    for (int place = 0; place < MAX_CELLS; ++place) {
        cells[place] = postfix[place];
        if (postfix[place] == CELL_END) break;
    }
}

void CompileExpressions(Session *session) {
    FormState &form = session->form;
    CompileCells(session, form.Header.ReportFilter, "Invalid Report Selection Expression!");
    for (int row = 0; row < form.FieldCount; ++row)
        if (form.Fields[row].FieldKind == FIELD_CALC)
            CompileCells(session, form.Fields[row].FieldTokens,
                         "Invalid Field Calculation Expression!");
    for (SectionRecord &section : form.Sections)
        if (section.InUse)
            CompileCells(session, section.SectionFilter, "Invalid Section Selection Expression!");
}

void ResetTempFields(Session *session) {
    for (int row = 0; row < MAX_TEMP_FIELDS; ++row) {
        InitField(session, &session->form.TempFld[row]);
        session->form.TempFld[row].InUse = 0;
    }
}

void SetStartState(Session *session) {
    RunState &run = session->run;
    session->report.RunPhase = PHASE_SETUP;
    session->report.CancelState = CANCEL_NONE;
    session->report.RecordCount = 0;
    session->report.PageCount = 1;
    run.PageNumber = 1;
    run.CurrentX = run.CurrentY = run.RowBottom = 0;
    run.AcrossIndex = 0;
    run.PageFresh = run.InPageBreak = run.TrialMode = run.ResetPageNumber = 0;
    run.FirstOnPage = run.FirstInGroup = 1;
    run.LastSection = -1;
    session->pages.ShownPageIndex = 0;
    session->pages.ShownPage = nullptr;
}

void StartPreview(Session *session) {
    session->view.OriginX = 0;
    session->view.OriginY = 0;
    ResizeCanvas(session);
    PlaceScrollBars(session);
    StartRecorder(session, "Error creating metafile");
    PaintStatusStrip(session);
    SetMenuState(session);
}

void FillOutputFields(Session *session) {
    RepParams &block = session->RunBlock;
    block.FieldTable = session->run.InputTable;
    block.FieldTotal = session->form.FieldCount;
    block.BreakTable = session->run.BreakTable;
    block.BreakTotal = session->form.BreakCount;
    block.SessionId = session->SessionId;
    CopyText(session->form.Header.CallerTag, block.CallerTag, sizeof block.CallerTag);
    block.RunWord = session->form.Header.RunWord;
}

void SetSystemFields(Session *session) {
    for (int row = 0; row < session->form.FieldCount; ++row) {
        if (session->form.Fields[row].FieldKind != FIELD_SYSTEM) continue;
        SetSystemField(session, &session->form.Fields[row]);
        SetSystemField(session, &session->run.InputTable[row]);
    }
}

void TakeHostPrinter(Session *session, HGLOBAL devNames, HGLOBAL devMode) {
    if (!devNames || !devMode) return;
    SetDevNames(session, devNames);
    SetDevMode(session, devMode, 0);
    ProcessPrinterData(session);
    if (session->OutputToPrinter) RemakeOutputDevice(session);
    // A preview draws and measures its first font as the report file does.
    if (session->OutputToScreen) MakeFont(session, session->drawing.ScreenDC, 0, false);
}

// Output, window, printer and form.
int OpenRun(Session *session, RepParams *params, HGLOBAL devNames, HGLOBAL devMode) {
    TakeParams(session, params);
    if (!FileExists(session->RunBlock.FormFile))
        FatalError(session, "Form File Not Found!", CODE_FILE);
    CopyText(session->RunBlock.FormFile, session->CurrentFile, sizeof session->CurrentFile);
    if (const int code = ChooseOutput(session, params)) return code;
    const RepParams &block = session->RunBlock;
    if (const int code = CreateFormWindow(session, block.WindowStyle, block.WindowX, block.WindowY,
                                          block.WindowWidth, block.WindowHeight))
        return code;
    TakeHostPrinter(session, devNames, devMode);
    if (session->OutputToScreen) {
        session->form.Header.RulerFlags = 0;
        ResizeCanvas(session);
    }
    return CODE_DONE;
}

// Values, expressions and sections, ready for records.
void PrepareValues(Session *session) {
    ResetTempFields(session);
    CopyToBreakTable(session);
    SetStartValues(session);
    CompileExpressions(session);
    CopyToInputTable(session);
    PrepareSections(session);
    ReadLocalClock(session);
    SetStartState(session);
}

int SetUpRun(Session *session, RepParams *params, int feedMode, HGLOBAL devNames, HGLOBAL devMode) {
    if (const int code = OpenRun(session, params, devNames, devMode)) return code;
    SettleFeedOffset(session);
    AllocRepMem(session);
    if (!AskUserFields(session)) {
        session->report.CancelState = CANCEL_STOP;
        EndRun(session, true);
        return CODE_CANCELLED;
    }
    PrepareValues(session);
    SettlePageGeometry(session, feedMode);
    if (session->run.BodyBottom <= 0) {
        ShowSessionBox(session, "Page Too Small!");
        return CODE_PRINTER;
    }
    if (session->OutputToScreen) StartPreview(session);
    if (session->OutputToFile) StartRecorder(session, "Error creating metafile(a)");
    SetSystemFields(session);
    FillOutputFields(session);
    RaisePending(session);
    session->State = STATE_READY;
    *params = session->RunBlock;
    return CODE_DONE;
}

// The user's close releases a start that failed, unless its window has gone already.
int LeaveStart(Session *session, int code) {
    if (code != CODE_DONE && session->view.WindowGone) WantEnd(session);
    return code;
}

} // namespace

int RepInit(RepParams *params, int feedMode, HGLOBAL devNames, HGLOBAL devMode) {
    Session *session = nullptr;
    if (const int code = OpenRunSession(&session)) return code;
    return AtEntry(
        session,
        [&] {
            const int code = SetUpRun(session, params, feedMode, devNames, devMode);
            return LeaveStart(session, code);
        },
        [&] { return LeaveStart(session, session->ErrorCode); });
}

} // namespace tessarine
