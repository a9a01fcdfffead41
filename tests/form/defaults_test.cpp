#include "form/defaults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "frame/host_data.h"
#include "frame/memory.h"
#include "tests/support/test_session.h"

using namespace tessarine;

namespace {

class Defaults : public testing::Test {
protected:
    Defaults() { host_data = HostData{}; }
    ~Defaults() override { host_data = HostData{}; }
    BareSession session;
};

template <size_t Size> bool AllZero(const uint8_t (&bytes)[Size]) {
    return std::all_of(bytes, bytes + Size, [](uint8_t byte) { return byte == 0; });
}

} // namespace

TEST_F(Defaults, SessionStartsWithoutAFormFocusCommandOrLock) {
    FormState &form = session->form;
    form.TotalItems = form.FieldCount = form.BreakCount = form.FontCount = 3;
    session->form.SelectedItem = 3;
    InitVariables(session);
    EXPECT_EQ(form.TotalItems, 0);
    EXPECT_EQ(+form.FieldCount, 0);
    EXPECT_EQ(+form.BreakCount, 0);
    EXPECT_EQ(+form.FontCount, 0);
    EXPECT_EQ(session->form.SelectedItem, -1);
    EXPECT_EQ(form.FormLock, INVALID_HANDLE_VALUE);
    EXPECT_EQ(form.FontMarker, 190);
}

TEST_F(Defaults, StartingOverOnAnOpenFormReleasesItsLock) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("FORM.FP");
    WriteWholeFile(path, "form");
    session->form.FormLock = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                         FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(session->form.FormLock, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(DeleteFileA(path.c_str()));
    InitVariables(session);
    EXPECT_EQ(session->form.FormLock, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(DeleteFileA(path.c_str()));
}

TEST_F(Defaults, ColoursGridAndPageStartAsTheyShould) {
    EXPECT_EQ(session->palette.ForeColor, 0x000000u);
    EXPECT_EQ(session->palette.BackColor, 0xFFFFFFu);
    EXPECT_EQ(session->palette.GreyColor, 0x7F7F7Fu);
    EXPECT_EQ(session->palette.GroupColor, 0x0000FFu);
    EXPECT_EQ(session->palette.TealColor, 0x7F7F00u);
    EXPECT_EQ(session->printer.PaperWidth, 8.5F);
    EXPECT_EQ(session->printer.PaperHeight, 11.0F);
}

TEST_F(Defaults, HelpFileIsTheHostsOrTheLibrarysOwn) {
    EXPECT_STREQ(session->dialog.HelpFile, "REP.HLP>SECOND");
    host_data.HelpFileName = "HOST.HLP";
    InitVariables(session);
    EXPECT_STREQ(session->dialog.HelpFile, "HOST.HLP>SECOND");
}

TEST_F(Defaults, HelpFileNameOfAnyLengthFits) {
    const std::string name(3000, 'h');
    host_data.HelpFileName = name.c_str();
    InitVariables(session);
    EXPECT_EQ(session->dialog.HelpFile, name.substr(0, 259) + ">SECOND");
}

TEST_F(Defaults, SectionsStartOutOfUseAndOneAcross) {
    for (SectionRecord &section : session->form.Sections) std::memset(&section, 9, sizeof section);
    InitSections(session);
    for (const SectionRecord &section : session->form.Sections) {
        EXPECT_EQ(+section.InUse, 0);
        EXPECT_EQ(+section.SectionFlags, 0);
        EXPECT_EQ(+section.FirstItem, 0);
        EXPECT_EQ(+section.ItemTotal, 0);
        EXPECT_EQ(+section.Across, 1);
        EXPECT_EQ(+section.SectionFilter[0], CELL_END);
        EXPECT_EQ(+section.PrintNow, 1);
        EXPECT_TRUE(AllZero(section.Reserved220));
    }
}

TEST_F(Defaults, UserFieldsStartOutOfUse) {
    for (UserFieldRecord &user : session->form.UserFields) std::memset(&user, 9, sizeof user);
    InitVariables(session);
    for (const UserFieldRecord &user : session->form.UserFields) {
        EXPECT_EQ(+user.InUse, 0);
        EXPECT_TRUE(AllZero(user.Reserved434));
    }
}

TEST_F(Defaults, FillerIsAHundredTimesTheSameCharacter) {
    EXPECT_EQ(std::string(session->form.FillerText), std::string(100, '\xD7'));
}

TEST_F(Defaults, InitVariablesBuildsItsTablesOnceOnly) {
    const int blocks = LiveBlocks();
    InitVariables(session);
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(Defaults, NewItemIsAnEmptyLabel) {
    session->palette.ForeColor = 0x123456;
    session->palette.BackColor = 0x654321;
    const ItemRecord item = DefaultItem(session);
    EXPECT_EQ(+item.ItemType, 16);
    EXPECT_EQ(+item.ItemFlags, 68);
    EXPECT_EQ(+item.OutlineColor, 0x123456u);
    EXPECT_EQ(+item.LineColor, 0x123456u);
    EXPECT_EQ(+item.Background.Color, 0x654321u);
    ItemRecord rest = item;
    rest.ItemType = rest.ItemFlags = 0;
    rest.OutlineColor = rest.LineColor = rest.Background.Color = 0;
    const ItemRecord zero{};
    EXPECT_EQ(std::memcmp(&rest, &zero, sizeof rest), 0);
}

TEST_F(Defaults, NewFieldHasTheDefaultsOfEveryPart) {
    FieldRecord field;
    std::memset(&field, 0xEE, sizeof field);
    InitField(session, &field);
    EXPECT_EQ(+field.HostTable, -1);
    EXPECT_EQ(+field.HostField, -1);
    EXPECT_EQ(+field.ValueType, 3);
    EXPECT_EQ(+field.FieldWidth, 15);
    EXPECT_EQ(+field.Modifiable, 1);
    EXPECT_EQ(+field.InUse, 1);
    EXPECT_EQ(+field.TableIndex, -1);
    EXPECT_STREQ(field.DateDelimiter, "/");
    EXPECT_STREQ(field.ThousandsChar, ",");
    EXPECT_STREQ(field.DecimalChar, ".");
    EXPECT_STREQ(field.TrueText, "Y");
    EXPECT_STREQ(field.FalseText, "N");
    EXPECT_STREQ(field.NegativePrefix, "-");
    EXPECT_STREQ(field.ZeroText, "0");
    EXPECT_EQ(+field.FieldTokens[0], CELL_END);
    EXPECT_EQ(field.LineBreakChar[0], 13);
    for (const char *empty :
         {field.FieldName, field.PadChar, field.CurrencySymbol, field.NegativeSuffix,
          field.PositivePrefix, field.PositiveSuffix, field.Caption, field.PickerTag})
        EXPECT_STREQ(empty, "");
    for (const int zero : {int{field.FieldKind}, int{field.Decimals}, int{field.FieldFlags},
                           int{field.SummaryType}, int{field.DateFormat}, int{field.TimeForm},
                           int{field.SymbolKind}, int{field.SymbolWhen}, int{field.RefCount}})
        EXPECT_EQ(zero, 0);
    EXPECT_TRUE(field.TextValue == nullptr);
}

TEST_F(Defaults, TablesHaveTheirFixedCapacities) {
    EXPECT_GE(GlobalSize(session->form.ItemMemory), 164352u);
    EXPECT_GE(GlobalSize(session->form.FontMemory), 36480u);
    EXPECT_GE(GlobalSize(session->form.FieldMemory), 272043u);
    EXPECT_GE(GlobalSize(session->form.TempFieldMemory), 14661u);
}
