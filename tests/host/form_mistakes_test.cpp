// Mistakes in the JSON of a form: each is told with file, line and path.
#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "host/forms/form_from_json.h"

namespace {

std::string MistakeIn(const std::string &json) {
    try {
        FormFromJson("f.json", json, "");
    } catch (const Failure &failure) {
        return failure.what();
    }
    return "no mistake";
}

// A mistake in a member of the header, on line 2.
std::string InHeader(const std::string &member) {
    return MistakeIn("{ \"form\": {\n" + member + " } }");
}

// A mistake in an item, on line 3.
std::string InItem(const std::string &members) {
    return MistakeIn("{ \"form\": {}, \"sections\": [\n{ \"section\": \"Page Header\", \"height\": "
                     "100, \"items\": [\n{ \"item\": \"label\", " +
                     members + " } ] } ] }");
}

struct Mistake {
    const char *member;
    const char *text;
};

} // namespace

TEST(FormMistakes, UnknownMembersAreToldWithTheKnownOnes) {
    EXPECT_EQ(MistakeIn("{ \"form\": {},\n\"filds\": [] }"),
              "f.json:2: /filds: \"filds\" is not known here; known are: breaks, fields, fonts, "
              "form, sections, user fields");
    const std::string margin = InHeader("\"left margn\": 1");
    EXPECT_EQ(margin.find("f.json:2: /form/left margn: \"left margn\" is not known"), 0u) << margin;
    EXPECT_NE(margin.find("left margin"), margin.npos);
    const std::string item = InItem("\"txet\": \"x\"");
    EXPECT_EQ(item.find("f.json:3: /sections/0/items/0/txet: \"txet\""), 0u) << item;
    const std::string odd = InHeader("\"a/b~c\": 1");
    EXPECT_EQ(odd.find("f.json:2: /form/a~1b~0c: \"a/b~c\""), 0u) << odd;
}

TEST(FormMistakes, MembersOfAnotherKindOfItemAreUnknown) {
    const std::string text = InItem("\"field\": \"N\"");
    EXPECT_EQ(text.find("f.json:3: /sections/0/items/0/field: \"field\" is not known"), 0u) << text;
}

TEST(FormMistakes, MemberThatStandsTwiceIsTold) {
    EXPECT_EQ(InHeader("\"name\": \"A\", \"name\": \"B\""),
              "f.json: \"name\" stands twice in one object");
}

TEST(FormMistakes, WrongTypesNumbersAndTextsAreToldWithTheirPlace) {
    const std::string long_name(52, 'x');
    const std::string too_long = InHeader("\"name\": \"" + long_name + "\"");
    EXPECT_EQ(too_long, "f.json:2: /form/name: the text has 52 characters and only 51 fit");
    const Mistake mistakes[] = {
        {"\"name\": 5", "/form/name: a text in quotes"},
        {"\"left margin\": \"wide\"", "/form/left margin: a number"},
        {"\"left margin\": 1e39", "/form/left margin: the number is too large"},
        {"\"form flags\": 65536", "/form/form flags: a whole number from 0 to 65535"},
        {"\"run word\": -32769", "/form/run word: a whole number from -32768 to 32767"},
        {"\"form flags\": 1.5", "/form/form flags: a whole number"},
        {"\"label type\": 4294967296", "/form/label type: a whole number from 0 to 4294967295"},
        {"\"label type\": -1", "/form/label type: a whole number from 0 to 4294967295"},
        {"\"bar height\": \"nanin\"", "/form/bar height: \"nanin\" is no measure"},
        {"\"bar height\": \"140in\"", "/form/bar height: \"140in\" is no measure"},
        {"\"label\": []", "/form/label: an object in { }"},
        {"\"name\": \"\\u65e5\"", "/form/name: \"\xE6\x97\xA5\" holds a character that"},
        {"\"name\": \"a\\u0000b\"", "/form/name: the text holds a character of the number 0"},
    };
    for (const Mistake &row : mistakes) {
        const std::string text = InHeader(row.member);
        EXPECT_EQ(text.find(std::string("f.json:2: ") + row.text), 0u) << text;
    }
}

TEST(FormMistakes, ItemsAreChecked) {
    const Mistake mistakes[] = {
        {"\"color\": \"#12 -45\"", "color: \"#12 -45\" is no colour"},
        {"\"at\": [1]", "at: two measures"},
        {"\"at\": [40000, 1]", "at/0: a whole number from -32768 to 32767"},
        {"\"size\": 7", "size: a list in [ ]"},
        {"\"font\": 3", "font: "},
        {"\"font\": \"none\"", "font: no font of the form has the name \"none\""},
        {"\"flags\": [\"lft\"]", "flags/0: \"lft\" is none of \"background\", \"left\""},
    };
    for (const Mistake &row : mistakes) {
        const std::string text = InItem(row.member);
        EXPECT_EQ(text.find(std::string("f.json:3: /sections/0/items/0/") + row.text), 0u) << text;
    }
}

TEST(FormMistakes, TablesAreChecked) {
    const Mistake mistakes[] = {
        {"\"fonts\": [ { \"bold\": \"yes\" } ]", "/fonts/0/bold: true or false"},
        {"\"fonts\": [ { \"points\": 1e9 } ]", "/fonts/0/points: the place lies outside"},
        {"\"fonts\": [ { \"point height\": 1, \"point width\": 1, \"picture info\": \"0g\" } ]",
         "/fonts/0/picture info: pairs of hexadecimal digits"},
        {"\"fonts\": [ { \"point height\": 1, \"point width\": 1, \"picture\": \"none.bmp\" } ]",
         "/fonts/0/picture: none.bmp: can't be opened"},
        {"\"user fields\": [ { \"name\": \"A\", \"row\": 3 }, { \"name\": \"B\", \"row\": 3 } ]",
         "/user fields/1/row: two user fields stand in this row"},
        {"\"user fields\": [ { \"name\": \"A\", \"expression\": \"NONE\" } ]",
         "/user fields/0/expression: the form has no field NONE"},
        {"\"sections\": [ { \"section\": \"Page Header\", \"height\": 1, \"across\": 0 } ]",
         "/sections/0/across: at least 1"},
        {"\"sections\": [ { \"section\": \"Page Header\", \"height\": 32767 } ]",
         "/sections/0/height: the place lies outside"},
    };
    for (const Mistake &row : mistakes) {
        const std::string text = MistakeIn(std::string("{ \"form\": {},\n") + row.member + "}");
        EXPECT_EQ(text.find(std::string("f.json:2: ") + row.text), 0u) << text;
    }
}

TEST(FormMistakes, NumberThatIsNoNumberAnyMoreAndEndlessNestingAreRefused) {
    EXPECT_NE(InHeader("\"left margin\": 1e999").find("f.json: "), std::string::npos);
    EXPECT_EQ(
        MistakeIn("{ \"form\": " + std::string(100'000, '[') + std::string(100'000, ']') + "}"),
        "f.json: lists and objects stand too deep in one another");
}
