#include <gtest/gtest.h>

#include <algorithm>

#include "commands.h"
#include "frame/dialogs.h"
#include "run/prompts.h"
#include "tests/support/box_owners.h"
#include "tests/support/help_call.h"
#include "tests/support/host_window.h"
#include "tests/support/message_boxes.h"
#include "tests/support/page_texts.h"
#include "tests/support/report_run.h"
#include "tests/support/test_session.h"

namespace {

using Lines = std::vector<std::string>;

constexpr int PROMPT = PROMPT_TEXT;
constexpr int INPUT = PROMPT_INPUT;
constexpr int NEXT = PROMPT_NEXT;
constexpr int PREVIOUS = PROMPT_PREVIOUS;

struct Step {
    std::string answer; // typed unless it is "-"
    int button;
};

// Answers the prompts one after the other and keeps what each dialog showed.
struct Prompter {
    explicit Prompter(std::vector<Step> steps) : steps_(std::move(steps)) {
        boxes.OnDialog("User Field Prompt", [this](HWND dialog) { Answer(dialog); });
    }

    void Answer(DialogDriver dialog) {
        const auto text = [&](int control) { return dialog.Text(control); };
        shown.push_back(text(PROMPT) + "|" + text(INPUT) + "|" + text(PREVIOUS) + "|" + text(NEXT));
        const Step step = place_ < steps_.size() ? steps_[place_++] : Step{"-", PREVIOUS};
        if (step.answer != "-") dialog.SetText(INPUT, step.answer);
        dialog.Press(step.button);
    }

    MessageBoxes boxes;
    Lines shown;

private:
    std::vector<Step> steps_;
    size_t place_ = 0;
};

struct AskingForm : FormBuilder {
    AskingForm() {
        Section(SECTION_DETAIL_1, 50);
        Label(SECTION_DETAIL_1, 200, 0, 300, 50, "row");
    }
    // Adds a user field and shows it.
    void Ask(const std::string &name, int type, int order) {
        const int row = UserField(name, type, order);
        const int field = Field(FIELD_USER, "DLG->" + name, type, 20);
        fields[static_cast<size_t>(field)].TableIndex = static_cast<int16_t>(row);
        fields[static_cast<size_t>(field)].NegativePrefix[0] = 0;
        FieldItem(SECTION_DETAIL_1, 600 + 300 * row, 0, 300, 50, field);
    }
};

std::string ShownAnswer(int type, const std::string &answer) {
    AskingForm form;
    form.Ask("X", type, 0);
    Prompter prompter({{answer, NEXT}});
    ReportRun run(form);
    if (run.Run({{}})) return "(" + prompter.boxes.LastText() + ")";
    return PageWords(run.Report(), 0).back();
}

} // namespace

TEST(Prompts, FormWithoutUserFieldsAsksNothing) {
    Prompter prompter({});
    ReportRun run{AskingForm{}};
    EXPECT_EQ(run.Run({{}}), 0);
    EXPECT_TRUE(prompter.shown.empty());
}

TEST(Prompts, OnlyFieldInRow0HasCancelAndOk) {
    AskingForm form;
    form.Ask("X", TYPE_TEXT, 0);
    Prompter prompter({{"abc", NEXT}});
    ReportRun run(form);
    EXPECT_EQ(run.Run({{}}), 0);
    EXPECT_EQ(prompter.shown, Lines{"X||Cancel|Ok"});
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"row", "abc"}));
}

TEST(Prompts, OnlyFieldInAnotherRowKeepsPrevAndCancelsAllTheSame) {
    AskingForm form;
    form.users[0].InUse = 1;
    form.users[0].PromptOrder = 12; // not asked
    form.Ask("X", TYPE_TEXT, 0);
    Prompter prompter({{"abc", PREVIOUS}});
    ReportRun run(form);
    EXPECT_EQ(run.Run({{}}), CODE_CANCELLED);
    EXPECT_EQ(prompter.shown, Lines{"X||&Prev Input|Ok"});
}

