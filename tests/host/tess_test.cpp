// The real command line, started as a program of its own.
#include <gtest/gtest.h>

#include "tests/support/metafile_records.h"
#include "tests/support/page_texts.h"
#include "tests/support/tess_program.h"

TEST_F(Tess, EverySampleFormIsTheSameAfterBuildDumpBuild) {
    for (const char *name : {"countries", "airports", "parks"}) {
        const std::string form = Build(name);
        const std::string dump = folder.Path("dump.json");
        const std::string again = folder.Path("again.fp");
        EXPECT_EQ(Run("form dump " + form + " " + dump).code, 0u);
        EXPECT_EQ(Run("form build " + dump + " " + again).code, 0u);
        EXPECT_TRUE(ReadWholeFile(form) == ReadWholeFile(again)) << name;
    }
}

TEST_F(Tess, EveryPageOfEverySampleIsASoundMetafile) {
    const struct {
        const char *name;
        const char *more;
        size_t pages;
    } samples[] = {{"countries", "", 3}, {"airports", "", 2}, {"parks", "--set MIN_ACRES=0", 2}};
    for (const auto &sample : samples) {
        const Outcome outcome = Report(sample.name, sample.more);
        ASSERT_EQ(outcome.code, 0u) << outcome.output;
        const std::vector<std::string> pages =
            PagesOf(ReadWholeFile(folder.Path(std::string(sample.name) + ".frc")));
        EXPECT_EQ(pages.size(), sample.pages) << sample.name;
        for (const std::string &page : pages) {
            bool sound = false;
            EXPECT_FALSE(TextsOf(page, &sound).empty());
            EXPECT_TRUE(sound) << sample.name;
        }
    }
}

TEST_F(Tess, RunShowsItsProgressAndItsEnd) {
    const Outcome outcome = Report("countries");
    EXPECT_TRUE(Holds(outcome.output, "85 of 85 records")) << outcome.output;
    EXPECT_TRUE(Holds(outcome.output, "countries.frc: 3 pages, 85 records")) << outcome.output;
}

TEST_F(Tess, SilentRunSaysNothing) { EXPECT_EQ(Report("countries", "--silent").output, ""); }

TEST_F(Tess, TotalsOfTheCountriesAreRight) {
    ASSERT_EQ(Report("countries").code, 0u);
    const Outcome text = Run("pages " + folder.Path("countries.frc") + " --text --pages 1");
    EXPECT_EQ(text.code, 0u);
    EXPECT_TRUE(Holds(text.output, "Eastern Africa"));
    EXPECT_TRUE(Holds(text.output, " 396,536")); // the region's eight countries
    EXPECT_TRUE(Holds(text.output, " 1,052,034"));
}

TEST_F(Tess, PagesBecomePicturesAndInfoTellsWhatAFileHolds) {
    ASSERT_EQ(Report("airports").code, 0u);
    const std::string report = folder.Path("airports.frc");
    EXPECT_EQ(Run("pages " + report + " --png " + folder.Path("png") + " --dpi 40 --pages 2").code,
              0u);
    const std::string picture = ReadWholeFile(folder.Path("png\\page-002.png"));
    EXPECT_EQ(picture.substr(1, 3), "PNG");
    EXPECT_TRUE(Holds(Run("info " + report).output, "pages:   2"));
    EXPECT_TRUE(Holds(Run("info " + folder.Path("airports.fp")).output, "labels, version 4"));
}

TEST_F(Tess, UserFieldsAreAnsweredAndUnknownOnesRefused) {
    EXPECT_TRUE(Holds(Report("parks", "--set MIN_ACRES=1000000").output, "4 records"));
    const Outcome unknown = Report("parks", "--set OTHER=1");
    EXPECT_EQ(unknown.code, 1u);
    EXPECT_TRUE(Holds(unknown.output, "has no user field OTHER")) << unknown.output;
    EXPECT_EQ(Report("parks", "--set nonsense").code, 2u);
}

TEST_F(Tess, BadTablesAreToldWithFileLineAndColumn) {
    const std::string form = Build("countries");
    const std::string data = folder.Path("bad.csv");
    const auto run = [&](const std::string &text) {
        WriteWholeFile(data, text);
        return Run("run --form " + form + " --data " + data + " --output " + folder.Path("x.frc"));
    };
    const std::string names = "COUNTRY,CONTINENT,REGION,CAPITAL,POPULATION,AREA,JOINED\n";
    Outcome outcome = run(names + "A,B,C,D,many,2,2000-01-01\n");
    EXPECT_EQ(outcome.code, 1u);
    EXPECT_TRUE(Holds(outcome.output, "bad.csv:2: column \"POPULATION\"")) << outcome.output;
    outcome = run(names + "A,B,C,D,1,2,2000-13-01\n");
    EXPECT_TRUE(Holds(outcome.output, "is no date")) << outcome.output;
    outcome = run("COUNTRY\nA\n");
    EXPECT_TRUE(Holds(outcome.output, "has no column")) << outcome.output;
    EXPECT_EQ(GetFileAttributesA(folder.Path("x.frc").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(Tess, FailedRunLeavesAnEarlierReportAsItWas) {
    ASSERT_EQ(Report("airports").code, 0u);
    const std::string report = folder.Path("airports.frc");
    const std::string before = ReadWholeFile(report);
    WriteWholeFile(folder.Path("bad.csv"), "CODE\nA\n");
    EXPECT_EQ(Run("run --form " + folder.Path("airports.fp") + " --data " + folder.Path("bad.csv") +
                  " --output " + report)
                  .code,
              1u);
    EXPECT_TRUE(ReadWholeFile(report) == before);
}

TEST_F(Tess, UnwritableOutputAndDamagedFormsAreTold) {
    const std::string form = Build("airports");
    const std::string run = "run --form " + form + " --data " + Sample("airports.csv");
    const Outcome outcome = Run(run + " --output C:\\no_such_folder\\x.frc");
    EXPECT_EQ(outcome.code, 1u);
    EXPECT_TRUE(Holds(outcome.output, "can't be written")) << outcome.output;
    WriteWholeFile(form, ReadWholeFile(form).substr(0, 3000));
    EXPECT_EQ(Run(run + " --output " + folder.Path("x.frc")).code, 1u);
}

TEST_F(Tess, WrongUsageIsTwo) {
    EXPECT_EQ(Run("").code, 2u);
    EXPECT_EQ(Run("run --form x").code, 2u);
    EXPECT_EQ(Run("--help").code, 0u);
}

TEST_F(Tess, MistakesInJsonAreToldWithPathAndLine) {
    const std::string json = folder.Path("f.json");
    const auto build = [&](const std::string &text) {
        WriteWholeFile(json, text);
        const Outcome outcome = Run("form build " + json + " " + folder.Path("f.fp"));
        EXPECT_EQ(outcome.code, 1u);
        return outcome.output;
    };
    EXPECT_TRUE(Holds(build("{\n \"form\": {},\n oops\n}"), "f.json:3: is no sound JSON"));
    EXPECT_TRUE(Holds(build("{\n \"form\": {},\n \"sections\": [\n  { \"section\": \"Middle\",\n"
                            "    \"height\": 5 } ]\n}"),
                      "f.json:4: /sections/0/section: \"Middle\" is no section"));
    EXPECT_TRUE(Holds(build("{ \"form\": { \"filter\": \"NOTHERE>1\" } }"),
                      "/form/filter: the form has no field NOTHERE"));
    EXPECT_TRUE(Holds(build("{}"), "\"form\" is missing"));
}
