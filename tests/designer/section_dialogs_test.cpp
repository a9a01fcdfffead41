#include "designer/dialogs/section_dialogs.h"

#include "tests/designer/dialog_session.h"

using namespace tessarine;

namespace {

constexpr int SECOND_HEADER = SECTION_SORT_HEADER_1 + 1;

Session *checking = nullptr;

// A host's routine that lets the row go that the dialog works on.
int32_t __stdcall CheckAndForget(HWND, FieldRecord *, int32_t, void *) {
    checking->dialog.DialogRow = 30000;
    return 1;
}

// A form sorted by two levels: the dialogs work on the second.
class SectionDialogs : public DialogSession {
protected:
    using Act = std::function<void(DialogDriver)>;

    void SetUp() override {
        FormBuilder form = TwoSections();
        for (const int header : {int{SECTION_SORT_HEADER_1}, SECOND_HEADER}) {
            form.Section(header, 100);
            const int sort = form.Field(FIELD_DATA, "SORT" + std::to_string(header), TYPE_TEXT);
            form.Break(sort, form.Field(FIELD_DATA, "BREAK" + std::to_string(header), TYPE_TEXT),
                       header);
        }
        for (const char *name : {"SORT2", "BREAK2", "SORT3", "BREAK3", "REGION"})
            known[name] = Named(name);
        ASSERT_EQ(StartOn(form), 0) << boxes.LastText();
        levels.clear();
    }

    static FieldRecord Named(const std::string &name) {
        FieldRecord field{};
        CopyText(name.c_str(), field.FieldName, sizeof field.FieldName);
        field.ValueType = TYPE_TEXT;
        field.FieldWidth = 9;
        return field;
    }
    FieldRecord &Field() { return session->form.Fields[session->dialog.DialogRow]; }
    FieldRecord &Edited() { return session->dialog.EditField; }

    int Sort(const Act &act) {
        session->dialog.DialogRow = session->form.Breaks[1].SortField;
        return Run("SecSortParam", SecSortParam, "Sort Field for Section:  Sort Header 2", act);
    }
    int Break(const Act &act) {
        session->dialog.DialogRow = session->form.Breaks[1].BreakField;
        Edited() = Field();
        return Run("SecBreakParam", SecBreakParam, "Break Field for Section:  Sort Header 2", act);
    }
    int Edit(int section, const Act &act) {
        session->dialog.DialogRow = section;
        return Run("EditSecParam", EditSecParam, session->form.SectionNames[section], act);
    }
    // The dialog stays open behind a box with this text and the focus on the name.
    void Refuses(DialogDriver dialog, const std::string &typed, const std::string &text) {
        boxes.Clear();
        SetFocus(dialog.Control(IDOK));
        dialog.SetText(TEXT_INPUT, typed);
        dialog.Send(IDOK);
        ASSERT_EQ(boxes.Log().size(), 1u);
        EXPECT_EQ(boxes.Log()[0], (BoxRecord{"", text, {IDOK}}));
        EXPECT_TRUE(IsWindowVisible(dialog));
        EXPECT_EQ(dialog.Focus(), TEXT_INPUT);
    }
};

} // namespace

