#include "device/printer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <vector>

#include "device/paper.h"
#include "frame/host_data.h"
#include "frame/memory.h"
#include "frame/session_table.h"
#include "tests/support/entry_code.h"
#include "tests/support/failing_call.h"
#include "tests/support/form_session.h"
#include "tests/support/report_run.h"

using namespace tessarine;

namespace {

struct OneLine : FormBuilder {
    OneLine() {
        const int name = Field(FIELD_DATA, "NAME", TYPE_TEXT);
        Section(SECTION_DETAIL_1, 50);
        FieldItem(SECTION_DETAIL_1, 200, 0, 500, 50, name);
    }
};

BoxRecord Fatal(const std::string &text) { return {"Fatal Error", text, {IDOK}}; }

// What GetProfileStringA answers while one stands.
class Profile {
public:
    explicit Profile(const char *list) {
        answer_ = list;
        real_ = ReplaceImport("GetProfileStringA", reinterpret_cast<void *>(Answer));
    }
    ~Profile() { ReplaceImport("GetProfileStringA", real_); }
    Profile(const Profile &) = delete;
    Profile &operator=(const Profile &) = delete;

private:
    static DWORD WINAPI Answer(LPCSTR, LPCSTR, LPCSTR, LPSTR out, DWORD size) {
        std::strncpy(out, answer_, size - 1);
        out[size - 1] = 0;
        return static_cast<DWORD>(std::strlen(out));
    }
    static inline const char *answer_;
    void *real_;
};

class Printer : public FormSession {
protected:
    BoxRecord Last() const { return boxes.Log().empty() ? BoxRecord{} : boxes.Log().back(); }
    OneLine form;
};

struct Names {
    char device[60];
    char driver[60];
    char port[60];
};

Names DefaultPrinter(const char *list) {
    BareSession session;
    const Profile profile(list);
    Names names{};
    GetDefaultPrinter(session, names.device, names.driver, names.port);
    return names;
}

} // namespace

// ---- the profile -------------------------------------------------------------------------------

TEST(PrinterProfile, ListIsSplitAtCommasAndBlanksBehindThem) {
    BareSession session;
    const Profile profile("Laser Writer,  winspool,   LPT1:,more, and more");
    char first[60], second[60], third[60];
    EXPECT_EQ(GetProfilePrinter(session, "windows", "device", first, second, third), 1);
    EXPECT_STREQ(first, "Laser Writer");
    EXPECT_STREQ(second, "winspool");
    EXPECT_STREQ(third, "LPT1:");
}

TEST(PrinterProfile, MissingTokensStayEmpty) {
    BareSession session;
    const Profile profile("Laser");
    char first[60] = "x", second[60] = "x", third[60] = "x";
    EXPECT_EQ(GetProfilePrinter(session, "windows", "device", first, second, third), 1);
    EXPECT_STREQ(first, "Laser");
    EXPECT_STREQ(second, "");
    EXPECT_STREQ(third, "");
}

TEST(PrinterProfile, KeyThatIsAbsentGives0) {
    BareSession session;
    char first[60], second[60], third[60];
    EXPECT_EQ(GetProfilePrinter(session, "devices", "No such printer", first, second, third), 0);
    EXPECT_STREQ(first, "");
}

TEST(PrinterProfile, LongTokenIsCutToItsPlace) {
    BareSession session;
    const std::string list(99, 'x');
    const Profile profile(list.c_str());
    char first[60], second[60], third[60];
    EXPECT_EQ(GetProfilePrinter(session, "windows", "device", first, second, third), 1);
    EXPECT_EQ(std::string(first), std::string(59, 'x'));
}

TEST(PrinterProfile, DriverGetsItsEndingByItsLength) {
    EXPECT_STREQ(DefaultPrinter("P,abc,LPT1:").driver, "abc.drv");
    EXPECT_STREQ(DefaultPrinter("P,.drv,LPT1:").driver, ".drv.drv"); // four characters
    EXPECT_STREQ(DefaultPrinter("P,winspool,LPT1:").driver, "winspool.DRV");
    EXPECT_STREQ(DefaultPrinter("P,laser.drv,LPT1:").driver, "laser.drv");
    EXPECT_STREQ(DefaultPrinter("P,laser.DrV,LPT1:").driver, "laser.DrV");
}

