// The designer as a host has it: through the exports and the published form alone.
#include <gtest/gtest.h>

#include <cstring>

#include "commands.h"
#include "tessarine.h"
#include "tests/dll/form_changes.h"
#include "tests/support/form_builder.h"
#include "tests/support/host_window.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

namespace {

class HostDesigner : public testing::Test {
protected:
    void SetUp() override {
        data.EditAllowed = &edit_allowed;
        SetCRepData(&data);
        FormBuilder form_file;
        form_file.Section(SECTION_PAGE_HEADER, 400);
        form_file.Item(ITEM_GROUP, SECTION_PAGE_HEADER, 0, 0, 0, 0);
        form_file.Label(SECTION_PAGE_HEADER, 200, 50, 200, 50, "Alpha");
        form_file.Section(SECTION_DETAIL_1, 400);
        form_file.Write(path);
        std::strcpy(params.FormFile, path.c_str());
        params.WindowWidth = params.WindowHeight = 500;
        params.ShowMenu = 1;
        params.WindowStyle = WS_OVERLAPPEDWINDOW;
        params.ParentWindow = host.Get();
        ASSERT_EQ(form(&params), CODE_DONE) << boxes.LastText();
        session = GetSessionPointer(params.FormWindow, 0);
        head = reinterpret_cast<const SessionHead *>(session);
    }
    void TearDown() override {
        if (IsWindow(params.FormWindow)) {
            boxes.Answer(IDNO);
            SendMessageA(params.FormWindow, WM_CLOSE, 0, 0);
        }
        RemoveCRepData(&data);
    }

    uint32_t edit_allowed = 1;
    HostData data{};
    FormParams params{};
    HostWindow host;
    MessageBoxes boxes;
    TemporaryFolder folder;
    const std::string path = folder.Path("FORM.FP");
    Session *session = nullptr;
    const SessionHead *head = nullptr;
};

} // namespace

TEST_F(HostDesigner, OpensAndCloses) {
    EXPECT_EQ(params.DesignerOpen, 1U);
    EXPECT_EQ(params.DefaultFont, std::string("Arial"));
    EXPECT_EQ(*head->Desk.TotalItems, 4);
    EXPECT_TRUE(GetMenu(params.FormWindow));
    SendMessageA(params.FormWindow, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(params.FormWindow));
    EXPECT_EQ(head->Form.DesignerOpen, 0U); // its memory can still be looked at
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 1);
}

TEST_F(HostDesigner, HostInPlainCChangesTheFormThroughThePublishedTables) {
    const int row = change_label(session, "Alpha", "Omega");
    ASSERT_EQ(row, 2);
    EXPECT_EQ(head->Desk.Items[row].LabelText, std::string("Omega"));
    EXPECT_EQ(*head->Desk.SelectedItem, row);
    UpdateWindow(params.FormWindow);
    std::string file = path;
    file.resize(260);
    EXPECT_EQ(FrSave(session, file.data()), 1) << boxes.LastText();
    EXPECT_NE(ReadWholeFile(path).find("Omega"), std::string::npos);
    EXPECT_EQ(change_label(session, "Alpha", "Omega"), -1);
}

