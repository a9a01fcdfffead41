// Field items: their text, its place, and the values that it shortens.
#include <cstring>

#include "paint/text_measure.h"
#include "run/record_driver.h"
#include "tests/support/composition.h"

namespace {

using Lines = std::vector<std::string>;

// Items of 400 by 100 at 10, 20: at 60, 120 on the page.
class FieldItems : public Composition {
protected:
    FieldItems() { Section(SECTION_DETAIL_1, 300); }

    ItemRecord &Shown(int field, int flags = FLAG_LEFT | FLAG_TOP) {
        ItemRecord &item = FieldItem(10, 20, 400, 100, field);
        item.ItemFlags = static_cast<uint16_t>(flags);
        return item;
    }
    Lines Texts() { return LinesWith(DrawingOfLast(), {"text"}); }
    std::string Text() { // the only text, without place and clipping
        const Lines lines = Texts();
        if (lines.size() != 1) return "(" + std::to_string(lines.size()) + " texts)";
        const size_t start = lines[0].find(' ', 5) + 1;
        return lines[0].substr(start, lines[0].find(" clip") - start);
    }
    // The size that the printer's context gives a text in the font of a row.
    SIZE SizeOf(const std::string &text, int font = 0) {
        const HDC device = session->printer.InfoDevice;
        const HFONT made = session->form.Fonts[font].Font;
        SelectObject(device, made ? made : GetStockObject(SYSTEM_FONT));
        SIZE size{};
        GetTextExtentPoint32A(device, text.c_str(), static_cast<int>(text.size()), &size);
        SelectObject(device, GetStockObject(SYSTEM_FONT));
        return size;
    }
    std::string Line(int x, int y, const std::string &text) {
        return "text " + std::to_string(x) + "," + std::to_string(y) + " " + text +
               " clip 60,120,460,220";
    }
    void MakeFont(int row, int height) {
        session->form.Fonts[row] = session->form.Fonts[0];
        session->form.Fonts[row].Font =
            CreateFontA(height, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Courier New");
    }
    int PercentField(int32_t value, int when) {
        const int row = NumberField(value);
        Field(row).SymbolKind = SYMBOL_PERCENT;
        Field(row).SymbolWhen = static_cast<uint16_t>(when);
        return row;
    }
};

struct PictureCall {
    HDC device;
    int32_t value;
    int32_t table;
    int32_t field;
    RECT place;
    int32_t session;
};

PictureCall picture_call;

int32_t __stdcall TakeCall(HDC device, int32_t value, int32_t table, int32_t field,
                           const int32_t *place, int32_t session) {
    picture_call = {device, value, table, field, {place[0], place[1], place[2], place[3]}, session};
    return 1;
}

} // namespace

TEST_F(FieldItems, TextPrintsItsValueWithTheDevicesOwnSpacing) {
    ItemRecord &item = Shown(TextField("value"));
    item.TextColor = 0x102030;
    EXPECT_EQ(LinesWith(DrawingOfLast(), {"color", "mode", "text"}),
              (Lines{"color 102030", "mode 1", Line(70, 120, "value")}));
    EXPECT_EQ(run.RowBottom, 220);
}

TEST_F(FieldItems, NumberPrintsAsItIsFormatted) {
    ItemRecord &item = Shown(NumberField(1234));
    EXPECT_EQ(Text(), "1234");
    EXPECT_STREQ(item.LabelText, "1234");
}

TEST_F(FieldItems, TextIsPlacedByThePrintersMeasure) {
    const int field = TextField("value");
    const SIZE size = SizeOf("value");
    ItemRecord &item = Shown(field);
    const struct {
        int flags;
        int x;
        int y;
    } rows[] = {
        {FLAG_LEFT | FLAG_TOP, 70, 120},
        {FLAG_RIGHT | FLAG_TOP, static_cast<int>(60 + 400 - size.cx - 10), 120},
        {FLAG_CENTER | FLAG_TOP, static_cast<int>(60 + (400 - size.cx) / 2), 120},
        {FLAG_LEFT | FLAG_MIDDLE, 70, static_cast<int>(120 + (100 - size.cy) / 2)},
        {FLAG_LEFT | FLAG_BOTTOM, 70, static_cast<int>(120 + 100 - size.cy)},
    };
    for (const auto &row : rows) {
        item.ItemFlags = static_cast<uint16_t>(row.flags);
        EXPECT_EQ(Texts(), (Lines{Line(row.x, row.y, "value")})) << row.flags;
    }
}

TEST_F(FieldItems, CentredTextWiderThanItsItemStartsAtTheInset) {
    const int field = NumberField(123456789);
    Shown(field, FLAG_CENTER | FLAG_TOP).width = 20;
    EXPECT_EQ(Texts(), (Lines{"text 70,120 123456789 clip 60,120,80,220"}));
}

TEST_F(FieldItems, EmptyTextDrawsNothingAndTakesItsRoom) {
    Shown(TextField(""));
    EXPECT_TRUE(Texts().empty());
    EXPECT_EQ(run.RowBottom, 220);
}

TEST_F(FieldItems, TextWithoutAValueDrawsNothing) {
    const int field = session.AddField(FIELD_CALC, "CALC->X", TYPE_NUMERIC);
    Field(field).ValueType = TYPE_TEXT;
    Shown(field);
    EXPECT_TRUE(Texts().empty());
}

TEST_F(FieldItems, LongValueOfNarrowCharactersPrintsWhole) {
    session->form.Fonts[0].CharWidth['i'] = 1;
    const std::string value(350, 'i');
    Shown(TextField(value));
    EXPECT_EQ(Text(), value);
}

TEST_F(FieldItems, NarrowItemShortensTheValueItselfForLaterItems) {
    const int field = TextField("abcdefghij");
    Shown(field).width = 70;
    EXPECT_EQ(Text(), "abcde");
    EXPECT_STREQ(Field(field).TextValue, "abcde");
    Shown(field).width = 400;
    EXPECT_EQ(Text(), "abcde");
    char next[] = "abcdefghij";
    run.InputTable[field].TextValue = next;
    tessarine::MoveRecord(session);
    run.InputTable[field].TextValue = nullptr;
    EXPECT_EQ(Text(), "abcdefghij"); // the next record has its whole value again
}

TEST_F(FieldItems, PictureIsLeftToTheHostAndMovesNothing) {
    const int field = session.AddField(FIELD_DATA, "PICTURE", TYPE_PICTURE);
    Field(field).LongValue = 77;
    Field(field).HostTable = 5;
    Field(field).HostField = 6;
    Shown(field).RunOffset = 3;
    EXPECT_TRUE(DrawingOfLast().empty());
    session->RunBlock.PictureProc = TakeCall;
    const HDC device = session->pages.PageRecorder;
    EXPECT_TRUE(DrawingOfLast().empty());
    EXPECT_EQ(picture_call.device, device);
    EXPECT_EQ(picture_call.value, 77);
    EXPECT_EQ(picture_call.table, 5);
    EXPECT_EQ(picture_call.field, 6);
    EXPECT_EQ(picture_call.place.left, 60);
    EXPECT_EQ(picture_call.place.top, 123);
    EXPECT_EQ(picture_call.place.right, 460);
    EXPECT_EQ(picture_call.place.bottom, 223);
    EXPECT_EQ(picture_call.session, session->SessionId);
    EXPECT_EQ(run.RowBottom, 100);
}

TEST_F(FieldItems, PrintersContextKeepsNoFontOfTheFormBehindASection) {
    MakeFont(1, 30);
    Shown(TextField("value")).FontIndex = 1;
    DrawingOfLast();
    tessarine::EndMeasuring(session->printer.InfoDevice);
    EXPECT_EQ(GetCurrentObject(session->printer.InfoDevice, OBJ_FONT), GetStockObject(SYSTEM_FONT));
}

// ---- percent signs ----

TEST_F(FieldItems, PercentSignFollowsANumberThatIsNotRightAligned) {
    Shown(PercentField(12, WHEN_ALWAYS));
    EXPECT_EQ(Text(), "12%");
    Shown(PercentField(12, 0));
    EXPECT_EQ(Text(), "12");
}

TEST_F(FieldItems, RightAlignedDigitsKeepTheirColumnWhetherThePercentSignShowsOrNot) {
    const int x = static_cast<int>(60 + 400 - SizeOf("12").cx - 10 - 12);
    Shown(PercentField(12, WHEN_ALWAYS), FLAG_RIGHT | FLAG_TOP);
    EXPECT_EQ(Texts(), (Lines{Line(x, 120, "12"), Line(438, 120, "%")}));
    Shown(PercentField(12, 0), FLAG_RIGHT | FLAG_TOP);
    EXPECT_EQ(Texts(), (Lines{Line(x, 120, "12")}));
}

TEST_F(FieldItems, PercentSignShowsOnTheFirstRowAlone) {
    Shown(PercentField(12, WHEN_FIRST_ON_PAGE), FLAG_RIGHT | FLAG_TOP);
    EXPECT_EQ(Texts().size(), 2U);
    run.FirstOnPage = 0;
    EXPECT_EQ(Texts().size(), 1U);
}

TEST_F(FieldItems, RightAlignedPercentSignShowsBesideAnEmptyText) {
    const int field = PercentField(0, WHEN_ALWAYS);
    Field(field).ZeroText[0] = 0;
    Shown(field, FLAG_RIGHT | FLAG_TOP);
    EXPECT_EQ(Texts(), (Lines{Line(438, 120, "%")}));
}

// ---- suffixes ----

TEST_F(FieldItems, DigitsOfPositiveAndNegativeValuesEndInOneColumn) {
    const int field = NumberField(12);
    std::strcpy(Field(field).NegativeSuffix, "CR");
    std::strcpy(Field(field).PositiveSuffix, "");
    Shown(field, FLAG_RIGHT | FLAG_TOP);
    const int positive = static_cast<int>(60 + 400 - (SizeOf("12").cx + 24) - 10);
    EXPECT_EQ(Texts(), (Lines{Line(positive, 120, "12")}));
    Field(field).LongValue = -12;
    const int negative = static_cast<int>(60 + 400 - SizeOf("12CR").cx - 10);
    EXPECT_EQ(Texts(), (Lines{Line(negative, 120, "12CR")}));
}

TEST_F(FieldItems, DoubleReservesASuffixByItsWholeNumberSide) {
    const int field = NumberField(0);
    Field(field).ValueType = TYPE_DOUBLE;
    Field(field).DoubleValue = -12.0;
    std::strcpy(Field(field).NegativeSuffix, "CR");
    Shown(field, FLAG_RIGHT | FLAG_TOP);
    const int counted_positive = static_cast<int>(60 + 400 - (SizeOf("12CR").cx + 24) - 10);
    EXPECT_EQ(Texts(), (Lines{Line(counted_positive, 120, "12CR")}));
}

// ---- filling ----

TEST_F(FieldItems, RoomIsFilledBetweenSymbolAndDigits) {
    const int field = NumberField(12);
    Field(field).ValueType = TYPE_DOUBLE;
    Field(field).DoubleValue = 12.5;
    Field(field).Decimals = 2;
    Field(field).SymbolKind = SYMBOL_CURRENCY;
    Field(field).SymbolWhen = WHEN_ALWAYS;
    std::strcpy(Field(field).CurrencySymbol, "$");
    std::strcpy(Field(field).PadChar, "*");
    Shown(field).width = 12 * 11 + 10; // room for 11 characters
    EXPECT_EQ(Text(), "$*****12.50");
    session->form.Items[1].width += 11;
    EXPECT_EQ(Text(), "$*****12.50");
}

TEST_F(FieldItems, RoomThatIsReservedIsNotFilled) {
    const int field = PercentField(12, WHEN_ALWAYS);
    std::strcpy(Field(field).PadChar, "*");
    std::strcpy(Field(field).NegativeSuffix, "CR");
    Shown(field, FLAG_RIGHT | FLAG_TOP).width = 12 * 11 + 10;
    const Lines lines = Texts();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_NE(lines[0].find(" ******12 "), std::string::npos) << lines[0];
}

TEST_F(FieldItems, FillingStartsAtAPointOrGroupCharacterToo) {
    const int field = NumberField(0);
    std::strcpy(Field(field).PadChar, "*");
    std::strcpy(Field(field).ZeroText, "-.-");
    Shown(field).width = 12 * 6 + 10;
    EXPECT_EQ(Text(), "-***.-");
    std::strcpy(Field(field).ThousandsChar, "'");
    std::strcpy(Field(field).ZeroText, "-'-");
    EXPECT_EQ(Text(), "-***'-");
}

TEST_F(FieldItems, TextWithoutRoomIsNotFilled) {
    const int field = NumberField(123456);
    std::strcpy(Field(field).PadChar, "*");
    Shown(field).width = 40;
    EXPECT_EQ(Text(), "123456");
}

TEST_F(FieldItems, FillingStopsAtTheLongestText) {
    const int field = NumberField(12);
    std::strcpy(Field(field).PadChar, "*");
    Shown(field).width = 32000;
    EXPECT_EQ(Text(), std::string(MAX_LABEL_TEXT - 2, '*') + "12");
}

TEST_F(FieldItems, PadCharacterWithoutWidthFillsNothing) {
    session->form.Fonts[0].CharWidth['*'] = 0;
    const int field = NumberField(12);
    std::strcpy(Field(field).PadChar, "*");
    Shown(field);
    EXPECT_EQ(Text(), "12");
}

TEST_F(FieldItems, OtherTypesAreNeitherFilledNorSigned) {
    const int field = NumberField(1);
    Field(field).ValueType = TYPE_LOGICAL;
    Field(field).SymbolKind = SYMBOL_PERCENT;
    Field(field).SymbolWhen = WHEN_ALWAYS;
    std::strcpy(Field(field).PadChar, "*");
    Shown(field);
    EXPECT_EQ(Text(), "Y");
}

// ---- barcodes ----

TEST_F(FieldItems, ZipCodePrintsAsBarcodeInTheItemsFont) {
    MakeFont(1, 60);
    const int field = TextField("12345", FIELD_POSTNET);
    Shown(field).FontIndex = 1;
    const Lines drawn = DrawingOfLast();
    EXPECT_EQ(LinesWith(drawn, {"text"}), (Lines{Line(70, 120, "!123455!")}));
    EXPECT_EQ(LinesWith(drawn, {"select font"}), (Lines{"select font 60 Courier New"}));
    EXPECT_STREQ(Field(field).TextValue, "12345");
}

TEST_F(FieldItems, NumberPrintsAsBarcodeWithoutItsPrefix) {
    const int field = NumberField(12345);
    Field(field).FieldFlags = FIELD_POSTNET;
    std::strcpy(Field(field).PositivePrefix, "  ");
    const ItemRecord &item = Shown(field);
    EXPECT_EQ(Text(), "!123455!");
    EXPECT_STREQ(item.LabelText, "  12345");
}

TEST_F(FieldItems, BarcodeIsMadeOfLessThan297Characters) {
    for (const size_t hyphens : {size_t{291}, size_t{292}}) {
        Shown(TextField("12345" + std::string(hyphens, '-'), FIELD_POSTNET)).width = 5000;
        EXPECT_EQ(Text().substr(0, 3), hyphens == 291 ? "!12" : "123");
    }
}

TEST_F(FieldItems, TextThatIsNoZipCodePrintsInTheFirstFontAndKeepsItsMeasure) {
    MakeFont(1, 60);
    session->form.Fonts[0].Font = CreateFontA(20, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Arial");
    for (const char *text : {"K1A 0B1", "123456"}) {
        Shown(TextField(text, FIELD_POSTNET), FLAG_RIGHT | FLAG_TOP).FontIndex = 1;
        const Lines drawn = DrawingOfLast();
        const int x = static_cast<int>(60 + 400 - SizeOf(text, 1).cx - 10);
        EXPECT_EQ(LinesWith(drawn, {"text"}), (Lines{Line(x, 120, text)}));
        EXPECT_EQ(LinesWith(drawn, {"select font"}), (Lines{"select font 20 Arial"}));
    }
}
