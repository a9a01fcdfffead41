// A form laid out from nothing with mouse and keys, saved and run on the same table.
#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "host/data/json_source.h"
#include "host/design/columns.h"
#include "host/design/form_designer.h"
#include "tests/support/message_boxes.h"
#include "tests/support/tess_program.h"
#include "tests/support/window_driver.h"

namespace {

constexpr int TEXT_INPUT = 785;
constexpr int LIST = 784;
constexpr int COLUMNS = 211;

class DesignRoad : public Tess, public WindowDriver {
protected:
    HWND Window() const override { return designer ? designer->Window() : nullptr; }

    void Open(const std::string &name) {
        path = folder.Path(name);
        boxes.Answer(IDYES); // to make the form that isn't there
        designer = std::make_unique<FormDesigner>(path, FieldsOf(ReadTable(data)), false);
        Serve();
    }
    void Serve() {
        ServeMessages([this](MSG *message) { return designer->Translate(*message); });
    }
    FormDesk &Desk() const {
        return reinterpret_cast<SessionHead *>(GetSessionPointer(Window(), 0))->Desk;
    }
    void Type(int key) {
        Post(WM_KEYDOWN, static_cast<WPARAM>(key));
        Post(WM_KEYUP, static_cast<WPARAM>(key));
        Serve();
    }
    POINT Pixel(int x, int y) const {
        POINT place{x, y};
        const HDC device = GetDC(Window());
        LPtoDP(device, &place, 1);
        ReleaseDC(Window(), device);
        return place;
    }
    // Moves what waits for its place there, and puts it down. The pointer's jump to it is told by a
    // move of its own, which may come at any time that messages are served.
    void PutAt(int x, int y) {
        Move(Pixel(x, y));
        Click(Pixel(x, y));
        Serve();
    }
    const ItemRecord &Bar(int section) const {
        return Desk().Items[Desk().Sections[section].BarItem];
    }
    // In the middle of a band's height, and wholly on view.
    void PutInto(int section, int x) {
        Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 0));
        PutAt(x, Bar(section).y + Bar(section).height / 2 + 20);
    }
    void NewField(const std::string &column) {
        boxes.OnDialog("Data Field", [=](DialogDriver dialog) { Choose(dialog, column); });
        Type(VK_F2);
    }
    static void Choose(DialogDriver dialog, const std::string &column) {
        const std::vector<std::string> rows = dialog.Rows(COLUMNS);
        for (size_t row = 0; row < rows.size(); ++row)
            if (rows[row].rfind(column + "\t", 0) == 0)
                dialog.Select(COLUMNS, static_cast<int>(row));
        dialog.Press(IDOK);
    }
    void NewSection(const std::string &name) {
        boxes.OnDialog("Select New Section", [=](DialogDriver dialog) {
            const std::vector<std::string> rows = dialog.Rows(LIST);
            for (size_t row = 0; row < rows.size(); ++row)
                if (Holds(rows[row], name)) dialog.Select(LIST, static_cast<int>(row));
            dialog.Press(IDOK);
        });
        Type(VK_F6);
    }
    void NewLabel(const std::string &text) {
        boxes.AnswerDialog("New Text Field", TEXT_INPUT, text, IDOK);
        Type(VK_F9);
    }
    // Where the table's rows of each region end, and all in all.
    std::map<std::string, long> Sums() const {
        const CsvTable table = ReadTable(data);
        std::map<std::string, long> sums;
        for (const CsvRow &row : table.rows) {
            const long area = std::strtol(
                row.cells[static_cast<size_t>(table.Column("AREA"))].c_str(), nullptr, 10);
            sums[row.cells[static_cast<size_t>(table.Column("REGION"))]] += area;
            sums[""] += area;
        }
        return sums;
    }
    static std::string Grouped(long number) {
        std::string text = std::to_string(number);
        for (size_t place = text.size(); place > 3; place -= 3) text.insert(place - 3, ",");
        return text;
    }

    std::string data = Sample("countries.csv");
    std::string path;
    MessageBoxes boxes;
    std::unique_ptr<FormDesigner> designer;
};

} // namespace

