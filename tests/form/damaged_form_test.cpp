// Files whose bytes are not what a form holds: they are refused or read, and nothing else happens.
#include <cstring>
#include <functional>
#include <limits>
#include <random>

#include "frame/memory.h"
#include "tests/support/form_files.h"

using namespace tessarine;

namespace {

class DamagedForm : public FormFiles {
protected:
    DamagedForm() : bytes(form.Bytes()), blocks(bytes) {}

    // Changes one record and expects that the form is refused.
    template <typename Record>
    void ExpectRefused(const char *what, size_t place,
                       const std::function<void(Record &)> &damage) {
        SCOPED_TRACE(what);
        boxes.Clear();
        std::string damaged = bytes;
        auto record = RecordAt<Record>(damaged, place);
        damage(record);
        PutRecord(&damaged, place, record);
        EXPECT_EQ(ReadBytes(damaged), 33);
        ExpectBox("Not a valid form file", "Fatal Error");
    }
    void RefuseHeader(const char *what, const std::function<void(FormHeader &)> &damage) {
        ExpectRefused<FormHeader>(what, 0, damage);
    }
    size_t FirstItemOf(int type) const {
        size_t place = blocks.items;
        while (RecordAt<ItemRecord>(bytes, place).ItemType != type) place += sizeof(ItemRecord);
        return place;
    }
    void RefuseItem(const char *what, int type, const std::function<void(ItemRecord &)> &damage) {
        ExpectRefused<ItemRecord>(what, FirstItemOf(type), damage);
    }
    size_t FirstFieldOf(int kind) const {
        size_t place = blocks.fields;
        while (RecordAt<FieldRecord>(bytes, place).FieldKind != kind) place += sizeof(FieldRecord);
        return place;
    }
    void RefuseField(const char *what, int kind, const std::function<void(FieldRecord &)> &damage) {
        ExpectRefused<FieldRecord>(what, FirstFieldOf(kind), damage);
    }
    size_t SectionPlace(int section) const {
        return blocks.sections + static_cast<size_t>(section) * sizeof(SectionRecord);
    }

    FullForm form;
    std::string bytes;
    FormBlocks blocks;
};

template <typename Field> void Fill(Field &field) { std::memset(&field, 'x', sizeof field); }

void FillCells(Cell *cells) {
    for (int place = 0; place < MAX_CELLS; ++place) cells[place] = 1;
}

} // namespace

TEST_F(DamagedForm, UndamagedFormIsRead) { EXPECT_EQ(ReadBytes(bytes), READ_DONE); }

TEST_F(DamagedForm, HeaderWithUnendedTextsOrFilterIsRefused) {
    RefuseHeader("name", [](FormHeader &header) { Fill(header.ReportName); });
    RefuseHeader("tag", [](FormHeader &header) { Fill(header.CallerTag); });
    RefuseHeader("device", [](FormHeader &header) { Fill(header.PrinterDevice); });
    RefuseHeader("driver", [](FormHeader &header) { Fill(header.PrinterDriver); });
    RefuseHeader("port", [](FormHeader &header) { Fill(header.PrinterPort); });
    RefuseHeader("filter", [](FormHeader &header) { FillCells(header.ReportFilter); });
    RefuseHeader("absent field", [](FormHeader &header) { header.ReportFilter[0] = 499; });
    RefuseHeader("no operator", [](FormHeader &header) { header.ReportFilter[0] = 549; });
}

TEST_F(DamagedForm, MeasuresThatNoItemCouldHaveAreRefused) {
    for (const float inches : {1e30F, -1e30F, 132.0F, std::numeric_limits<float>::quiet_NaN()}) {
        RefuseHeader("left", [=](FormHeader &header) { header.LeftMargin = inches; });
        RefuseHeader("right", [=](FormHeader &header) { header.RightMargin = inches; });
        RefuseHeader("top", [=](FormHeader &header) { header.TopMargin = inches; });
        RefuseHeader("bottom", [=](FormHeader &header) { header.BottomMargin = inches; });
    }
}

TEST_F(DamagedForm, MeasuresOfALabelSheetCountOnALabelForm) {
    form.header.LabelGeometry.VerticalPitch = 1e30F;
    EXPECT_EQ(ReadBytes(form.Bytes()), READ_DONE);
    form.header.LabelType = 1;
    session->LabelMode = 1;
    EXPECT_EQ(ReadBytes(form.Bytes()), 33);
}