TEST(Prompts, CancelledPromptReleasesTheSessionAndItsFilesSilently) {
    AskingForm form;
    form.Ask("A", TYPE_TEXT, 0);
    form.Ask("B", TYPE_TEXT, 1);
    const int before = OpenSessions();
    for (const char device : {'F', 'S', 'P'}) {
        Prompter prompter({{"a", NEXT}, {"b", PREVIOUS}, {"-", PREVIOUS}});
        ReportRun run(form);
        run.params.Device = device;
        run.params.Silent = 0;
        run.params.WindowStyle = WS_OVERLAPPEDWINDOW;
        EXPECT_EQ(run.Start(), CODE_CANCELLED) << device;
        EXPECT_EQ(prompter.shown.size(), 3u);
        EXPECT_EQ(OpenSessions(), before) << device;
        EXPECT_EQ(GetFileAttributesA(run.params.OutputFile), INVALID_FILE_ATTRIBUTES) << device;
        EXPECT_TRUE(prompter.boxes.Log().empty()) << prompter.boxes.LastText();
    }
}

TEST(Prompts, ThreeFieldsNameTheirButtonsAndGoingBackKeepsWhatWasTyped) {
    AskingForm form;
    form.Ask("A", TYPE_TEXT, 0);
    form.Ask("B", TYPE_TEXT, 1);
    form.Ask("C", TYPE_TEXT, 2);
    Prompter prompter({{"a", NEXT}, {"half", PREVIOUS}, {"-", NEXT}, {"-", NEXT}, {"c", NEXT}});
    ReportRun run(form);
    EXPECT_EQ(run.Run({{}}), 0);
    EXPECT_EQ(prompter.shown, (Lines{"A||Cancel|&Next Input", "B||&Prev Input|&Next Input",
                                     "A|a|Cancel|&Next Input", "B|half|&Prev Input|&Next Input",
                                     "C||&Prev Input|Ok"}));
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"row", "a", "half", "c"}));
}

TEST(Prompts, Row0AskedSecondShowsCancelButGoesBack) {
    AskingForm form;
    form.Ask("LATER", TYPE_TEXT, 5);
    form.Ask("FIRST", TYPE_TEXT, 1);
    Prompter prompter({{"1", NEXT}, {"2", PREVIOUS}, {"1", NEXT}, {"2", NEXT}});
    ReportRun run(form);
    EXPECT_EQ(run.Run({{}}), 0);
    EXPECT_EQ(prompter.shown[1], "LATER||Cancel|Ok");
    EXPECT_EQ(prompter.shown[2], "FIRST|1|Cancel|&Next Input");
}

TEST(Prompts, DatesWantEightCharactersWithTheirQuotes) {
    EXPECT_EQ(ShownAnswer(TYPE_DATE, "1/1/97"), "01/01/97");
    EXPECT_EQ(ShownAnswer(TYPE_DATE, "\"12/31/97\""), "12/31/97");
    EXPECT_EQ(ShownAnswer(TYPE_DATE, "1/1/1"), "(Invalid Date Format/Value!)");
    EXPECT_EQ(ShownAnswer(TYPE_DATE, "13/1/1997"), "(Invalid Date Format/Value!)");
}

TEST(Prompts, LogicalAnswersAreFoundInsideTheWords) {
    for (const char *yes : {"yes", "TRUE", "1", " y ", "RUE", "S,T", ""})
        EXPECT_EQ(ShownAnswer(TYPE_LOGICAL, yes), "Y") << yes;
    for (const char *no : {"no", "FALSE", "0", "O"})
        EXPECT_EQ(ShownAnswer(TYPE_LOGICAL, no), "N") << no;
    EXPECT_EQ(ShownAnswer(TYPE_LOGICAL, "perhaps"), "(Valid entries: YES,NO,TRUE,FALSE,Y,N,1,0)");
}

