#include <cstring>

#include "designer/canvas_paint.h"
#include "designer/selection.h"
#include "frame/boundary.h"
#include "frame/host_data.h"
#include "tests/support/pointer_session.h"

using namespace tessarine;

namespace {

using Notices = std::vector<std::string>;

Notices heard;
Session *ended_at_once; // by its host, at the first notice

std::string TextAt(LPARAM text) { return text ? reinterpret_cast<const char *>(text) : "none"; }

LRESULT CALLBACK Listen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message < MESSAGE_EDITABLE_TEXT || message > MESSAGE_MAY_EDIT)
        return DefWindowProcA(window, message, wParam, lParam);
    const bool text = message == MESSAGE_EDITABLE_TEXT || message == MESSAGE_FIXED_TEXT;
    heard.push_back(std::to_string(message) + " " +
                    (text ? TextAt(lParam) : std::to_string(lParam)) +
                    (wParam ? " with a first parameter" : ""));
    if (ended_at_once) WantEnd(ended_at_once);
    return 0;
}

void __stdcall HearField(FieldRecord *row, void *context) {
    heard.push_back("field " + std::string(row ? row->FieldName : "none") + " " +
                    static_cast<const char *>(context));
}

void __stdcall HearLabel(uint32_t text, void *context) {
    heard.push_back("label " + TextAt(static_cast<LPARAM>(text)) + " " +
                    static_cast<const char *>(context));
}

class SelectionNotices : public PointerSession {
protected:
    SelectionNotices() {
        ended_at_once = nullptr;
        SetWindowLongA(host.Get(), GWLP_WNDPROC, reinterpret_cast<LONG>(Listen));
    }
    void SetUp() override {
        PointerSession::SetUp();
        session->form.FieldCount = 2;
        FieldRecord &field = session->form.Fields[1];
        field.FieldKind = FIELD_CALC;
        std::strcpy(field.FieldName, "CALC->SUM");
    }
    // Makes "Alpha" an item of this kind.
    int Make(int type, int field_kind) {
        const int row = Row("Alpha");
        session->form.Items[row].ItemType = static_cast<uint16_t>(type);
        session->form.Items[row].FieldIndex = 1;
        session->form.Fields[1].FieldKind = static_cast<uint16_t>(field_kind);
        return row;
    }
    Notices Of(int row) {
        heard.clear();
        SelectItem(session, row);
        return heard;
    }
};

} // namespace

TEST_F(SelectionNotices, HostHearsWhatKindOfTextIsSelected) {
    char context[] = "mine";
    host_data.HostContext = context;
    host_data.FieldSelectedCallback = HearField;
    host_data.LabelSelectedCallback = HearLabel;
    const Notices label = {"714 1", "710 Alpha", "712 0", "field none mine", "label Alpha mine"};
    const Notices calculation = {"714 1", "710 CALC->SUM", "712 0", "field CALC->SUM mine",
                                 "label none mine"};
    const Notices fixed = {"714 0", "711 CALC->SUM", "713 0", "field CALC->SUM mine",
                           "label none mine"};
    const Notices other = {"714 0", "712 0", "713 0", "field none mine", "label none mine"};
    const struct {
        const char *name;
        int type, field_kind;
        const Notices &notices;
    } cases[] = {{"label", ITEM_LABEL, FIELD_DATA, label},
                 {"calculation", ITEM_FIELD, FIELD_CALC, calculation},
                 {"data field", ITEM_FIELD, FIELD_DATA, fixed},
                 {"system field", ITEM_FIELD, FIELD_SYSTEM, fixed},
                 {"user field", ITEM_FIELD, FIELD_USER, fixed},
                 {"picture", ITEM_PICTURE, FIELD_DATA, other},
                 {"line", ITEM_LINE, FIELD_DATA, other},
                 {"section", ITEM_BAR, FIELD_DATA, other},
                 {"group", ITEM_GROUP, FIELD_DATA, other}};
    for (const auto &c : cases) EXPECT_EQ(Of(Make(c.type, c.field_kind)), c.notices) << c.name;
}

TEST_F(SelectionNotices, ItemOfAHostsImpossibleFieldRowHasNoText) {
    for (const int row : {-1, session->form.FieldCount, 32000}) {
        const int item = Make(ITEM_FIELD, FIELD_DATA);
        session->form.Items[item].FieldIndex = static_cast<int16_t>(row);
        EXPECT_EQ(Of(item), (Notices{"714 0", "712 0", "713 0"})) << row;
    }
}

TEST_F(SelectionNotices, TextMayBeEditedWhileTheHostsWordIsOne) {
    uint32_t word = 0;
    const struct {
        uint32_t *slot;
        uint32_t value;
        const char *notice;
    } cases[] = {
        {&word, 0, "714 0"}, {&word, 1, "714 1"}, {&word, 2, "714 0"}, {nullptr, 0, "714 0"}};
    for (const auto &c : cases) {
        word = c.value;
        host_data.EditAllowed = c.slot;
        EXPECT_EQ(Of(Make(ITEM_LABEL, FIELD_DATA)).front(), c.notice) << c.value;
        EXPECT_EQ(Of(Make(ITEM_FIELD, FIELD_CALC)).front(), c.notice) << c.value;
        EXPECT_EQ(Of(Make(ITEM_FIELD, FIELD_DATA)).front(), "714 0") << c.value;
    }
}

TEST_F(SelectionNotices, RoutinesThatAHostDoesNotHaveAreNotCalled) {
    EXPECT_EQ(Of(Row("Alpha")), (Notices{"714 1", "710 Alpha", "712 0"}));
    host_data.LabelSelectedCallback = HearLabel;
    char context[] = "mine";
    host_data.HostContext = context;
    EXPECT_EQ(Of(Row("Beta")).back(), "label Beta mine");
}

TEST_F(SelectionNotices, RepaintRepeatsThem) {
    SelectItem(session, Row("Beta"));
    heard.clear();
    RepaintCanvas(session);
    EXPECT_EQ(heard, (Notices{"714 1", "710 Beta", "712 0"}));
    Deselect(session);
    heard.clear();
    RepaintCanvas(session);
    EXPECT_EQ(heard, Notices{});
}

TEST_F(SelectionNotices, HostThatEndsTheSessionHearsNoMore) {
    host_data.LabelSelectedCallback = HearLabel;
    ended_at_once = session;
    {
        const InMessage handled(session);
        EXPECT_EQ(Of(Row("Alpha")), Notices{"714 1"});
    }
    session = nullptr;
}