TEST_F(DamagedForm, ItemsThatNameAbsentRowsAreRefused) {
    for (const int type : {ITEM_GROUP, ITEM_LABEL, ITEM_FIELD, ITEM_BAR, ITEM_LINE})
        for (const int section : {-1, 31, 32767})
            RefuseItem("section", type, [=](ItemRecord &item) {
                item.SectionIndex = static_cast<int16_t>(section);
            });
    for (const int type : {ITEM_GROUP, ITEM_LABEL, ITEM_FIELD})
        for (const int font : {-1, 32, -32768})
            RefuseItem("font", type,
                       [=](ItemRecord &item) { item.FontIndex = static_cast<int16_t>(font); });
    const int count = static_cast<int>(form.fields.size());
    for (const int field : {-1, count, 32767})
        RefuseItem("field", ITEM_FIELD,
                   [=](ItemRecord &item) { item.FieldIndex = static_cast<int16_t>(field); });
    RefuseItem("text", ITEM_LABEL, [](ItemRecord &item) { Fill(item.LabelText); });
}

TEST_F(DamagedForm, FieldsWithUnendedTextsOrListsAreRefused) {
    RefuseField("name", FIELD_DATA, [](FieldRecord &field) { Fill(field.FieldName); });
    RefuseField("delimiter", FIELD_DATA, [](FieldRecord &field) { Fill(field.DateDelimiter); });
    RefuseField("thousands", FIELD_DATA, [](FieldRecord &field) { Fill(field.ThousandsChar); });
    RefuseField("decimal", FIELD_DATA, [](FieldRecord &field) { Fill(field.DecimalChar); });
    RefuseField("pad", FIELD_DATA, [](FieldRecord &field) { Fill(field.PadChar); });
    RefuseField("currency", FIELD_DATA, [](FieldRecord &field) { Fill(field.CurrencySymbol); });
    RefuseField("true", FIELD_DATA, [](FieldRecord &field) { Fill(field.TrueText); });
    RefuseField("false", FIELD_DATA, [](FieldRecord &field) { Fill(field.FalseText); });
    RefuseField("prefix", FIELD_DATA, [](FieldRecord &field) { Fill(field.NegativePrefix); });
    RefuseField("suffix", FIELD_DATA, [](FieldRecord &field) { Fill(field.NegativeSuffix); });
    RefuseField("plus", FIELD_DATA, [](FieldRecord &field) { Fill(field.PositivePrefix); });
    RefuseField("behind", FIELD_DATA, [](FieldRecord &field) { Fill(field.PositiveSuffix); });
    RefuseField("zero", FIELD_DATA, [](FieldRecord &field) { Fill(field.ZeroText); });
    RefuseField("caption", FIELD_DATA, [](FieldRecord &field) { Fill(field.Caption); });
    RefuseField("width", FIELD_DATA, [](FieldRecord &field) { field.FieldWidth = -1; });
    RefuseField("cells", FIELD_CALC, [](FieldRecord &field) { FillCells(field.FieldTokens); });
    RefuseField("cell", FIELD_CALC, [](FieldRecord &field) { field.FieldTokens[0] = 700; });
    RefuseField("user row", FIELD_USER, [](FieldRecord &field) { field.TableIndex = 12; });
    RefuseField("user row", FIELD_USER, [](FieldRecord &field) { field.TableIndex = -1; });
}

TEST_F(DamagedForm, FieldThatNothingNamesIsCheckedToo) {
    const auto row = static_cast<size_t>(form.Field(FIELD_DATA, "ALONE", TYPE_TEXT));
    bytes = form.Bytes();
    blocks = FormBlocks(bytes);
    ExpectRefused<FieldRecord>("name", blocks.fields + row * sizeof(FieldRecord),
                               [](FieldRecord &field) { Fill(field.FieldName); });
}

TEST_F(DamagedForm, FreeRowFullOfRubbishIsRefusedOnceSomethingNamesIt) {
    const auto gone = static_cast<uint16_t>(form.fields.size() - 2);
    ASSERT_EQ(+form.fields[gone].InUse, 0);
    RefuseHeader("filter", [=](FormHeader &header) { header.ReportFilter[0] = gone; });
    RefuseItem("item", ITEM_FIELD,
               [=](ItemRecord &item) { item.FieldIndex = static_cast<int16_t>(gone); });
}

