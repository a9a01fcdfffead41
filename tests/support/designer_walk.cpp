#include "tests/support/designer_walk.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <sstream>

#include "commands.h"
#include "designer/designer_state.h"
#include "designer/open.h"
#include "designer/view.h"
#include "form/form_writer.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "frame/session_table.h"
#include "frame/text.h"
#include "tests/support/form_invariants.h"
#include "tests/support/test_session.h"
#include "tests/support/walk_answers.h"
#include "tests/support/window_driver.h"

using namespace tessarine;

namespace {

constexpr int commands[] = {COMMAND_NEW_LABEL,
                            COMMAND_CENTER,
                            COMMAND_DATA_FIELD,
                            COMMAND_CALC_FIELD,
                            COMMAND_SYSTEM_FIELD,
                            COMMAND_USER_FIELD,
                            COMMAND_BARCODE_FIELD,
                            COMMAND_FIELD_EXPRESSION,
                            COMMAND_EDIT_FIELD,
                            COMMAND_NEW_SECTION,
                            COMMAND_NEW_SECTION,
                            COMMAND_SECTION_FILTER,
                            COMMAND_SORT_FIELD,
                            COMMAND_BREAK_FIELD,
                            COMMAND_CREATE_USER_FIELD,
                            COMMAND_MODIFY_USER_FIELD,
                            COMMAND_DELETE_USER_FIELD,
                            COMMAND_NEW_LINE,
                            COMMAND_OUTLINE,
                            COMMAND_BACKGROUND,
                            COMMAND_POSITION,
                            COMMAND_DELETE,
                            COMMAND_UNDO,
                            COMMAND_ALIGN_TOP,
                            COMMAND_ALIGN_BOTTOM,
                            COMMAND_ALIGN_MIDDLE,
                            COMMAND_ALIGN_LEFT,
                            COMMAND_ALIGN_RIGHT,
                            COMMAND_ALIGN_CENTER,
                            COMMAND_EVEN_WIDTH,
                            COMMAND_EVEN_HEIGHT,
                            COMMAND_SPACE_ACROSS,
                            COMMAND_SPACE_DOWN,
                            COMMAND_EXPAND_ACROSS,
                            COMMAND_EXPAND_DOWN,
                            COMMAND_COMPRESS_ACROSS,
                            COMMAND_COMPRESS_DOWN,
                            COMMAND_ITEM_PROPERTIES,
                            COMMAND_NONE,
                            COMMAND_CUT,
                            COMMAND_COPY,
                            COMMAND_PASTE,
                            COMMAND_PASTE,
                            COMMAND_GRID,
                            COMMAND_REPORT_FILTER,
                            COMMAND_UNDO,
                            COMMAND_PAGE_UP,
                            COMMAND_PAGE_DOWN,
                            COMMAND_LINE_UP,
                            COMMAND_LINE_DOWN,
                            COMMAND_LEFT,
                            COMMAND_RIGHT};
constexpr int keys[] = {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_PRIOR, VK_NEXT, VK_DELETE};
constexpr int WIDTH = 2100; // form units that the pointer ranges over
constexpr int HEIGHT = 2500;
constexpr int STEPS_OF_A_GESTURE = 4;
constexpr int SHIFT = 4;

uint32_t edit_allowed = 1;
uint32_t label_form = 0;

// A host is in label mode before it opens a form of labels.
bool IsLabelForm(const std::string &path) {
    const std::string bytes = path.empty() ? "" : ReadWholeFile(path);
    if (bytes.size() < sizeof(FormHeader)) return false;
    FormHeader header;
    std::memcpy(&header, bytes.data(), sizeof header);
    return header.LabelType != 0;
}

int32_t __stdcall PickAny(HWND, FieldRecord *record, int32_t, void *) {
    CopyText("AMOUNT", record->FieldName, sizeof record->FieldName);
    record->ValueType = TYPE_NUMERIC;
    record->FieldWidth = 9;
    record->Decimals = 2;
    return 1;
}

int32_t __stdcall CheckAny(HWND window, FieldRecord *record, int32_t level, void *context) {
    if (lstrcmpiA(record->FieldName, "AMOUNT")) return 0;
    return PickAny(window, record, level, context);
}

Session *OpenWalk(const std::string &form_path, FormParams *params) {
    host_data = HostData{};
    host_data.EditAllowed = &edit_allowed;
    edit_allowed = 1;
    label_form = IsLabelForm(form_path);
    host_data.LabelForm = &label_form;
    params->WindowWidth = 900;
    params->WindowHeight = 700;
    params->ShowMenu = params->HorzScroll = params->VertScroll = 1;
    params->WindowStyle = WS_OVERLAPPEDWINDOW;
    params->PickFieldProc = PickAny;
    params->CheckFieldProc = CheckAny;
    CopyText(form_path.c_str(), params->FormFile, sizeof params->FormFile);
    return form(params) ? nullptr : GetSessionPointer(params->FormWindow, 0);
}

void CloseWalk(Session *session) {
    if (!session || !SessionStands(session)) return;
    session->form.FormModified = 0;
    WantEnd(session);
    ReleaseIfDue(session);
}

// A gesture is four steps: the press, two moves, the release; so drags happen.
WalkStep GestureStep(std::mt19937 *random, int part, uint32_t gesture) {
    std::mt19937 of_gesture(gesture);
    const int button = of_gesture() % 8 == 0 ? 1 + static_cast<int>(of_gesture() % 2) : 0;
    const int shift = of_gesture() % 10 == 0 ? SHIFT : 0;
    constexpr char acts[STEPS_OF_A_GESTURE] = {'p', 'm', 'm', 'r'};
    const char act = of_gesture() % 12 == 0 && part == 0 ? 'd' : acts[part];
    return {act, static_cast<int>((*random)() % WIDTH), static_cast<int>((*random)() % HEIGHT),
            button + shift, static_cast<uint32_t>((*random)())};
}

} // namespace

