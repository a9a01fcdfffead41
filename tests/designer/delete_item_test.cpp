#include "designer/delete_item.h"

#include "form/field_table.h"
#include "frame/memory.h"
#include "tests/support/laid_out_form.h"
#include "tests/support/message_boxes.h"

using namespace tessarine;

namespace {

constexpr int PICTURE = 3;

struct Delete : LaidOutForm {
    Delete() {
        MakeForm();
        session->form.FontCount = PICTURE + 1;
        session->form.Fonts[PICTURE].InUse = 1;
        session->form.Fonts[PICTURE].IsPicture = 1;
    }

    void AddPicture(const std::string &name) {
        Add(name, ITEM_PICTURE, SECTION_PAGE_FOOTER, 500, 1000, 100, 100).FontIndex = PICTURE;
    }
    void DeleteOf(const std::string &name) {
        Select(name);
        DeleteItem(session);
        EXPECT_EQ(Row(name), -1);
        EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    }
    bool HasPicture() { return session->form.Fonts[PICTURE].InUse; }
};

} // namespace

TEST_F(Delete, LabelAndLineGo) {
    DeleteOf("a");
    EXPECT_EQ(session->form.FormModified, 1u);
    DeleteOf("c");
    EXPECT_EQ(Names(), "bar0 group b bar11 d bar30 e");
}

TEST_F(Delete, NothingSelectedNothingGoes) {
    session->form.SelectedItem = NOTHING_SELECTED;
    DeleteItem(session);
    EXPECT_EQ(session->form.TotalItems, 9);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST_F(Delete, FieldItemReleasesItsFieldAndWhatItsExpressionNames) {
    const int shared = session.AddField(FIELD_DATA, "AMOUNT", TYPE_DOUBLE);
    FieldRecord &operand = session->form.Fields[shared];
    operand.FieldFlags = FIELD_SHARED;
    operand.RefCount = 1;
    AddFieldItem("calc", SECTION_PAGE_FOOTER, 500, 1000, TYPE_DOUBLE, FIELD_CALC);
    const int field = Item("calc").FieldIndex;
    FormRows::Store({shared}, session->form.Fields[field].FieldTokens);
    DeleteOf("calc");
    EXPECT_EQ(+session->form.Fields[field].FieldKind, FIELD_FREE);
    EXPECT_EQ(+session->form.Fields[field].InUse, 0);
    EXPECT_EQ(+operand.FieldKind, FIELD_FREE);
}

TEST_F(Delete, PictureGoesWithItsLastItem) {
    AddPicture("p");
    AddPicture("q");
    DeleteOf("p");
    EXPECT_TRUE(HasPicture());
    DeleteOf("q");
    EXPECT_FALSE(HasPicture());
}

TEST_F(Delete, PictureStaysForOtherItemsOfItsRowThatAreNoPictures) {
    AddPicture("p");
    Item("a").FontIndex = PICTURE; // a font row to a label
    DeleteOf("p");
    EXPECT_FALSE(HasPicture());
}

TEST_F(Delete, FontStaysThatTookTheRowOfAPictureGivenUp) {
    AddPicture("p");
    session->form.Fonts[PICTURE].IsPicture = 0;
    Item("a").FontIndex = PICTURE;
    DeleteOf("p");
    EXPECT_EQ(+session->form.Fonts[PICTURE].InUse, 1u);
}

TEST_F(Delete, PictureStaysForACutCopyOfItsItem) {
    AddPicture("p");
    auto *copy = static_cast<ItemRecord *>(OurAlloc(sizeof(ItemRecord)));
    *copy = Item("p");
    DesignerOf(session).ClipItems[0] = copy;
    DesignerOf(session).ClipCount = 1;
    DeleteOf("p");
    EXPECT_TRUE(HasPicture());
    copy->FontIndex = PICTURE - 1; // the copy of another picture
    AddPicture("p");
    DeleteOf("p");
    EXPECT_FALSE(HasPicture());
    DesignerOf(session).ClipCount = 0;
    OurFree(copy);
}

TEST_F(Delete, GroupsMembersGoAndItsRectangleStays) {
    AddFieldItem("n", SECTION_PAGE_FOOTER, 300, 950, TYPE_NUMERIC);
    const int field = Item("n").FieldIndex;
    SelectGroup(350, 90, 100, 900); // b and n
    DeleteItem(session);
    EXPECT_EQ(Names(), "bar0 group a c bar11 d bar30 e");
    EXPECT_EQ(PlaceOf("group"), "350,90,100,900");
    EXPECT_EQ(+session->form.Fields[field].InUse, 0);
    EXPECT_EQ(session->form.SelectedItem, NOTHING_SELECTED);
    EXPECT_EQ(session->form.FormModified, 1u);
}

TEST_F(Delete, BarIsASectionsAffairAndAsksFirst) {
    MessageBoxes boxes;
    boxes.Answer(IDNO);
    Select("bar11");
    DeleteItem(session);
    EXPECT_NE(Row("d"), -1);
    EXPECT_EQ(session->form.FormModified, 0u);
    boxes.Answer(IDYES);
    Select("bar11");
    DeleteItem(session);
    EXPECT_EQ(Names(), "bar0 group a b c bar30 e");
    ASSERT_EQ(boxes.Log().size(), 2u);
    EXPECT_EQ(boxes.Log()[0].buttons, (std::vector<int>{IDYES, IDNO}));
}