TEST(Prompts, NumbersAreReadAsFarAsTheyGo) {
    EXPECT_EQ(ShownAnswer(TYPE_NUMERIC, "12abc"), "12");
    EXPECT_EQ(ShownAnswer(TYPE_NUMERIC, "abc"), "0");
    EXPECT_EQ(ShownAnswer(TYPE_TEXT, " as it is "), " as it is ");
}

TEST(Prompts, OnlyDecimalNumbersAreNumbers) {
    for (const char *text : {"nan", "inf", "-infinity", "0x1F", "", "."})
        EXPECT_EQ(ShownAnswer(TYPE_DOUBLE, text), ShownAnswer(TYPE_DOUBLE, "0")) << text;
    EXPECT_NE(ShownAnswer(TYPE_DOUBLE, " 7.5e1x"), ShownAnswer(TYPE_DOUBLE, "0"));
    EXPECT_EQ(ShownAnswer(TYPE_DOUBLE, " 7.5e1x"), ShownAnswer(TYPE_DOUBLE, "75"));
    EXPECT_EQ(ShownAnswer(TYPE_DOUBLE, "+.5"), ShownAnswer(TYPE_DOUBLE, "0.5"));
}

TEST(Prompts, AnswerHasAtMost49Characters) {
    AskingForm form;
    form.Ask("X", TYPE_TEXT, 0);
    Prompter prompter({{std::string(49, 'i') + "more", NEXT}});
    ReportRun run(form);
    ASSERT_EQ(run.Start(), 0);
    EXPECT_EQ(std::string(run.Row("DLG->X")->TextValue), std::string(49, 'i'));
    run.Finish();
}

TEST(Prompts, RefusedAnswersAreToldInPlainBoxes) {
    AskingForm form;
    form.Ask("D", TYPE_DATE, 0);
    form.Ask("L", TYPE_LOGICAL, 1);
    Prompter prompter({{"1/1/1", NEXT}, {"1/2/97", NEXT}, {"maybe", NEXT}, {"no", NEXT}});
    ReportRun run(form);
    ASSERT_EQ(run.Run({{}}), 0);
    EXPECT_EQ(prompter.boxes.Log(),
              (std::vector<BoxRecord>{{"", "Invalid Date Format/Value!", {IDOK}},
                                      {"", "Valid entries: YES,NO,TRUE,FALSE,Y,N,1,0", {IDOK}}}));
    EXPECT_EQ(PageWords(run.Report(), 0), (Lines{"row", "01/02/97", "N"}));
}

TEST(Prompts, HostHearsOfTheChangeAndAtTheEndOfTheRunThatThereIsNone) {
    AskingForm form;
    form.Ask("X", TYPE_TEXT, 0);
    Prompter prompter({{"abc", NEXT}});
    const HostWindow host;
    ReportRun run(form);
    run.params.ParentWindow = host.Get();
    ASSERT_EQ(run.Start(), 0);
    EXPECT_EQ(host.Count(MESSAGE_MODIFIED), 1);
    EXPECT_EQ(host.Count(MESSAGE_UNMODIFIED), 0);
    run.Finish();
    EXPECT_EQ(host.Count(MESSAGE_UNMODIFIED), 1);
}

TEST(Prompts, EscapeCountsAsTheLowerButton) {
    AskingForm form;
    form.Ask("A", TYPE_TEXT, 0);
    form.Ask("B", TYPE_TEXT, 1);
    Prompter prompter({{"a", NEXT}, {"half", IDCANCEL}, {"-", IDCANCEL}});
    ReportRun run(form);
    EXPECT_EQ(run.Start(), CODE_CANCELLED);
    EXPECT_EQ(prompter.shown,
              (Lines{"A||Cancel|&Next Input", "B||&Prev Input|Ok", "A|a|Cancel|&Next Input"}));
}

