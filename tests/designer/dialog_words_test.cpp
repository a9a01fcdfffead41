// The words that stand in dialog templates, and the numbers of their controls.
#include <gtest/gtest.h>

#include <map>

#include "tests/support/dialog_template.h"

namespace {

struct Word {
    const char *dialog;
    int control;
    const char *text; // its own, or of the label before it
};

const Word words[] = {
    {"NEWLABELPARAM", 785, "Enter &Text:"},
    {"CREATEDLGPARAM", 785, "Field Name"},
    {"CREATEDLGPARAM", 795, "Text"},
    {"CREATEDLGPARAM", 796, "Numeric"},
    {"CREATEDLGPARAM", 797, "Double"},
    {"CREATEDLGPARAM", 799, "Logical"},
    {"CREATEDLGPARAM", 798, "Date"},
    {"MODIFYDLGPARAM", 785, "User Prompt"},
    {"MODIFYDLGPARAM", 800, "Prompt Order:"},
    {"MODIFYDLGPARAM", 801, "Field Width:"},
    {"DLGINPUTPARAM", 837, "&Next Input"},
    {"DLGINPUTPARAM", 838, "&Prev Input"},
    {"JUMPPARAM", 895, "Position at Page Number"},
    {"PRINTPARAM", 896, "First Page"},
    {"PRINTPARAM", 897, "Last Page"},
    {"SECSORTPARAM", 787, "&Sort Fields"},
    {"SECBREAKPARAM", 787, "&Data Fields"},
    {"SECBREAKPARAM", 802, "&Calc Fields"},
    {"EDITSECPARAM", 803, "Advance Page Before Printing the Section"},
    {"EDITSECPARAM", 804, "Advance Page After Printing the Section"},
    {"EDITSECPARAM", 805, "Compress Space Before the First Item"},
    {"EDITSECPARAM", 806, "Compress Space After the Last Item"},
    {"EDITSECPARAM", 809, "Reprint Titles on Every Page"},
    {"EDITSECPARAM", 904, "Reset Page Number on Section Break"},
    {"EDITSECPARAM", 808, "Number of Records Across the Page: "},
    {"POSPARAM", 845, "Left"},
    {"POSPARAM", 847, "Center"},
    {"POSPARAM", 846, "Right"},
    {"POSPARAM", 848, "Top"},
    {"POSPARAM", 850, "Center"},
    {"POSPARAM", 849, "Bottom"},
    {"OUTLINEPARAM", 856, "Left"},
    {"OUTLINEPARAM", 857, "Right"},
    {"OUTLINEPARAM", 858, "Top"},
    {"OUTLINEPARAM", 859, "Bottom"},
    {"OUTLINEPARAM", 862, "Solid"},
    {"OUTLINEPARAM", 863, "Dashes"},
    {"OUTLINEPARAM", 864, "Dots"},
    {"OUTLINEPARAM", 865, "Dash and Dots"},
    {"OUTLINEPARAM", 860, "Line Width(1/10 mm)"},
    {"OUTLINEPARAM", 861, "&Line Color"},
    {"LINEPARAM", 866, "Horizontal Line"},
    {"LINEPARAM", 867, "Vertical Line"},
    {"LINEPARAM", 868, "Diagonal Line"},
    {"LINEPARAM", 869, "Back Diag Line"},
    {"LINEPARAM", 862, "Solid"},
    {"LINEPARAM", 863, "Dashes"},
    {"LINEPARAM", 864, "Dots"},
    {"LINEPARAM", 865, "Dash and Dots"},
    {"LINEPARAM", 860, "Line Width (1/10 mm)"},
    {"LINEPARAM", 861, "&Line Color"},
    {"BACKGROUNDPARAM", 875, "Paint Item Background"},
    {"BACKGROUNDPARAM", 883, "&Paint Brush Color"},
    {"BACKGROUNDPARAM", 876, "Solid Brush"},
    {"BACKGROUNDPARAM", 881, "Horizontal Hatch Brush"},
    {"BACKGROUNDPARAM", 882, "Vertical Hatch Brush"},
    {"BACKGROUNDPARAM", 880, "Forward Diagonal Hatch Brush"},
    {"BACKGROUNDPARAM", 877, "Backward Diagonal Hatch Brush"},
    {"BACKGROUNDPARAM", 878, "Cross Hatch Brush"},
    {"BACKGROUNDPARAM", 879, "Diagonal Cross Hatch Brush"},
    {"GRIDPARAM", 902, "Snap to Grid"},
    {"GRIDPARAM", 903, "Grid Thickness"},
    {"EXPPARAM", 786, "&Expression:"},
    {"EXPPARAM", 790, "&Functions:"},
    {"EXPPARAM", 787, "&Data Field"},
    {"EXPPARAM", 789, "&System Field"},
    {"EXPPARAM", 788, "&User Field"},
    {"EXPPARAM", 504, "--"},
    {"EXPPARAM", 510, ">"},
    {"EXPPARAM", 514, "OR"},
    {"EXPPARAM", 520, "AVG"},
    {"EXPPARAM", 526, "ELSE"},
    {"EXPPARAMFIELD", 1069, "Descriptio&n:"},
    {"DATEFIELDPARAM", 793, "MMDDYY"},
    {"DATEFIELDPARAM", 794, "DDMMYY"},
    {"DATEFIELDPARAM", 830, "MMDDYYYY"},
    {"DATEFIELDPARAM", 831, "MMMDDYYYY"},
    {"DATEFIELDPARAM", 832, "Date Delimiter:"},
    {"LOGFIELDPARAM", 833, "Logical TRUE Indicator:"},
    {"LOGFIELDPARAM", 834, "Logical FALSE Indicator:"},
    {"NUMFIELDPARAM", 819, "Suppress Zero Values"},
    {"NUMFIELDPARAM", 820, "Pad with Zeroes"},
    {"NUMFIELDPARAM", 821, "Use Comma Format"},
    {"NUMFIELDPARAM", 810, "Number of Decimal Places:"},
    {"NUMFIELDPARAM", 814, "Currency Symbol:"},
    {"NUMFIELDPARAM", 815, "Negative Sign Prefix:"},
    {"NUMFIELDPARAM", 816, "Negative Sign Suffix:"},
    {"NUMFIELDPARAM", 817, "Positive Sign Prefix:"},
    {"NUMFIELDPARAM", 818, "Positive Sign Suffix:"},
    {"NUMFIELDPARAM", 822, "Summarization Type:"},
    {"NUMFIELDPARAM", 823, "Retain Value After Printing"},
    {"TEXTFIELDPARAM", 828, "Wrap Text"},
    {"TEXTFIELDPARAM", 829, "Word Wrap Text"},
    {"TEXTFIELDPARAM", 900, "Variable Number of Lines"},
    {"TEXTFIELDPARAM", 825, "Capitalize"},
    {"TEXTFIELDPARAM", 826, "Capitalize First Letter of Every Word"},
    {"TEXTFIELDPARAM", 827, "Print in Lower Case"},
    {"TEXTFIELDPARAM", 824, "Trim Extra Spaces"},
    {"REPPARAM", 785, "Report Name"},
    {"REPPARAM", 793, "MM/DD/YY"},
    {"REPPARAM", 794, "DD/MM/YY"},
    {"REPPARAM", 890, "Hide"},
    {"REPPARAM", 891, "Inches"},
    {"REPPARAM", 892, "Centimeters"},
    {"REPPARAM", 766, "Left:"},
    {"REPPARAM", 768, "Top:"},
    {"REPPARAM", 767, "Right:"},
    {"REPPARAM", 769, "Bottom:"},
    {"REPPARAM", 1065, "Ascending   (...,0,1,...,A,B,...,Z,...,a,b,...,z,...) "},
    {"REPPARAM", 1066, "Descending (...,z,...,b,a,...,Z,...,B,A,...,1,0,...)"},
    {"REPPARAM", 792, "Print Trial Records"},
    {"REPPARAM", 901, "Print Report Header Before Page Header"},
    {"LABPARAM", 766, "Left:"},
    {"LABPARAM", 768, "Top:"},
    {"LABPARAM", 1060, "Left Feed"},
    {"LABPARAM", 1061, "Center Feed"},
    {"LABPARAM", 1062, "Prompt before printing"},
    {"LABPARAM", 1063, "Display warnings"},
    {"PRINTERPARAM", 783, "&Setup..."},
    {"SUMMARYPARAM", 839, "Report Status:"},
    {"SUMMARYPARAM", 840, "Number of Records Printed:"},
    {"SUMMARYPARAM", 841, "Number of Pages Printed:"},
};

const std::map<std::string, std::string> titles{
    {"BACKGROUNDPARAM", "Edit Item Background"},
    {"CALCPARAM", "Select Calculation Field"},
    {"CREATEDLGPARAM", "Create User Field"},
    {"DATEFIELDPARAM", "Date Field Parameters"},
    {"DEVICEPARAM", "Output Device"},
    {"DLGINPUTPARAM", "User Field Prompt"},
    {"DLGPARAM", "Select User Field"},
    {"EDITSECPARAM", ""},
    {"EXPPARAM", "Field Expression"},
    {"EXPPARAMFIELD", "Field Expression"},
    {"FIELDNAMEPARAM", "Calculation Field Name"},
    {"FILEPRINTABORTPARAM", "Printing to File..."},
    {"FUCTPARAM", "Select Function"},
    {"GRIDPARAM", "Edit Grid Parameters"},
    {"JUMPPARAM", "Page Jump"},
    {"LABPARAM", "Label Parameters"},
    {"LINEPARAM", "Line Style and Color"},
    {"LOGFIELDPARAM", "Logical Field Parameters"},
    {"MODIFYDLGPARAM", ""},
    {"NEWLABELPARAM", "New Text Field"},
    {"NEWSECPARAM", "Select New Section"},
    {"NUMFIELDPARAM", "Numeric Field Parameter"},
    {"OPPARAM", "Operators"},
    {"OUTLINEPARAM", "Item Outline Style and Color"},
    {"POSPARAM", "Text Position within Item Outlines"},
    {"PRINTABORTPARAM", "Printing In Progress..."},
    {"PRINTERPARAM", "Printer Selection"},
    {"PRINTPARAM", "Print Selected Pages"},
    {"REPPARAM", "Report Parameters"},
    {"SCRPRINTABORTPARAM", "Printing In Progress..."},
    {"SECBREAKPARAM", "Break Field for Section: "},
    {"SECSORTPARAM", "Sort Field for Section: "},
    {"SUMMARYPARAM", "Report Summary"},
    {"SUMPARAM", "Summary"},
    {"SYSPARAM", "Select System Field"},
    {"TEXTFIELDPARAM", "Text Field Parameters"},
};

const std::map<std::string, std::vector<std::string>> group_boxes{
    {"CREATEDLGPARAM", {"Field Type"}},
    {"POSPARAM", {"Horizontal", "Vertical"}},
    {"BACKGROUNDPARAM", {"Paint Brush Type"}},
    {"DATEFIELDPARAM", {"Date Format"}},
    {"NUMFIELDPARAM", {"Footer Fields"}},
    {"TEXTFIELDPARAM", {"Wrap", "Capitalization"}},
    {"REPPARAM", {"Date Entry Format", "Ruler Selection", "Margins (inches)", "Data Sequence"}},
    {"LABPARAM",
     {"Default Date Format", "Ruler Selection", "Margin Adjustment (inches)",
      "Printer Sheet Feeding"}},
};

class DialogWords : public testing::Test {
protected:
    DialogWords() {
        for (DialogTemplate &dialog : AllDialogTemplates()) dialogs[dialog.name] = dialog;
    }