std::string TextOf(const std::vector<WalkStep> &steps) {
    std::ostringstream text;
    for (const WalkStep &step : steps)
        text << step.act << ' ' << step.a << ' ' << step.b << ' ' << step.c << ' ' << step.answer
             << '\n';
    return text.str();
}

std::vector<WalkStep> StepsOf(const std::string &text) {
    std::vector<WalkStep> steps;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        WalkStep step{};
        if (words >> step.act >> step.a >> step.b >> step.c >> step.answer) steps.push_back(step);
    }
    return steps;
}

WalkStep StepOf(uint32_t seed, int number) {
    std::seed_seq own{seed, static_cast<uint32_t>(number)};
    std::mt19937 random(own);
    const uint32_t gesture = seed * 31 + static_cast<uint32_t>(number / STEPS_OF_A_GESTURE);
    if (std::mt19937(gesture)() % 2)
        return GestureStep(&random, number % STEPS_OF_A_GESTURE, gesture);
    const uint32_t kind = random() % 16;
    const auto answer = static_cast<uint32_t>(random());
    if (kind < 11) return {'c', commands[random() % std::size(commands)], 0, 0, answer};
    if (kind < 14) return {'k', keys[random() % std::size(keys)], 0, 0, answer};
    return {'s', static_cast<int>(random() % 2), static_cast<int>(random() % 6),
            static_cast<int>(random() % 101), answer};
}

DesignerWalk::DesignerWalk(const std::string &form_path, const std::string &folder)
    : folder_(folder), session_(OpenWalk(form_path, &params_)) {}

DesignerWalk::~DesignerWalk() {
    CloseWalk(session_);
    host_data = HostData{};
}

namespace {

struct Buttons {
    UINT down;
    UINT up;
    UINT twice;
    WPARAM key;
};

constexpr Buttons buttons[] = {
    {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, MK_LBUTTON},
    {WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDBLCLK, MK_MBUTTON},
    {WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK, MK_RBUTTON},
};

// The item's menu would wait for a person, so a right button is the middle one here.
void Point(Session *session, const WalkStep &step) {
    const Buttons &button = buttons[std::min(step.c & 3, 1)];
    const POINT pixel = FormToDevice(session, {step.a, step.b});
    const LPARAM place = MAKELPARAM(pixel.x, pixel.y);
    const std::unique_ptr<HeldKey> shift(step.c & SHIFT ? new HeldKey(VK_SHIFT) : nullptr);
    const UINT message = step.act == 'p'   ? button.down
                         : step.act == 'd' ? button.twice
                         : step.act == 'r' ? button.up
                                           : WM_MOUSEMOVE;
    SendMessageA(session->Window, message, step.act == 'r' ? 0 : button.key, place);
}

void Do(Session *session, const WalkStep &step) {
    switch (step.act) {
    case 'c': SendMessageA(session->Window, WM_COMMAND, static_cast<WPARAM>(step.a), 0); break;
    case 'k':
        SendMessageA(session->Window, WM_KEYDOWN, static_cast<WPARAM>(step.a), 0);
        SendMessageA(session->Window, WM_KEYUP, static_cast<WPARAM>(step.a), 0);
        break;
    case 's':
        SendMessageA(session->Window, step.a ? WM_HSCROLL : WM_VSCROLL, MAKEWPARAM(step.b, step.c),
                     0);
        break;
    default: Point(session, step);
    }
}

} // namespace

