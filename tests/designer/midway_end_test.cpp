// Designers that end in the middle of something, each in every way in which one can end.
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "commands.h"
#include "designer/designer_state.h"
#include "form/modified.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "tests/support/designer_session.h"

using namespace tessarine;

namespace {

enum class Way { CLOSE, EXIT, ABANDON, DESTROY, PARENT_GOES };

constexpr Way ways[] = {Way::CLOSE, Way::EXIT, Way::ABANDON, Way::DESTROY, Way::PARENT_GOES};
constexpr const char *way_names[] = {"close", "exit", "abandon", "destroy", "parent"};

// All in long walks; two of them, in turn, are enough for every day.
std::vector<Way> WaysOf(size_t number) {
    if (GetEnvironmentVariableA("TESSARINE_ALL_WAYS", nullptr, 0))
        return {std::begin(ways), std::end(ways)};
    return {ways[number % std::size(ways)], ways[(number + 2) % std::size(ways)]};
}

int BlocksInUse() {
    int kept = 0;
    for (const Session *ended = session_table.EndedSessions; ended; ended = ended->NextLive) ++kept;
    return LiveBlocks() - kept;
}

class MidwayEnd : public DesignerSession {
protected:
    MidwayEnd() {
        standing = this;
        boxes.OnAnyOther([this](HWND dialog) { return Answer(dialog); });
    }
    ~MidwayEnd() override { standing = nullptr; }

    static FormBuilder Form() {
        FormBuilder form = TwoSections();
        const int amount = form.Field(FIELD_DATA, "AMOUNT", TYPE_NUMERIC, 9);
        const int tax = form.Field(FIELD_CALC, "CALC->TAX", TYPE_NUMERIC, 9);
        const int region = form.Field(FIELD_DATA, "REGION", TYPE_TEXT, 12);
        const int broken = form.Field(FIELD_DATA, "REGION", TYPE_TEXT, 12);
        FormRows::Store({amount}, &form.fields[static_cast<size_t>(tax)].FieldTokens);
        form.FieldItem(SECTION_DETAIL_1, 600, 50, 200, 50, amount);
        form.FieldItem(SECTION_DETAIL_1, 600, 150, 200, 50, tax);
        form.Line(SECTION_DETAIL_1, 100, 250, 300, 30, 0);
        form.Section(SECTION_SORT_HEADER_1, 200);
        form.Break(region, broken, SECTION_SORT_HEADER_1);
        form.UserField("LIMIT", TYPE_NUMERIC, 1);
        return form;
    }

    int RowOf(int type, int section, int field = 0) const {
        for (int row = 0; row < session->form.TotalItems; ++row) {
            const ItemRecord &item = session->form.Items[row];
            if (item.ItemType == type && (section < 0 || item.SectionIndex == section) &&
                (type != ITEM_FIELD || item.FieldIndex == field))
                return row;
        }
        return NOTHING_SELECTED;
    }
    int FieldRow(const char *name) const {
        for (int row = 0; row < session->form.FieldCount; ++row)
            if (!std::strcmp(session->form.Fields[row].FieldName, name)) return row;
        return -1;
    }
    void Select(const std::string &what) {
        int row = what == "Alpha"    ? Row("Alpha")
                  : what == "Amount" ? RowOf(ITEM_FIELD, -1, FieldRow("AMOUNT"))
                  : what == "Tax"    ? RowOf(ITEM_FIELD, -1, FieldRow("CALC->TAX"))
                  : what == "Line"   ? RowOf(ITEM_LINE, -1)
                  : what == "Sort"   ? RowOf(ITEM_BAR, SECTION_SORT_HEADER_1)
                                     : NOTHING_SELECTED;
        if (what == "Group") {
            DragTo(150, 70, 900, 300);
            return;
        }
        session->form.SelectedItem = row;
    }

    void EndNow() {
        if (ended) return;
        ended = true;
        switch (way) {
        case Way::CLOSE: Send(WM_CLOSE); break;
        case Way::EXIT: Command(COMMAND_CLOSE_FORM); break;
        case Way::ABANDON:
            SetModified(session, 1);
            Command(COMMAND_CLOSE_FORM);
            break;
        case Way::DESTROY: DestroyWindow(Window()); break;
        case Way::PARENT_GOES: DestroyWindow(params.ParentWindow); break;
        }
    }

    int Answer(HWND dialog) {
        if (WindowText(dialog) == "File Modified") return way == Way::ABANDON ? IDCANCEL : IDNO;
        EndNow();
        if (!IsWindow(dialog)) return 0;
        const bool yes = ++presses % 2;
        if (GetDlgItem(dialog, 0xFFFF))
            return !GetDlgItem(dialog, IDYES) ? IDOK : yes ? IDYES : IDNO;
        if (yes) PostMessageA(dialog, WM_COMMAND, IDOK, 0); // one that refuses it is cancelled
        return IDCANCEL;
    }

    void Open(const std::string &path, Way by) {
        way = by;
        ended = false;
        owner.emplace_back(std::make_unique<HostWindow>());
        params.ParentWindow = owner.back()->Get();
        ASSERT_EQ(Start(path), CODE_DONE);
    }
    void Settle() {
        if (session && SessionStands(session)) {
            EXPECT_FALSE(ended) << "not ended: " << way_names[static_cast<int>(way)];
            End();
        }
        if (IsWindow(Window())) DestroyWindow(Window());
        owner.clear();
    }