TEST_F(Printer, SessionWithoutADefaultPrinterGives10) {
    const FailingCall none("GetProfileStringA", GetProfileStringA, 0, 1, EVERY_CALL);
    EXPECT_EQ(StartOn(form), CODE_PRINTER);
    EXPECT_EQ(Last(), (BoxRecord{"", "Unable to Access the Current Printer!", {IDOK}}));
}

// ---- the driver --------------------------------------------------------------------------------

TEST_F(Printer, DriverOfTheSettingsGetsItsEndingByItsLength) {
    ASSERT_EQ(StartOn(form), 0);
    char *driver = session->printer.DriverName;
    const std::string usual = driver;
    for (const auto &[name, expected] : {std::pair{"abc", "abc.DRV"},
                                         {".drv", ".drv.DRV"},
                                         {"laser", "laser.DRV"},
                                         {"laser.drv", "laser.drv"},
                                         {"laser.DrV", "laser.DrV"}}) {
        std::strcpy(driver, name);
        InitPrinter(session);
        EXPECT_STREQ(driver, expected);
    }
    std::strcpy(driver, usual.c_str());
}

namespace {
struct DriverCall {
    HWND owner;
    DWORD mode;
    bool operator==(const DriverCall &other) const = default;
};
std::vector<DriverCall> driver_calls;
decltype(&DocumentPropertiesA) real_properties;
LONG WINAPI NoteProperties(HWND owner, HANDLE printer, LPSTR name, DEVMODEA *out, DEVMODEA *in,
                           DWORD mode) {
    driver_calls.push_back({owner, mode});
    return real_properties(owner, printer, name, out, in, mode);
}
} // namespace

TEST_F(Printer, DriverIsAskedForItsSizeItsSettingsAndThoseOfTheFormWithTheParentsWindow) {
    driver_calls.clear();
    void *real = ReplaceImport("DocumentPropertiesA", reinterpret_cast<void *>(NoteProperties));
    real_properties = reinterpret_cast<decltype(real_properties)>(real);
    EXPECT_EQ(StartOn(form), 0);
    ReplaceImport("DocumentPropertiesA", real);
    EXPECT_EQ(driver_calls,
              (std::vector<DriverCall>{{host.Get(), 0}, {host.Get(), 2}, {host.Get(), 10}}));
}

TEST_F(Printer, DriverThatIsNotThereIsFatal) {
    const FailingCall none("OpenPrinterA", OpenPrinterA, FALSE);
    EXPECT_EQ(StartOn(form), CODE_PRINTER);
    EXPECT_EQ(Last(), Fatal("Invalid Printer Driver"));
}

// As a spooler does on which many programs start at once.
TEST_F(Printer, DriverThatRefusesOnceIsAskedAgain) {
    const FailingCall busy("DocumentPropertiesA", DocumentPropertiesA, 0);
    EXPECT_EQ(StartOn(form), 0);
    EXPECT_GT(busy.Seen(), 3);
    EXPECT_TRUE(boxes.Log().empty());
}

TEST_F(Printer, DriverThatGivesNoSettingsIsFatal) {
    {
        const FailingCall none("DocumentPropertiesA", DocumentPropertiesA, 0, 1, EVERY_CALL);
        EXPECT_EQ(StartOn(form), CODE_PRINTER);
        EXPECT_EQ(Last(), Fatal("Error Initializing the printer(InitPrinter)"));
    }
    const FailingCall none("DocumentPropertiesA", DocumentPropertiesA, 0, 2, EVERY_CALL);
    EXPECT_EQ(StartOn(form), CODE_PRINTER);
    EXPECT_EQ(Last(), Fatal("Error Initializing the printer(InitPrinter a)"));
}

TEST_F(Printer, SettingsWithoutMemoryAreFatal) {
    ASSERT_EQ(StartOn(form), 0);
    FailAllocation(1);
    const int code = EntryCode(session, [&] { InitPrinter(session); });
    FailAllocation(0);
    EXPECT_EQ(code, CODE_PRINTER);
    EXPECT_EQ(Last(), Fatal("Ran Out of Memory (InitPrinter)"));
    InitPrinter(session); // the session closes with a printer again
}