TEST(Prompts, HelpIs3016AndTheDialogStays) {
    AskingForm form;
    form.Ask("X", TYPE_TEXT, 0);
    MessageBoxes boxes;
    const HelpCall help;
    bool open_behind = false;
    boxes.OnDialog("User Field Prompt", [&](DialogDriver dialog) {
        dialog.Send(DIALOG_HELP);
        open_behind = IsWindow(dialog);
        dialog.Press(PREVIOUS);
    });
    EXPECT_EQ(ReportRun(form).Start(), CODE_CANCELLED);
    EXPECT_TRUE(open_behind);
    EXPECT_EQ(help.calls, 1);
    EXPECT_EQ(help.command, 1u);
    EXPECT_EQ(help.number, 3016u);
}

TEST(Prompts, PromptShowsItsAmpersands) {
    AskingForm form;
    form.Ask("X", TYPE_TEXT, 0);
    MessageBoxes boxes;
    LONG style = 0;
    boxes.OnDialog("User Field Prompt", [&](DialogDriver dialog) {
        style = GetWindowLongA(dialog.Control(PROMPT), GWL_STYLE);
        dialog.Press(PREVIOUS);
    });
    EXPECT_EQ(ReportRun(form).Start(), CODE_CANCELLED);
    EXPECT_TRUE(style & SS_NOPREFIX);
}

// Its top is counted from the window's frame, but set from the client area.
TEST(Prompts, InputIsAsWideAsItsFieldAndStandsInTheMiddleWithTheFocus) {
    for (const int width : {3, 20, 500}) {
        AskingForm form;
        form.Ask("X", TYPE_TEXT, 0);
        form.users[0].UserWidth = static_cast<int16_t>(width);
        MessageBoxes boxes;
        RECT outer{};
        RECT place{};
        RECT drawn{0, 27, 0, 14}; // of the template: top and height
        POINT client{};
        bool has_focus = false;
        boxes.OnDialog("User Field Prompt", [&](DialogDriver dialog) {
            const HWND input = dialog.Control(PROMPT_INPUT);
            GetWindowRect(dialog, &outer);
            GetWindowRect(input, &place);
            MapDialogRect(dialog, &drawn);
            ClientToScreen(dialog, &client);
            has_focus = GetFocus() == input;
            dialog.Press(PREVIOUS);
        });
        EXPECT_EQ(ReportRun(form).Start(), CODE_CANCELLED);
        const int inner = outer.right - outer.left - 2 * GetSystemMetrics(7);
        const int wanted = std::min<int>((width + 1) * LOWORD(GetDialogBaseUnits()), inner);
        EXPECT_EQ(place.right - place.left, wanted) << width;
        EXPECT_EQ(place.left - client.x, (inner - wanted) / 2) << width;
        EXPECT_EQ(place.bottom - place.top, drawn.bottom) << width;
        const int top = client.y + drawn.top - outer.top - GetSystemMetrics(8);
        EXPECT_EQ(place.top - client.y, top) << width;
        EXPECT_TRUE(has_focus) << width;
    }
}

TEST(Prompts, RefusalsBelongToTheRunsWindow) {
    AskingForm form;
    form.Ask("D", TYPE_DATE, 0);
    form.Ask("L", TYPE_LOGICAL, 1);
    Prompter prompter({{"1/1/1", NEXT}, {"1/2/97", NEXT}, {"maybe", NEXT}, {"no", NEXT}});
    const HostWindow host;
    ReportRun run(form);
    run.params.ParentWindow = host.Get();
    const BoxOwners owners;
    ASSERT_EQ(run.Run({{}}), 0);
    EXPECT_EQ(owners.Noted(), std::vector<HWND>(2, host.Get()));
}

TEST(Prompts, PromptOnNoRowEndsAtOnce) {
    BareSession session;
    MessageBoxes boxes;
    boxes.OnDialog("User Field Prompt", [](DialogDriver dialog) {
        ADD_FAILURE() << "the dialog opened";
        dialog.Press(IDCANCEL);
    });
    for (const int row : {-1, int{MAX_USER_FIELDS}}) {
        session->dialog.DialogRow = row;
        EXPECT_EQ(tessarine::RunDialog(session, "DlgInputParam", tessarine::DlgInputParam, 0), 0);
    }
}