std::string DesignerWalk::Take(const WalkStep &step) {
    if (!session_) return "the form doesn't open";
    SetWalkAnswer(step.answer);
    Do(session_, step);
    ServeMessages();
    if (!SessionStands(session_)) return "the session has ended";
    return FaultOfForm(session_);
}

std::string DesignerWalk::Save(Session *session, const std::string &name) const {
    char path[260];
    CopyText((folder_ + "\\" + name).c_str(), path, sizeof path);
    FrSave(session, path);
    return ReadWholeFile(folder_ + "\\" + name);
}

namespace {

size_t FontsAt(const std::string &bytes) {
    FormHeader header;
    std::memcpy(&header, bytes.data(), sizeof header);
    return sizeof header + header.ItemCount * sizeof(ItemRecord) +
           header.FieldCount * sizeof(FieldRecord) + header.BreakCount * sizeof(BreakFieldRecord) +
           MAX_SECTIONS * sizeof(SectionRecord) + MAX_USER_FIELDS * sizeof(UserFieldRecord);
}

// Where two images of a form differ, before an offset; "" when they don't.
std::string Difference(const std::string &first, const std::string &again, size_t before) {
    if (first.size() != again.size())
        return "saved again the form has " + std::to_string(again.size()) + " bytes and not " +
               std::to_string(first.size());
    const auto end = first.begin() + static_cast<ptrdiff_t>(std::min(before, first.size()));
    const auto differ = std::mismatch(first.begin(), end, again.begin());
    if (differ.first == end) return "";
    return "saved again the form differs at byte " + std::to_string(differ.first - first.begin());
}

} // namespace

std::string DesignerWalk::Reopened(const std::string &bytes) const {
    FormParams params{};
    WriteWholeFile(folder_ + "\\WALK2.FP", bytes);
    Session *second = OpenWalk(folder_ + "\\WALK2.FP", &params);
    if (!second) return "";
    const std::string again = Save(second, "WALK3.FP");
    CloseWalk(second);
    return again;
}

// The reader brings fonts to whole points, so their rows settle with the second reading.
std::string DesignerWalk::SavedAgain() {
    const std::string first = Save(session_, "WALK1.FP");
    const std::string again = Reopened(first);
    if (again.empty()) return "the saved form can't be read";
    const std::string wrong = Difference(first, again, FontsAt(first));
    return wrong.empty() ? Difference(again, Reopened(again), again.size()) : wrong;
}

std::string WalkAll(const std::string &form_path, const std::string &folder,
                    const std::vector<WalkStep> &steps, size_t *taken) {
    DesignerWalk walk(form_path, folder);
    for (size_t number = 0; number < steps.size(); ++number) {
        if (taken) *taken = number + 1;
        const std::string wrong = walk.Take(steps[number]);
        if (!wrong.empty()) return wrong;
    }
    return walk.SavedAgain();
}

std::vector<WalkStep> Shortest(const std::string &form_path, const std::string &folder,
                               std::vector<WalkStep> steps) {
    const auto fails = [&](const std::vector<WalkStep> &some) {
        return !WalkAll(form_path, folder, some).empty();
    };
    for (size_t part = std::max<size_t>(steps.size() / 2, 1); part >= 1; part /= 2) {
        for (size_t from = 0; from < steps.size();) {
            std::vector<WalkStep> fewer = steps;
            const auto begin = fewer.begin() + static_cast<ptrdiff_t>(from);
            fewer.erase(begin, begin + static_cast<ptrdiff_t>(std::min(part, steps.size() - from)));
            if (fails(fewer))
                steps = fewer;
            else
                from += part;
        }
    }
    return steps;
}
