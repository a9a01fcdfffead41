// PDFs of reports. What their pages show is tests/tools/pdf_text.sh's.
#include "tests/support/tess_program.h"

namespace {

class Pdf : public Tess {
protected:
    Pdf() : pdf(folder.Path("c.pdf")) {}

    void ExpectNothingBeside() { EXPECT_EQ(Files("*.part*"), 0); }

    std::string pdf;
};

// Without a folder for jobs, a printer is asked to write to a path.
class NoJobFolder {
public:
    NoJobFolder() {
        GetEnvironmentVariableA(NAME, folder_, sizeof folder_);
        SetEnvironmentVariableA(NAME, nullptr);
    }
    ~NoJobFolder() { SetEnvironmentVariableA(NAME, folder_); }
    NoJobFolder(const NoJobFolder &) = delete;
    NoJobFolder &operator=(const NoJobFolder &) = delete;

private:
    static constexpr const char *NAME = "TESSARINE_PRINT_DIR";
    char folder_[MAX_PATH] = "";
};

} // namespace

TEST_F(Pdf, EarlierFileIsReplacedByAWholeOne) {
    ASSERT_EQ(Report("countries").code, 0u);
    WriteWholeFile(pdf, "earlier");
    const Outcome outcome = Run("pdf " + folder.Path("countries.frc") + " " + pdf);
    EXPECT_EQ(outcome.code, 0u) << outcome.output;
    const std::string made = ReadWholeFile(pdf);
    EXPECT_EQ(made.substr(0, 5), "%PDF-");
    EXPECT_NE(made.find("%%EOF"), std::string::npos);
    ExpectNothingBeside();
}

TEST_F(Pdf, PrinterThatWritesSomethingElseToThePathIsTold) {
    ASSERT_EQ(Report("countries").code, 0u);
    WriteWholeFile(pdf, "earlier");
    const NoJobFolder none;
    const Outcome outcome = Run("pdf " + folder.Path("countries.frc") + " " + pdf);
    EXPECT_EQ(outcome.code, 1u);
    EXPECT_TRUE(Holds(outcome.output, "PDF: what the printer made is no PDF file; name another "
                                      "with --printer"))
        << outcome.output;
    EXPECT_EQ(ReadWholeFile(pdf), "earlier");
    ExpectNothingBeside();
}

TEST_F(Pdf, PathThatCannotBeWrittenIsToldBeforeAnythingIsPrinted) {
    ASSERT_EQ(Report("countries").code, 0u);
    const Outcome outcome =
        Run("pdf " + folder.Path("countries.frc") + " " + folder.Path("none") + "/c.pdf");
    EXPECT_EQ(outcome.code, 1u);
    EXPECT_TRUE(Holds(outcome.output, "can't be written")) << outcome.output;
    EXPECT_FALSE(Holds(outcome.output, "1 of 3 pages")) << outcome.output;
}
