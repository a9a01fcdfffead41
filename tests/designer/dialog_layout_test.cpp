// How all dialogs are laid out, on the platform's grid of dialog units.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include "commands.h"
#include "tests/support/dialog_template.h"

namespace {

constexpr LONG MARGIN = 7;
constexpr LONG GAP = 4;
constexpr LONG BUTTON_HEIGHT = 14;

std::string Describe(const DialogTemplate &dialog, const TemplateControl &control) {
    return dialog.name + ": " + std::to_string(control.id) + " \"" + control.text + "\"";
}

bool IsStop(const TemplateControl &control) {
    return control.kind != STATIC && control.kind != GROUP_BOX;
}

bool Meet(const RECT &a, const RECT &b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool Holds(const RECT &outer, const RECT &inner) {
    return inner.left >= outer.left + MARGIN && inner.right <= outer.right - MARGIN &&
           inner.top >= outer.top + MARGIN && inner.bottom <= outer.bottom - GAP;
}

class DialogLayout : public testing::Test {
protected:
    template <typename Check> void Each(Check check) const {
        for (const DialogTemplate &dialog : dialogs)
            for (const TemplateControl &control : dialog.controls) check(dialog, control);
    }
    template <typename Check> void EachPair(Check check) const {
        for (const DialogTemplate &dialog : dialogs)
            for (size_t a = 0; a < dialog.controls.size(); ++a)
                for (size_t b = a + 1; b < dialog.controls.size(); ++b)
                    check(dialog, dialog.controls[a], dialog.controls[b]);
    }

    const std::vector<DialogTemplate> dialogs = AllDialogTemplates();
};

// The font of dialogs on a screen of this resolution, with the units that follow from it.
class DialogFont {
public:
    explicit DialogFont(const DialogTemplate &dialog, int dpi)
        : device_(CreateCompatibleDC(nullptr)),
          font_(CreateFontA(-MulDiv(dialog.points, dpi, 72), 0, 0, 0, FW_NORMAL, 0, 0, 0,
                            DEFAULT_CHARSET, 0, 0, 0, 0, dialog.face.c_str())) {
        SelectObject(device_, font_);
        TEXTMETRICA metrics{};
        GetTextMetricsA(device_, &metrics);
        height_ = metrics.tmHeight;
        const SIZE letters = Extent("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
        width_ = (letters.cx / 26 + 1) / 2;
    }
    DialogFont(const DialogFont &) = delete;
    DialogFont &operator=(const DialogFont &) = delete;
    ~DialogFont() {
        DeleteDC(device_);
        DeleteObject(font_);
    }

    SIZE Pixels(const RECT &place) const {
        return {MulDiv(place.right - place.left, width_, 4),
                MulDiv(place.bottom - place.top, height_, 8)};
    }
    SIZE Text(std::string text) const { // the marks of mnemonics don't show
        text.erase(std::remove(text.begin(), text.end(), '&'), text.end());
        return Extent(text);
    }
    int Height() const { return height_; }

private:
    SIZE Extent(const std::string &text) const {
        SIZE size{};
        GetTextExtentPoint32A(device_, text.c_str(), static_cast<int>(text.size()), &size);
        return size;
    }

    HDC device_;
    HFONT font_;
    int width_;
    int height_;
};

// What a control of this kind needs beside its text, in pixels at 96 dots an inch.
int RoomBesideText(ControlKind kind) {
    switch (kind) {
    case CHECK_BOX:
    case RADIO_BUTTON: return 18;
    case PUSH_BUTTON: return 8;
    case GROUP_BOX: return 18;
    default: return 0;
    }
}

} // namespace

TEST_F(DialogLayout, TemplatesAreThirtySix) {
    std::set<std::string> names;
    for (const DialogTemplate &dialog : dialogs) names.insert(dialog.name);
    const std::set<std::string> told{
        "BACKGROUNDPARAM", "CALCPARAM",          "CREATEDLGPARAM", "DATEFIELDPARAM",
        "DEVICEPARAM",     "DLGINPUTPARAM",      "DLGPARAM",       "EDITSECPARAM",
        "EXPPARAM",        "EXPPARAMFIELD",      "FIELDNAMEPARAM", "FILEPRINTABORTPARAM",
        "FUCTPARAM",       "GRIDPARAM",          "JUMPPARAM",      "LABPARAM",
        "LINEPARAM",       "LOGFIELDPARAM",      "MODIFYDLGPARAM", "NEWLABELPARAM",
        "NEWSECPARAM",     "NUMFIELDPARAM",      "OPPARAM",        "OUTLINEPARAM",
        "POSPARAM",        "PRINTABORTPARAM",    "PRINTERPARAM",   "PRINTPARAM",
        "REPPARAM",        "SCRPRINTABORTPARAM", "SECBREAKPARAM",  "SECSORTPARAM",
        "SUMMARYPARAM",    "SUMPARAM",           "SYSPARAM",       "TEXTFIELDPARAM"};
    EXPECT_EQ(told.size(), 36u);
    EXPECT_EQ(names, told);
}

TEST_F(DialogLayout, ControlsStandWithinTheMargins) {
    Each([](const DialogTemplate &dialog, const TemplateControl &control) {
        EXPECT_GE(control.place.left, MARGIN) << Describe(dialog, control);
        EXPECT_GE(control.place.top, MARGIN) << Describe(dialog, control);
        EXPECT_LE(control.place.right, dialog.size.cx - MARGIN) << Describe(dialog, control);
        EXPECT_LE(control.place.bottom, dialog.size.cy - MARGIN) << Describe(dialog, control);
    });
}

TEST_F(DialogLayout, ControlsReachTheMarginsOnAllSides) {
    for (const DialogTemplate &dialog : dialogs) {
        RECT all = dialog.controls.front().place;
        for (const TemplateControl &control : dialog.controls)
            UnionRect(&all, &all, &control.place);
        EXPECT_EQ(all.left, MARGIN) << dialog.name;
        EXPECT_EQ(all.top, MARGIN) << dialog.name;
        EXPECT_EQ(all.right, dialog.size.cx - MARGIN) << dialog.name;
        EXPECT_EQ(all.bottom, dialog.size.cy - MARGIN) << dialog.name;
    }
}

TEST_F(DialogLayout, ButtonsAndInputsHaveTheirHeightAndGaps) {
    Each([](const DialogTemplate &dialog, const TemplateControl &control) {
        const bool one_line = control.kind == EDIT && !(control.style & ES_MULTILINE);
        if (control.kind == PUSH_BUTTON || one_line) {
            EXPECT_EQ(control.place.bottom - control.place.top, BUTTON_HEIGHT)
                << Describe(dialog, control);
        }
        if (control.id == IDOK || control.id == IDCANCEL || control.id == DIALOG_HELP) {
            EXPECT_EQ(control.place.right - control.place.left, 50) << Describe(dialog, control);
        }
    });
    EachPair([](const DialogTemplate &dialog, const TemplateControl &a, const TemplateControl &b) {
        if (a.kind != PUSH_BUTTON || b.kind != PUSH_BUTTON) return;
        RECT around = a.place;
        InflateRect(&around, GAP, GAP);
        EXPECT_FALSE(Meet(around, b.place)) << Describe(dialog, a) << Describe(dialog, b);
    });
}

TEST_F(DialogLayout, NothingOverlapsAndGroupBoxesHoldWhatIsInThem) {
    EachPair([](const DialogTemplate &dialog, const TemplateControl &a, const TemplateControl &b) {
        if (!Meet(a.place, b.place)) return;
        const bool held = (a.kind == GROUP_BOX && Holds(a.place, b.place)) ||
                          (b.kind == GROUP_BOX && Holds(b.place, a.place));
        EXPECT_TRUE(held) << Describe(dialog, a) << ", " << Describe(dialog, b);
    });
}

TEST_F(DialogLayout, NoTextIsCutOffAt96OrAt120DotsAnInch) {
    for (const int dpi : {96, 120})
        for (const DialogTemplate &dialog : dialogs) {
            EXPECT_EQ(dialog.face, "MS Shell Dlg");
            EXPECT_EQ(dialog.points, 8);
            const DialogFont font(dialog, dpi);
            for (const TemplateControl &control : dialog.controls) {
                const SIZE room = font.Pixels(control.place);
                const int beside = MulDiv(RoomBesideText(control.kind), dpi, 96);
                EXPECT_LE(font.Text(control.text).cx + beside, room.cx)
                    << dpi << ' ' << Describe(dialog, control);
                EXPECT_LE(font.Height(), room.cy) << dpi << ' ' << Describe(dialog, control);
            }
        }
}

TEST_F(DialogLayout, MnemonicsDontClash) {
    for (const DialogTemplate &dialog : dialogs) {
        std::map<char, std::string> taken;
        for (const TemplateControl &control : dialog.controls) {
            const size_t mark = control.text.find('&');
            if (mark == std::string::npos || control.style & SS_NOPREFIX) continue;
            const char key = static_cast<char>(std::toupper(control.text[mark + 1]));
            EXPECT_EQ(taken.count(key), 0u) << Describe(dialog, control) << taken[key];
            taken[key] = control.text;
        }
    }
}

TEST_F(DialogLayout, TabGoesDownAndToTheRight) {
    for (const DialogTemplate &dialog : dialogs) {
        const TemplateControl *before = nullptr;
        for (const TemplateControl &control : dialog.controls) {
            if (!IsStop(control)) continue;
            EXPECT_TRUE(!before || control.place.top >= before->place.bottom ||
                        control.place.left >= before->place.right)
                << Describe(dialog, before ? *before : control) << " to "
                << Describe(dialog, control);
            before = &control;
        }
    }
}

TEST_F(DialogLayout, EachHasOneDefaultButton) {
    const std::map<std::string, int> others{{"DLGINPUTPARAM", PROMPT_NEXT},
                                            {"PRINTABORTPARAM", IDCANCEL},
                                            {"SCRPRINTABORTPARAM", IDCANCEL},
                                            {"FILEPRINTABORTPARAM", IDCANCEL}};
    for (const DialogTemplate &dialog : dialogs) {
        std::vector<int> defaults;
        for (const TemplateControl &control : dialog.controls)
            if (control.kind == PUSH_BUTTON && (control.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON)
                defaults.push_back(control.id);
        const auto other = others.find(dialog.name);
        EXPECT_EQ(defaults, std::vector{other == others.end() ? IDOK : other->second})
            << dialog.name;
    }
}

// The arrow keys move within the buttons of one choice, and Tab leaves it.
TEST_F(DialogLayout, RadioButtonsStandInGroupsOfTheirOwn) {
    for (const DialogTemplate &dialog : dialogs) {
        bool in_choice = false;
        for (const TemplateControl &control : dialog.controls) {
            const bool starts = control.style & WS_GROUP;
            if (control.kind == RADIO_BUTTON && !in_choice) {
                EXPECT_TRUE(starts) << Describe(dialog, control);
                EXPECT_TRUE(control.style & WS_TABSTOP) << Describe(dialog, control);
            }
            if (control.kind != RADIO_BUTTON && in_choice && IsStop(control)) {
                EXPECT_TRUE(starts) << Describe(dialog, control);
            }
            in_choice = control.kind == RADIO_BUTTON || (in_choice && !starts && !IsStop(control));
        }
    }
}

TEST_F(DialogLayout, EachOpensWithAllItsControls) {
    for (const DialogTemplate &dialog : dialogs) {
        const HWND window =
            CreateDialogParamA(GetModuleHandleA(nullptr), dialog.name.c_str(), nullptr, nullptr, 0);
        ASSERT_TRUE(window) << dialog.name;
        RECT client{};
        GetClientRect(window, &client);
        for (const TemplateControl &control : dialog.controls) {
            if (control.id == -1) continue;
            RECT place{};
            GetWindowRect(GetDlgItem(window, control.id), &place);
            MapWindowPoints(nullptr, window, reinterpret_cast<POINT *>(&place), 2);
            EXPECT_TRUE(place.left > 0 && place.top > 0 && place.right < client.right &&
                        place.bottom < client.bottom)
                << Describe(dialog, control);
        }
        DestroyWindow(window);
    }
}