TEST_F(Printer, DriverThatRefusesTheFormsPaperIsToldAndTheFormOpens) {
    {
        const FailingCall none("DocumentPropertiesA", DocumentPropertiesA, 0, 3, EVERY_CALL);
        EXPECT_EQ(StartOn(form), 0);
        EXPECT_EQ(Last(),
                  (BoxRecord{"", "Error Initializing the printer(CallPrinterDriver)", {IDOK}}));
    }
    boxes.Clear();
    const FailingCall none("OpenPrinterA", OpenPrinterA, FALSE, 2);
    EXPECT_EQ(StartOn(form), 0);
    EXPECT_EQ(Last(),
              (BoxRecord{"Printer Error", "Error Initializing the Printer Options", {IDOK}}));
}

TEST_F(Printer, PrinterWithoutAContextIsFatal) {
    const FailingCall none("CreateDCA", CreateDCA, nullptr, 1, EVERY_CALL);
    EXPECT_EQ(StartOn(form), CODE_PRINTER);
    EXPECT_EQ(Last(), Fatal("Printer Driver Error!"));
    EXPECT_EQ(session->printer.InfoDevice, nullptr);
}

TEST(PrinterRun, PrinterWithoutAContextEndsARunToItWith2) {
    MessageBoxes boxes;
    const FailingCall none("CreateDCA", CreateDCA, nullptr, 1, EVERY_CALL);
    ReportRun run{OneLine{}};
    run.params.Device = 'P';
    EXPECT_EQ(run.Start(), CODE_NO_DEVICE);
    EXPECT_EQ(boxes.Log().back(), Fatal("Can not initialize printing"));
}

TEST(PrinterRun, PrinterWithoutTextMetricsEndsARunToItWith12) {
    MessageBoxes boxes;
    const FailingCall none("GetTextMetricsA", GetTextMetricsA, FALSE);
    ReportRun run{OneLine{}};
    run.params.Device = 'P';
    EXPECT_EQ(run.Start(), CODE_DISPLAY);
    EXPECT_EQ(boxes.Log().back(), Fatal("Unable to get text metric for the font."));
}

// ---- binding a form ----------------------------------------------------------------------------

TEST_F(Printer, FormsPaperGoesToTheDriverThoughItsPrinterIsGone) {
    std::strcpy(form.header.PrinterDevice, "No such printer");
    std::strcpy(form.header.PrinterDriver, "GONE.DRV");
    form.header.PrinterMode.Orientation = DMORIENT_LANDSCAPE;
    form.header.PrinterMode.PaperSize = DMPAPER_LETTER;
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_TRUE(boxes.Log().empty());
    EXPECT_STRNE(session->printer.DeviceName, "No such printer");
    EXPECT_EQ(session->printer.DevMode->dmOrientation, DMORIENT_LANDSCAPE);
    EXPECT_EQ(+session->form.Header.PrinterMode.Orientation, DMORIENT_LANDSCAPE);
}

TEST_F(Printer, FormsPrinterIsLookedUpAndTaken) {
    ASSERT_EQ(StartOn(form), 0);
    const PrinterState before = session->printer;
    char driver[60], port[60], rest[60];
    ASSERT_EQ(GetProfilePrinter(session, "devices", before.DeviceName, driver, port, rest), 1);
    std::strcpy(form.header.PrinterDevice, before.DeviceName);
    std::strcpy(form.header.PrinterDriver, "OTHER.DRV"); // so that it differs
    std::strcpy(session->printer.PortName, "stale");
    ASSERT_EQ(Open(Put(form.Bytes())), 1) << boxes.LastText();
    EXPECT_STREQ(session->printer.DeviceName, before.DeviceName);
    EXPECT_STREQ(session->printer.PortName, port);
}

TEST(PrinterRun, HostMayKeepThePrinterAsItIs) {
    MessageBoxes boxes;
    OneLine form;
    std::strcpy(form.header.PrinterDevice, "Some printer");
    for (const uint32_t keep : {0u, 1u}) {
        ReportRun run(form);
        run.params.KeepPrinter = keep;
        const FailingCall counted("GetProfileStringA", GetProfileStringA, 0, EVERY_CALL);
        ASSERT_EQ(run.Start(), 0) << boxes.LastText();
        EXPECT_EQ(counted.Seen(), keep ? 1 : 2); // the default printer; the form's
        run.Finish();
    }
}

// ---- paper -------------------------------------------------------------------------------------