TEST_F(DesignRoad, FormLaidOutFromNothingGivesTheReportWithItsTotals) {
    Open("road.fp");
    NewLabel("Countries by Region");
    PutAt(500, 200);
    NewField("COUNTRY");
    PutInto(SECTION_DETAIL_1, 300);
    NewField("AREA");
    PutInto(SECTION_DETAIL_1, 900);
    boxes.OnDialog("Field of Sort Level 1", [](DialogDriver dialog) { Choose(dialog, "REGION"); });
    NewSection("Sort Header 1");
    EXPECT_STREQ(Desk().Fields[Desk().Breaks[0].SortField].Caption, "REGION"); // on its bar
    NewSection("Sort Footer 1");
    NewField("AREA");
    PutInto(SECTION_SORT_FOOTER_1, 900);
    NewSection("Report Footer");
    NewField("AREA");
    PutInto(SECTION_REPORT_FOOTER, 900);
    Type(VK_F10);
    {
        const HeldKey control(VK_CONTROL);
        Type(VK_F10);
    }
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(boxes.Log().size(), 1U) << boxes.LastText(); // only the question for a new form

    const Outcome run = Run("run --form \"" + path + "\" --data \"" + data + "\" --output \"" +
                            folder.Path("road.frc") + "\"");
    ASSERT_EQ(run.code, 0U) << run.output;
    const Outcome pages = Run("pages \"" + folder.Path("road.frc") + "\" --text");
    EXPECT_TRUE(Holds(pages.output, "Countries by Region")) << pages.output.substr(0, 600);
    for (const auto &[region, sum] : Sums())
        EXPECT_TRUE(Holds(pages.output, Grouped(sum))) << region << " " << Grouped(sum);
}

TEST_F(DesignRoad, DoubleClickOnALabelLetsAPersonTypeAndEnterEndsIt) {
    Open("label.fp");
    NewLabel("Before");
    PutAt(500, 200);
    const int row = *Desk().SelectedItem;
    DoubleClick(Pixel(500, 200));
    Serve();
    ASSERT_TRUE(IsWindowVisible(Desk().EditWindow));
    EXPECT_EQ(GetFocus(), +Desk().EditWindow);
    EXPECT_EQ(WindowText(Desk().EditWindow), "Before");
    SetWindowTextA(Desk().EditWindow, "After");
    PostMessageA(Desk().EditWindow, WM_CHAR, VK_RETURN, 0);
    Serve();
    EXPECT_STREQ(Desk().Items[row].LabelText, "After");
    EXPECT_FALSE(IsWindowVisible(Desk().EditWindow));
    EXPECT_EQ(GetFocus(), Window());
}

TEST_F(DesignRoad, EscapeGivesUpWhatWasTypedIntoALabel) {
    Open("escape.fp");
    NewLabel("Before");
    PutAt(500, 200);
    Type(VK_RETURN);
    SetWindowTextA(Desk().EditWindow, "After");
    PostMessageA(Desk().EditWindow, WM_KEYDOWN, VK_ESCAPE, 0);
    Serve();
    EXPECT_STREQ(Desk().Items[*Desk().SelectedItem].LabelText, "Before");
    EXPECT_FALSE(IsWindowVisible(Desk().EditWindow));
}

TEST_F(DesignRoad, APressElsewhereTakesWhatWasTypedIntoItsOwnLabel) {
    Open("press.fp");
    NewLabel("One");
    PutAt(300, 200);
    NewLabel("Two");
    PutAt(900, 200);
    Click(Pixel(300, 200));
    Type(VK_RETURN);
    SetWindowTextA(Desk().EditWindow, "First");
    Click(Pixel(900, 200));
    Serve();
    std::vector<std::string> texts;
    for (int row = 0; row < *Desk().TotalItems; ++row)
        if (Desk().Items[row].ItemType == ITEM_LABEL) texts.push_back(Desk().Items[row].LabelText);
    EXPECT_EQ(texts, (std::vector<std::string>{"First", "Two"}));
}

TEST_F(DesignRoad, ExitAnsweredWithCancelKeepsTheForm) {
    Open("exit.fp");
    NewLabel("Kept");
    PutAt(500, 200);
    boxes.Answer(IDCANCEL);
    Command(626);
    Serve();
    ASSERT_NE(Window(), nullptr);
    EXPECT_TRUE(IsWindow(Window()));
    EXPECT_EQ(boxes.LastTitle(), "File Modified");
    EXPECT_NE(GetSessionPointer(Window(), 0), nullptr);
}

TEST_F(DesignRoad, TheWheelScrolls) {
    Open("wheel.fp");
    const POINT before = Pixel(100, 300);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
    Serve();
    EXPECT_LT(Pixel(100, 300).y, before.y);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA));
    Serve();
    EXPECT_EQ(Pixel(100, 300).y, before.y);
}

TEST_F(DesignRoad, TheTitleTellsOfChanges) {
    Open("title.fp");
    const std::string title = WindowText(Window());
    NewLabel("Changed");
    PutAt(500, 200);
    EXPECT_EQ(WindowText(Window()), title + " *");
    Type(VK_F10);
    EXPECT_FALSE(lstrcmpiA(WindowText(Window()).c_str(), title.c_str())); // in upper case by now
}
