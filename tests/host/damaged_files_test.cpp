// Damaged form files: never a crash, and an error that says what is wrong.
#include <gtest/gtest.h>

#include <random>

#include "host/base/failure.h"
#include "host/forms/form_check.h"
#include "host/forms/form_to_json.h"
#include "tests/support/form_files.h"
#include "tests/support/tess_program.h"

namespace {

std::string DamageIn(const TemporaryFolder &folder, const std::string &bytes) {
    const std::string path = folder.Path("damaged.fp");
    WriteWholeFile(path, bytes);
    try {
        JsonFromForm(path, ReadForm(path));
    } catch (const Failure &failure) {
        const std::string text = failure.what();
        EXPECT_EQ(text.find(path + ": "), 0u) << text;
        return text;
    }
    return "sound";
}

void Sprinkle(std::mt19937 *random, std::string *bytes) {
    for (int count = 1 + static_cast<int>((*random)() % 20); count > 0; --count)
        (*bytes)[(*random)() % bytes->size()] = static_cast<char>((*random)());
}

} // namespace

TEST(DamagedFiles, RowsThatPointNowhereAreNamed) {
    const TemporaryFolder folder;
    const auto told = [&](FullForm *form, const char *text) {
        const std::string damage = DamageIn(folder, form->Bytes());
        EXPECT_NE(damage.find(text), damage.npos) << damage;
    };
    const auto damaged = [&](auto change, const char *text) {
        FullForm form;
        change(&form);
        told(&form, text);
    };
    damaged([](FullForm *form) { form->items[SECTION_DETAIL_1][1].FieldIndex = 700; },
            "names field 700, which isn't there");
    damaged([](FullForm *form) { form->items[SECTION_DETAIL_1][1].FieldIndex = -1; },
            "names field -1");
    damaged([](FullForm *form) { form->items[SECTION_DETAIL_1][1].FontIndex = 30; },
            "names font 30");
    damaged([](FullForm *form) { form->items[SECTION_DETAIL_1][1].SectionIndex = 31; },
            "names section 31");
    damaged([](FullForm *form) { form->items[SECTION_DETAIL_1][1].SectionIndex = 12; },
            "in a section without a bar");
    damaged([](FullForm *form) { form->items[SECTION_DETAIL_1][1].ItemType = 5; },
            "has no known type");
    damaged([](FullForm *form) { form->breaks[0].SortField = 99; }, "names sort field 99");
    damaged([](FullForm *form) { form->breaks[0].BreakField = -5; }, "names break field -5");
    damaged([](FullForm *form) { form->breaks[0].SectionIndex = 20; }, "belongs to no sort header");
    damaged([](FullForm *form) { form->sections[3].InUse = 1; }, "Sort Header 2 has no bar");
    damaged([](FullForm *form) { form->fields[3].TableIndex = 6; }, "names system field 6");
    damaged([](FullForm *form) { form->Filter({400, CELL_END}); }, "the report filter names field");
    damaged([](FullForm *form) { form->Filter({999, CELL_END}); }, "the report filter names field");
    damaged(
        [](FullForm *form) {
            for (uint16_t &cell : form->users[0].UserTokens) cell = 503;
        },
        "its expression has no end");
}

TEST(DamagedFiles, EveryTruncatedFormIsRefused) {
    const TemporaryFolder folder;
    const std::string form = WithFontRow(FullForm().Bytes(), PictureRow());
    EXPECT_EQ(DamageIn(folder, form), "sound");
    for (size_t size = 0; size < form.size(); size += 97)
        EXPECT_NE(DamageIn(folder, form.substr(0, size)), "sound") << size;
    EXPECT_NE(DamageIn(folder, form.substr(0, form.size() - 1)), "sound");
}

TEST(DamagedFiles, RandomBytesInAFormAreSoundOrTold) {
    const TemporaryFolder folder;
    const std::string form = WithFontRow(FullForm().Bytes(), PictureRow());
    std::mt19937 random(4);
    for (int round = 0; round < 300; ++round) {
        std::string bytes = form;
        Sprinkle(&random, &bytes);
        EXPECT_FALSE(DamageIn(folder, bytes).empty()) << round;
    }
}

TEST_F(Tess, DamagedFormsEndWithZeroOrOneInEveryCommand) {
    const std::string sample = ReadWholeFile(Build("parks"));
    const std::string form = folder.Path("damaged.fp");
    std::mt19937 random(5);
    for (int round = 0; round < 6; ++round) {
        std::string bytes = sample;
        if (round % 2)
            bytes.resize(random() % bytes.size());
        else
            Sprinkle(&random, &bytes);
        WriteWholeFile(form, bytes);
        for (const std::string &command :
             {"info " + form, "form dump " + form + " " + folder.Path("d.json"),
              "run --form " + form + " --data " + Sample("parks.csv") + " --output " +
                  folder.Path("d.frc")}) {
            const Outcome outcome = Run(command);
            EXPECT_LE(outcome.code, 1u) << round << " " << command << "\n" << outcome.output;
            EXPECT_TRUE(outcome.code == 0 || Holds(outcome.output, "tess: ")) << outcome.output;
        }
    }
}

TEST_F(Tess, OldVersionsRun) {
    FormBuilder form;
    form.Section(SECTION_DETAIL_1, 100);
    form.Label(SECTION_DETAIL_1, 200, 10, 300, 40, "text");
    const std::string path = folder.Path("old.fp");
    WriteWholeFile(folder.Path("one.csv"), "A\n1\n");
    for (const int version : {0, 1, 2, 3, 4}) {
        std::string bytes = form.Bytes();
        if (version < 2)
            bytes = InOldVersion(bytes, version);
        else
            PutRecord(&bytes, offsetof(FormHeader, FormVersion), static_cast<int16_t>(version));
        WriteWholeFile(path, bytes);
        const Outcome outcome = Run("run --form " + path + " --data " + folder.Path("one.csv") +
                                    " --output " + folder.Path("old.frc"));
        EXPECT_EQ(outcome.code, 0u) << version << outcome.output;
        EXPECT_TRUE(Holds(outcome.output, "1 page, 1 record")) << outcome.output;
        const std::string told = "version " + std::to_string(version);
        EXPECT_TRUE(Holds(Run("info " + path).output, told)) << told;
    }
}