    static int32_t __stdcall PickAndEnd(HWND, FieldRecord *record, int32_t, void *) {
        standing->EndNow();
        std::strcpy(record->FieldName, "CITY");
        record->ValueType = TYPE_TEXT;
        return 1;
    }
    static int32_t __stdcall EditAndEnd(Session *, uint32_t, uint32_t, void *) {
        standing->EndNow();
        return 1;
    }
    static void __stdcall HearAndEnd(FieldRecord *, void *) { standing->EndNow(); }

    static inline MidwayEnd *standing;
    Way way = Way::CLOSE;
    bool ended = false;
    int presses = 0;
    std::vector<std::unique_ptr<HostWindow>> owner;
};

} // namespace

// Each ends under what the command opens: a dialog of ours or of the system, a box, a routine of
// the host. Behind it the answers are taken in turn.
TEST_F(MidwayEnd, UnderEachKindOfDialogAndRoutineEndsTheSessionWholly) {
    struct Case {
        const char *selected;
        int command;
    };
    constexpr Case cases[] = {
        {"", COMMAND_NEW_LABEL},          {"", COMMAND_DATA_FIELD},
        {"", COMMAND_CALC_FIELD},         {"", COMMAND_SYSTEM_FIELD},
        {"", COMMAND_USER_FIELD},         {"", COMMAND_CREATE_USER_FIELD},
        {"", COMMAND_MODIFY_USER_FIELD},  {"", COMMAND_DELETE_USER_FIELD},
        {"", COMMAND_NEW_SECTION},        {"", COMMAND_GRID},
        {"", COMMAND_REPORT_FILTER},      {"", COMMAND_SAVE_AS},
        {"", COMMAND_PRINTER_SETUP},      {"", COMMAND_PICTURE_FILE},
        {"Alpha", COMMAND_POSITION},      {"Alpha", COMMAND_OUTLINE},
        {"Alpha", COMMAND_BACKGROUND},    {"Alpha", COMMAND_FONTS},
        {"Alpha", COMMAND_EDIT_LABEL},    {"Amount", COMMAND_EDIT_FIELD},
        {"Tax", COMMAND_EDIT_FIELD},      {"Tax", COMMAND_FIELD_EXPRESSION},
        {"Line", COMMAND_EDIT_LINE},      {"Sort", COMMAND_EDIT_SECTION},
        {"Sort", COMMAND_SECTION_FILTER}, {"Sort", COMMAND_SORT_FIELD},
        {"Sort", COMMAND_BREAK_FIELD},    {"Sort", COMMAND_DELETE},
        {"Group", COMMAND_OUTLINE},
    };
    const std::string path = Put(Form());
    params.PickFieldProc = PickAndEnd;
    host_data.ItemPropertiesCallback = EditAndEnd;
    Open(path, Way::CLOSE);
    Settle();
    const int blocks = BlocksInUse();
    size_t number = 0;
    for (const Case &row : cases)
        for (const Way by : WaysOf(number++)) {
            Open(path, by);
            Select(row.selected);
            Command(row.command);
            const std::string which = std::string(row.selected) + " " +
                                      std::to_string(row.command) + " " +
                                      way_names[static_cast<int>(by)];
            EXPECT_TRUE(ended) << which;
            EXPECT_FALSE(SessionStands(session)) << which;
            Settle();
            EXPECT_EQ(BlocksInUse(), blocks) << which;
        }
}

// Each ends while the host hears what is selected.
TEST_F(MidwayEnd, InTheNoticeOfASelectionEndsTheSessionWholly) {
    const std::string path = Put(Form());
    Open(path, Way::CLOSE);
    Settle();
    const int blocks = BlocksInUse();
    size_t number = 0;
    for (const int command :
         {COMMAND_CENTER, COMMAND_RIGHT, COMMAND_PAGE_DOWN, COMMAND_FONTS, COMMAND_ITEM_PROPERTIES})
        for (const char *selected : {"Alpha", "Tax", "Group"})
            for (const Way by : WaysOf(number++)) {
                Open(path, by);
                Select(selected);
                host_data.FieldSelectedCallback = HearAndEnd;
                Command(command);
                host_data.FieldSelectedCallback = nullptr;
                Settle();
                EXPECT_EQ(BlocksInUse(), blocks)
                    << selected << " " << command << " " << way_names[static_cast<int>(by)];
            }
}

TEST_F(MidwayEnd, OfADragOrAPlacementEndsTheSessionWholly) {
    const std::string path = Put(Form());
    Open(path, Way::CLOSE);
    Settle();
    const int blocks = BlocksInUse();
    for (const Way by : ways)
        for (const int command : {0, COMMAND_NEW_LINE, COMMAND_PASTE}) {
            Open(path, by);
            Select("Alpha");
            if (command == COMMAND_PASTE) Command(COMMAND_COPY);
            if (command) {
                Command(command);
            } else {
                PressAt(250, 110);
                MoveTo(260, 120);
                MoveTo(300, 150);
            }
            EXPECT_NE(session->designer->PendingCommand, IDLE);
            EndNow();
            EXPECT_FALSE(SessionStands(session));
            Settle();
            EXPECT_EQ(BlocksInUse(), blocks) << command << way_names[static_cast<int>(by)];
        }
}