TEST_F(SectionDialogs, SortFieldIsTypedInAnyCaseAndCheckedWithItsLevel) {
    EXPECT_EQ(Sort([](DialogDriver dialog) {
                  EXPECT_EQ(dialog.Text(TEXT_INPUT), "SORT3");
                  EXPECT_EQ(HelpNumberOf(dialog), 3011);
                  dialog.SetText(TEXT_INPUT, "region");
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_STREQ(Field().FieldName, "REGION");
    EXPECT_EQ(+Field().FieldWidth, 9);
    EXPECT_EQ(levels, std::vector{2});
    EXPECT_TRUE(Modified());
}

TEST_F(SectionDialogs, SortFieldIsPickedWithItsLevelAndShown) {
    picked = Named("REGION");
    EXPECT_EQ(Sort([this](DialogDriver dialog) {
                  dialog.Click(PICK_FIELD);
                  EXPECT_EQ(dialog.Text(TEXT_INPUT), "REGION");
                  EXPECT_STREQ(Edited().FieldName, "REGION");
                  EXPECT_STREQ(Field().FieldName, "SORT3");
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_STREQ(Field().FieldName, "REGION");
    EXPECT_EQ(levels, (std::vector{2, 2}));
}

TEST_F(SectionDialogs, UnknownSortFieldIsRefused) {
    EXPECT_EQ(Sort([this](DialogDriver dialog) {
                  Refuses(dialog, "nobody", "Invalid sort field.");
                  Refuses(dialog, "", "Invalid sort field.");
                  dialog.Press(IDCANCEL);
              }),
              0);
    EXPECT_STREQ(Field().FieldName, "SORT3");
    EXPECT_FALSE(Modified());
}

TEST_F(SectionDialogs, SortFieldNotPickedStays) {
    EXPECT_EQ(Sort([](DialogDriver dialog) {
                  dialog.Click(PICK_FIELD);
                  EXPECT_EQ(dialog.Text(TEXT_INPUT), "SORT3");
                  dialog.Press(IDCANCEL);
              }),
              0);
}

TEST_F(SectionDialogs, SortFieldIsReadTo99Characters) {
    known[std::string(99, 'X')] = Named(std::string(99, 'X'));
    EXPECT_EQ(Sort([](DialogDriver dialog) {
                  dialog.SetText(TEXT_INPUT, std::string(120, 'x'));
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_EQ(Field().FieldName, std::string(99, 'X'));
}

TEST_F(SectionDialogs, BreakFieldIsCheckedWithNoLevelAndStored) {
    picked = Named("REGION");
    EXPECT_EQ(Break([this](DialogDriver dialog) {
                  EXPECT_EQ(dialog.Text(TEXT_INPUT), "BREAK3");
                  EXPECT_EQ(HelpNumberOf(dialog), 3012);
                  dialog.Click(PICK_FIELD);
                  EXPECT_EQ(dialog.Text(TEXT_INPUT), "REGION");
                  dialog.Press(IDOK);
              }),
              1);
    EXPECT_STREQ(Field().FieldName, "REGION");
    EXPECT_EQ(levels, (std::vector{0, 0}));
    EXPECT_TRUE(Modified());
}

TEST_F(SectionDialogs, UnknownBreakFieldIsRefusedInItsOwnSpelling) {
    EXPECT_EQ(Break([this](DialogDriver dialog) {
                  Refuses(dialog, "nobody", "Invalid break rield.");
                  dialog.Press(IDCANCEL);
              }),
              0);
    EXPECT_STREQ(Field().FieldName, "BREAK3");
    EXPECT_STREQ(Edited().FieldName, "BREAK3");
    EXPECT_FALSE(Modified());
}

TEST_F(SectionDialogs, CalculationForABreakEmptiesTheName) {
    EXPECT_EQ(Break([](DialogDriver dialog) { dialog.Press(BREAK_ON_CALCULATION); }), 2);
    EXPECT_STREQ(Edited().FieldName, "");
    EXPECT_STREQ(Field().FieldName, "BREAK3");
    EXPECT_FALSE(Modified());
}

TEST_F(SectionDialogs, FieldDialogsOnARowThatSortsNothingEndAtOnce) {
    for (const int row : {-1, 0, 30000}) {
        session->dialog.DialogRow = row;
        EXPECT_EQ(RunDialog(session, "SecSortParam", SecSortParam, 0), 0);
        EXPECT_EQ(RunDialog(session, "SecBreakParam", SecBreakParam, 0), 0);
    }
}

TEST_F(SectionDialogs, RowThatTheHostTakesAwayWhileItChecksIsNotWritten) {
    checking = session;
    session->FormBlock.CheckFieldProc = CheckAndForget;
    const auto ok = [](DialogDriver dialog) { dialog.Press(IDOK); };
    EXPECT_EQ(Sort(ok), 0);
    EXPECT_EQ(Break(ok), 0);
    EXPECT_FALSE(Modified());
}

// ---- EditSecParam

TEST_F(SectionDialogs, EachFlagOfASectionHasItsBox) {
    const std::pair<int, int> flags[] = {{SECTION_PAGE_BEFORE, 1},  {SECTION_PAGE_AFTER, 2},
                                         {SECTION_TITLES_AGAIN, 4}, {SECTION_CLOSE_BEFORE, 8},
                                         {SECTION_CLOSE_AFTER, 16}, {SECTION_PAGE_FROM_ONE, 32}};
    SectionRecord &section = session->form.Sections[SECOND_HEADER];
    for (const auto &[control, flag] : flags) {
        section.SectionFlags = 0;
        EXPECT_EQ(Edit(SECOND_HEADER,
                       [box = control](DialogDriver dialog) {
                           EXPECT_FALSE(dialog.Checked(box));
                           dialog.Click(box);
                           dialog.Press(IDOK);
                       }),
                  1);
        EXPECT_EQ(+section.SectionFlags, flag);
        Edit(SECOND_HEADER, [box = control](DialogDriver dialog) {
            EXPECT_TRUE(dialog.Checked(box));
            dialog.Click(box);
            dialog.Press(IDOK);
        });
        EXPECT_EQ(+section.SectionFlags, 0);
    }
    EXPECT_TRUE(Modified());
}

TEST_F(SectionDialogs, ControlsOfOtherSectionsAreDisabled) {
    struct {
        int section;
        bool header;
        bool detail;
    } const cases[] = {{0, false, false},  {1, false, false}, {2, true, false},
                       {10, true, false},  {11, false, true}, {19, false, true},
                       {20, false, false}, {30, false, false}};
    for (const auto &row : cases)
        Edit(row.section, [&](DialogDriver dialog) {
            EXPECT_EQ(dialog.Enabled(SECTION_TITLES_AGAIN), row.header) << row.section;
            EXPECT_EQ(dialog.Enabled(SECTION_PAGE_FROM_ONE), row.header) << row.section;
            EXPECT_EQ(dialog.Enabled(SECTION_ACROSS), row.detail) << row.section;
            EXPECT_TRUE(dialog.Enabled(SECTION_PAGE_BEFORE)) << row.section;
            dialog.Press(IDCANCEL);
        });
}

TEST_F(SectionDialogs, NoRecordsAcrossADetailKeepTheDialogOpenWithoutAMessage) {
    session->form.Sections[SECTION_DETAIL_1].Across = 2;
    EXPECT_EQ(Edit(SECTION_DETAIL_1,
                   [](DialogDriver dialog) {
                       EXPECT_EQ(dialog.Text(SECTION_ACROSS), "2");
                       EXPECT_EQ(HelpNumberOf(dialog), 3013);
                       for (const char *across : {"0", "", "-3"}) {
                           SetFocus(dialog.Control(IDOK));
                           dialog.SetText(SECTION_ACROSS, across);
                           dialog.Click(SECTION_PAGE_BEFORE);
                           dialog.Send(IDOK);
                           EXPECT_TRUE(IsWindowVisible(dialog)) << across;
                           EXPECT_EQ(dialog.Focus(), SECTION_ACROSS) << across;
                       }
                       dialog.Press(IDCANCEL);
                   }),
              0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(+session->form.Sections[SECTION_DETAIL_1].Across, 2);
    EXPECT_FALSE(Modified());
}

TEST_F(SectionDialogs, RecordsAcrossAreStoredForADetailAlone) {
    const auto three = [](DialogDriver dialog) {
        dialog.SetText(SECTION_ACROSS, "3");
        dialog.Press(IDOK);
    };
    session->form.Sections[0].Across = 7;
    EXPECT_EQ(Edit(SECTION_DETAIL_1, three), 1);
    EXPECT_EQ(Edit(0, three), 1);
    EXPECT_EQ(+session->form.Sections[SECTION_DETAIL_1].Across, 3);
    EXPECT_EQ(+session->form.Sections[0].Across, 7);
}

TEST_F(SectionDialogs, SectionThatIsNoneEndsTheDialogAtOnce) {
    for (const int row : {-1, int{MAX_SECTIONS}}) {
        session->dialog.DialogRow = row;
        EXPECT_EQ(RunDialog(session, "EditSecParam", EditSecParam, 0), 0);
    }
}

// ---- by a host, which has no RunDialog

TEST_F(SectionDialogs, HostRunsADialogWithItsOwnPairOfParameters) {
    session->dialog.DialogRow = SECTION_DETAIL_1;
    boxes.AnswerDialog(session->form.SectionNames[SECTION_DETAIL_1], SECTION_ACROSS, "4", IDOK);
    struct {
        Session *session;
        LPARAM extra;
    } pair{session, 0};
    EXPECT_EQ(DialogBoxParamA(GetModuleHandleA(nullptr), "EditSecParam", Window(), EditSecParam,
                              reinterpret_cast<LPARAM>(&pair)),
              1);
    EXPECT_EQ(+session->form.Sections[SECTION_DETAIL_1].Across, 4);
}

TEST_F(SectionDialogs, HostThatNamesNoSessionGetsACancelledDialog) {
    struct {
        Session *session;
        LPARAM extra;
    } pair{nullptr, 0};
    EXPECT_EQ(DialogBoxParamA(GetModuleHandleA(nullptr), "EditSecParam", Window(), EditSecParam,
                              reinterpret_cast<LPARAM>(&pair)),
              0);
}