TEST_F(DamagedForm, BreaksThatNameAbsentRowsAreRefused) {
    const auto refuse = [&](const char *what, int16_t BreakFieldRecord::*field, int value) {
        ExpectRefused<BreakFieldRecord>(what, blocks.breaks, [=](BreakFieldRecord &row) {
            row.*field = static_cast<int16_t>(value);
        });
    };
    for (const int row : {-1, 500, static_cast<int>(form.fields.size())}) {
        refuse("sort", &BreakFieldRecord::SortField, row);
        refuse("break", &BreakFieldRecord::BreakField, row);
    }
    for (const int section : {-1, 1, 11, 31})
        refuse("section", &BreakFieldRecord::SectionIndex, section);
}

TEST_F(DamagedForm, SectionsWithoutTheirBarAreRefused) {
    const auto refuse = [&](const char *what, const std::function<void(SectionRecord &)> &damage) {
        ExpectRefused<SectionRecord>(what, SectionPlace(SECTION_DETAIL_1), damage);
    };
    for (const int bar : {-1, 0, 1, 320, 32767})
        refuse("bar", [=](SectionRecord &row) { row.BarItem = static_cast<int16_t>(bar); });
    for (const int across : {0, -1})
        refuse("across", [=](SectionRecord &row) { row.Across = static_cast<int16_t>(across); });
    refuse("filter", [](SectionRecord &row) { FillCells(row.SectionFilter); });
}

TEST_F(DamagedForm, UserFieldsWithUnendedTextsOrListsAreRefused) {
    const auto refuse = [&](const char *what,
                            const std::function<void(UserFieldRecord &)> &damage) {
        ExpectRefused<UserFieldRecord>(what, blocks.users, damage);
    };
    refuse("name", [](UserFieldRecord &user) { Fill(user.UserName); });
    refuse("prompt", [](UserFieldRecord &user) { Fill(user.UserPrompt); });
    refuse("text", [](UserFieldRecord &user) { Fill(user.UserText); });
    refuse("width", [](UserFieldRecord &user) { user.UserWidth = -1; });
    refuse("cells", [](UserFieldRecord &user) { FillCells(user.UserTokens); });
    refuse("unused but named", [](UserFieldRecord &user) {
        user.InUse = 0;
        Fill(user.UserText);
    });
}

TEST_F(DamagedForm, RowsOutOfUseMayHoldAnything) {
    std::string other = bytes;
    other.replace(SectionPlace(SECTION_DETAIL_1 + 1) + 2, 200, std::string(200, '\xEE'));
    const size_t user = blocks.users + 5 * sizeof(UserFieldRecord);
    other.replace(user + 2, 400, std::string(400, '\xEE'));
    EXPECT_EQ(ReadBytes(other), READ_DONE) << boxes.LastText();
}

TEST_F(DamagedForm, RandomBytesBehindASignatureEndInAnOrderlyWay) {
    std::mt19937 random(1);
    const int before = LiveBlocks();
    for (int round = 0; round < 100; ++round) {
        std::string garbage(992 + random() % 40000, '\0');
        for (char &byte : garbage) byte = static_cast<char>(random());
        auto header = RecordAt<FormHeader>(garbage, 0);
        header.Signature = SIGNATURE_FORM;
        header.LabelType = 0;
        if (round % 2) header.ItemCount = static_cast<uint16_t>(random() % 8);
        if (round % 2) header.FieldCount = header.BreakCount = 0;
        PutRecord(&garbage, 0, header);
        const int outcome = ReadBytes(garbage);
        EXPECT_TRUE(outcome >= 33 && outcome <= 37) << outcome;
    }
    EXPECT_EQ(LiveBlocks(), before);
}

TEST_F(DamagedForm, FlippedBytesAreReadOrRefused) {
    std::mt19937 random(2);
    const std::string whole = WithFontRow(bytes, PictureRow());
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        boxes.Clear();
        std::string damaged = whole;
        for (unsigned flips = 1 + random() % 20; flips > 0; --flips)
            damaged[random() % damaged.size()] = static_cast<char>(random());
        const int outcome = ReadBytes(damaged);
        EXPECT_TRUE(outcome == READ_DONE || outcome == READ_REFUSED || outcome == 33 ||
                    (outcome >= 35 && outcome <= 37))
            << outcome;
        for (const std::string &text : boxes.Texts())
            EXPECT_NE(text, "Ran Out of Memory for Picture Bitmap");
    }
}
