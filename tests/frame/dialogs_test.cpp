#include "frame/dialogs.h"

#include <gtest/gtest.h>

#include "tests/support/message_boxes.h"

using namespace tessarine;

namespace {

constexpr int NUMBER = 100;

// A window with one input, which the number helpers read like a dialog's.
class NumberItem : public testing::Test {
protected:
    NumberItem()
        : dialog(CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                                 nullptr, nullptr, nullptr)),
          input(CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, dialog,
                                reinterpret_cast<HMENU>(NUMBER), nullptr, nullptr)) {
        ShowWindow(dialog, SW_SHOW);
    }
    ~NumberItem() override { DestroyWindow(dialog); }
    void Type(const char *text) { SetWindowTextA(input, text); }

    MessageBoxes boxes;
    HWND dialog;
    HWND input;
};

const BoxRecord out_of_range{"Value Out of Range", "Invalid Value, Please Re-enter", {IDOK}};

} // namespace

TEST_F(NumberItem, WholeNumberIsRead) {
    uint32_t value = 0;
    Type("42");
    EXPECT_EQ(ReadNumberItem(dialog, NUMBER, &value), 1);
    EXPECT_EQ(value, 42u);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(NumberItem, NegativeNumberIsRefused) {
    uint32_t value = 0;
    Type("-1");
    EXPECT_EQ(ReadNumberItem(dialog, NUMBER, &value), 0);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0], (BoxRecord{"", "Must Enter a Valid Number", {IDOK}}));
    EXPECT_EQ(GetFocus(), input);
}

TEST_F(NumberItem, RangeHoldsItsEnds) {
    for (const char kind : {'I', 'D'}) {
        Type("3");
        EXPECT_EQ(CheckRangeItem(dialog, kind, NUMBER, 3, 7), 1);
        Type("7");
        EXPECT_EQ(CheckRangeItem(dialog, kind, NUMBER, 3, 7), 1);
    }
    Type("6.999");
    EXPECT_EQ(CheckRangeItem(dialog, 'D', NUMBER, 3, 6.999), 1);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(NumberItem, ValueBeyondTheRangeIsRefusedAndGetsTheFocus) {
    Type("8");
    EXPECT_EQ(CheckRangeItem(dialog, 'I', NUMBER, 3, 7), 0);
    Type("2.5");
    EXPECT_EQ(CheckRangeItem(dialog, 'D', NUMBER, 3, 7), 0);
    ASSERT_EQ(boxes.Log().size(), 2u);
    EXPECT_EQ(boxes.Log()[0], out_of_range);
    EXPECT_EQ(boxes.Log()[1], out_of_range);
    EXPECT_EQ(GetFocus(), input);
}

TEST_F(NumberItem, WholeNumberThatCannotBeReadIsRefused) {
    Type("five");
    EXPECT_EQ(CheckRangeItem(dialog, 'I', NUMBER, 0, 7), 0);
    ASSERT_EQ(boxes.Log().size(), 1u);
    EXPECT_EQ(boxes.Log()[0], out_of_range);
}