TEST_F(HostDesigner, WhatIsNotThereIsRefused) {
    const RECT place{0, 0, 10, 10};
    uint16_t cells[MAX_CELLS] = {CELL_END};
    const HDC screen = GetDC(nullptr);
    for (const int32_t section : {-1, 31, 4711}) {
        EXPECT_EQ(AddNewLabelItem(session, "text", section, 0, 0, 0), -1);
        EXPECT_EQ(AddNewLineItem(session, section, 1, &place, 1), -1);
        EXPECT_EQ(AddNewSection(session, 1, section, "NAME"), 0);
    }
    for (const int32_t font : {-1, 32}) EXPECT_EQ(AddNewLabelItem(session, "t", 0, 0, 0, font), -1);
    EXPECT_EQ(AddNewLabelItem(session, nullptr, 0, 0, 0, 0), -1);
    EXPECT_EQ(AddNewLineItem(session, 0, 1, nullptr, 1), -1);
    EXPECT_EQ(AddNewSection(session, 1, SECTION_SORT_HEADER_1, nullptr), 0);
    for (const int32_t row : {-1, 4, 321}) EXPECT_EQ(SelectItem(session, row), 0);
    EXPECT_EQ(FrDrawFocusRect(session, nullptr, &place), 0);
    EXPECT_EQ(FrDrawFocusRect(session, screen, nullptr), 0);
    EXPECT_EQ(FrEraseFocusRect(session, nullptr, &place), 0);
    EXPECT_EQ(FrEraseFocusRect(session, screen, nullptr), 0);
    EXPECT_EQ(UpdateLabelText(session, nullptr), 0);
    EXPECT_EQ(ModifyExp(session, nullptr, cells, nullptr, 0, nullptr), -1);
    EXPECT_EQ(ModifyExp(session, cells, nullptr, nullptr, 0, nullptr), -1);
    EXPECT_EQ(form(nullptr), CODE_FILE);
    EXPECT_EQ(*head->Desk.TotalItems, 4);
    EXPECT_TRUE(boxes.Log().empty());
    ReleaseDC(nullptr, screen);
}

TEST_F(HostDesigner, NewFormEndsThePlacementThatWaits) {
    SendMessageA(params.FormWindow, WM_COMMAND, COMMAND_NEW_LINE, 0);
    EXPECT_EQ(AddNewLabelItem(session, "text", SECTION_PAGE_HEADER, 300, 100, 0), -1);
    EXPECT_EQ(InitNewForm(session), 1);
    EXPECT_GE(AddNewLabelItem(session, "text", SECTION_PAGE_HEADER, 300, 100, 0), 0);
}

TEST_F(HostDesigner, SessionThatStartsOverAsksNothingAtItsEnd) {
    change_label(session, "Alpha", "Omega");
    EXPECT_EQ(host.Count(MESSAGE_MODIFIED), 1);
    EXPECT_EQ(InitVariables(session), 1);
    EXPECT_EQ(host.Count(MESSAGE_UNMODIFIED), 1);
    EXPECT_EQ(*head->Desk.TotalItems, 0);
    SendMessageA(params.FormWindow, WM_CLOSE, 0, 0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_EQ(host.Count(MESSAGE_SESSION_ENDED), 1);
}

TEST_F(HostDesigner, EndedSessionRefusesWork) {
    SendMessageA(params.FormWindow, WM_CLOSE, 0, 0);
    char text[20] = "text";
    uint16_t cells[MAX_CELLS] = {CELL_END};
    const RECT place{0, 0, 10, 10};
    for (Session *none : {session, static_cast<Session *>(nullptr)}) {
        EXPECT_EQ(AddNewLabelItem(none, "text", 0, 0, 0, 0), -1);
        EXPECT_EQ(AddNewLineItem(none, 0, 1, &place, 1), -1);
        EXPECT_EQ(AddNewSection(none, 1, SECTION_REPORT_HEADER, nullptr), 0);
        EXPECT_EQ(DeleteSection(none, 1), 0);
        EXPECT_EQ(EditSectionBreak(none), 0);
        EXPECT_EQ(SelectItem(none, 0), 0);
        EXPECT_EQ(SizeItem(none), 0);
        EXPECT_EQ(SizeSection(none), 0);
        EXPECT_EQ(UpdateLabelText(none, text), 0);
        EXPECT_EQ(ModifyExp(none, cells, cells, nullptr, 0, nullptr), -1);
    }
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(HostDesigner, ProceduresAreOrdinaryOnesForOtherWindows) {
    EXPECT_EQ(FrWndProc(host.Get(), WM_GETDLGCODE, 0, 0), 0);
    EXPECT_EQ(FrEditSubclass(host.Get(), WM_CHAR, VK_RETURN, 0), 0);
    EXPECT_EQ(SendMessageA(params.FormWindow, WM_GETDLGCODE, 0, 0), 135);
}