    // The text of a control, or of the label before it; "?" when there is no such control.
    std::string TextOf(const std::string &name, int id) {
        std::string label;
        for (const TemplateControl &control : dialogs[name].controls) {
            if (control.id == id) return control.text.empty() ? label : control.text;
            label = control.text;
        }
        return "?";
    }

    std::map<std::string, DialogTemplate> dialogs;
};

} // namespace

TEST_F(DialogWords, EachControlStandsUnderItsNumberWithItsWords) {
    for (const Word &word : words)
        EXPECT_EQ(TextOf(word.dialog, word.control), word.text) << word.dialog;
}

TEST_F(DialogWords, EachTemplateHasItsTitle) {
    for (const auto &[name, dialog] : dialogs) EXPECT_EQ(dialog.title, titles.at(name)) << name;
}

TEST_F(DialogWords, GroupBoxesBearTheirWords) {
    for (const auto &[name, dialog] : dialogs) {
        std::vector<std::string> boxes;
        for (const TemplateControl &control : dialog.controls)
            if (control.kind == GROUP_BOX) boxes.push_back(control.text);
        const auto told = group_boxes.find(name);
        EXPECT_EQ(boxes, told == group_boxes.end() ? std::vector<std::string>{} : told->second)
            << name;
    }
}

TEST_F(DialogWords, ListsAndInputsWithoutWordsStandUnderTheirNumbers) {
    for (const auto &[name, id] : {std::pair{"CALCPARAM", 784},
                                   {"NEWSECPARAM", 784},
                                   {"SYSPARAM", 784},
                                   {"DLGPARAM", 784},
                                   {"DEVICEPARAM", 784},
                                   {"SUMPARAM", 784},
                                   {"OPPARAM", 784},
                                   {"FUCTPARAM", 784},
                                   {"PRINTERPARAM", 782},
                                   {"FIELDNAMEPARAM", 785},
                                   {"SECSORTPARAM", 785},
                                   {"SECBREAKPARAM", 785},
                                   {"DLGINPUTPARAM", 835},
                                   {"DLGINPUTPARAM", 836}})
        EXPECT_NE(TextOf(name, id), "?") << name << ' ' << id;
}

TEST_F(DialogWords, TrialRecordsAreHidden) {
    for (const TemplateControl &control : dialogs["REPPARAM"].controls)
        EXPECT_EQ((control.style & WS_VISIBLE) == 0, control.id == 792) << control.text;
}