TEST_F(Printer, PaperIsThePrintersAndTheFormRemembersThePrinter) {
    ASSERT_EQ(StartOn(form), 0);
    const PrinterState &printer = session->printer;
    POINT pixels{};
    Escape(printer.InfoDevice, GETPHYSPAGESIZE, 0, nullptr, &pixels);
    const float width = static_cast<float>(pixels.x) /
                        static_cast<float>(GetDeviceCaps(printer.InfoDevice, LOGPIXELSX));
    EXPECT_EQ(printer.PaperWidth, width);
    EXPECT_EQ(printer.ReportWidth, static_cast<int>(width * 250.0));
    EXPECT_EQ(printer.UsableWidth, width - 0.5F - 0.5F);
    EXPECT_STREQ(session->form.Header.PrinterDevice, printer.DeviceName);
    EXPECT_STREQ(session->form.Header.PrinterPort, printer.PortName);
    std::string upper = printer.DriverName;
    CharUpperA(upper.data());
    EXPECT_EQ(std::string(session->form.Header.PrinterDriver), upper);
    EXPECT_EQ(session->form.Items[0].x, 125);
    EXPECT_EQ(session->form.Items[0].width, printer.ReportWidth - 250);
}

TEST_F(Printer, BarsStandAtLeast62FromTheEdgeAndShareTheWidthAcross) {
    form.header.LeftMargin = 0.1F;
    form.header.RightMargin = 0.25F;
    form.sections[SECTION_DETAIL_1].Across = 3;
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_EQ(session->form.Items[0].x, 62);
    const double margins = static_cast<double>(0.1F) + 0.25F;
    const int room = session->printer.ReportWidth - static_cast<int>(margins * 250.0);
    EXPECT_EQ(session->form.Items[0].width, room / 3);
}

TEST_F(Printer, LabelSheetIgnoresThePrinter) {
    host_data = HostData{};
    uint32_t label = 1;
    host_data.LabelForm = &label;
    form.header.LabelType = 1;
    LabelGeometry &sheet = form.header.LabelGeometry;
    sheet.PageWidth = 4.25F;
    sheet.PageHeight = 5.5F;
    sheet.LabelsAcross = 2;
    sheet.LabelsDown = 4;
    sheet.HorizontalPitch = 1.5F;
    sheet.VerticalPitch = 1.25F;
    ASSERT_EQ(StartOn(form), 0);
    EXPECT_EQ(session->printer.PaperWidth, 4.25F);
    EXPECT_EQ(session->printer.PaperHeight, 5.5F);
    EXPECT_EQ(session->printer.UsableWidth, 3.0F);
    EXPECT_EQ(session->printer.UsableHeight, 5.0F);
    EXPECT_EQ(session->form.Items[0].x, 125); // bars stay as the form has them
}

namespace {
std::set<int> technologies; // of the devices whose fonts were measured
decltype(&GetTextMetricsA) real_metrics;
BOOL WINAPI NoteTechnology(HDC device, TEXTMETRICA *metrics) {
    technologies.insert(GetDeviceCaps(device, TECHNOLOGY));
    return real_metrics(device, metrics);
}
} // namespace

TEST_F(Printer, PreviewAloneMeasuresItsDefaultFontOnThePrinterAndKeepsNoFontOfIt) {
    ASSERT_EQ(StartOn(form, KIND_REPORT), 0);
    real_metrics = GetTextMetricsA;
    const ReplacedCall noted("GetTextMetricsA", NoteTechnology);
    technologies.clear();
    ProcessPrinterData(session);
    EXPECT_TRUE(technologies.empty());
    EXPECT_NE(session->form.Fonts[0].Font, nullptr);
    session->OutputToScreen = 1;
    ProcessPrinterData(session);
    session->OutputToScreen = 0;
    EXPECT_EQ(technologies, std::set<int>{DT_RASPRINTER});
    EXPECT_EQ(session->form.Fonts[0].Font, nullptr);
    EXPECT_GT(session->form.Fonts[0].Height, 0);
    EXPECT_STREQ(session->form.Fonts[0].LogFont.lfFaceName, "Courier New");
}

TEST(NewSession, PaperIsLetterUntilAPrinterIsBound) {
    BareSession session;
    EXPECT_EQ(session->printer.PaperWidth, 8.5F);
    EXPECT_EQ(session->printer.PaperHeight, 11.0F);
}
