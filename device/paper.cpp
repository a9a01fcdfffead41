#include "device/paper.h"

#include <algorithm>
#include <cstring>

#include "device/printer.h"
#include "form/fonts.h"
#include "form/sections.h"
#include "frame/fatal_error.h"
#include "frame/mapping.h"
#include "frame/text.h"

namespace tessarine {

namespace {

// A form remembers its printer by the names and the public fields of the DEVMODE.
void StorePrinter(Session *session) {
    PrinterState &printer = session->printer;
    FormHeader &header = session->form.Header;
    UpperText(printer.DriverName);
    CopyText(printer.DeviceName, header.PrinterDevice, sizeof header.PrinterDevice);
    CopyText(printer.DriverName, header.PrinterDriver, sizeof header.PrinterDriver);
    CopyText(printer.PortName, header.PrinterPort, sizeof header.PrinterPort);
    const DEVMODEA &mode = *printer.DevMode;
    PrinterModeRecord &record = header.PrinterMode;
    std::memcpy(record.DeviceName, mode.dmDeviceName, sizeof record.DeviceName);
    record.SpecVersion = mode.dmSpecVersion;
    record.DriverVersion = mode.dmDriverVersion;
    record.Size = mode.dmSize;
    record.DriverExtra = mode.dmDriverExtra;
    record.Fields = mode.dmFields;
    record.Orientation = mode.dmOrientation;
    record.PaperSize = mode.dmPaperSize;
    record.PaperLength = mode.dmPaperLength;
    record.PaperWidth = mode.dmPaperWidth;
    record.Scale = mode.dmScale;
    record.Copies = mode.dmCopies;
    record.DefaultSource = mode.dmDefaultSource;
    record.PrintQuality = mode.dmPrintQuality;
    record.Color = mode.dmColor;
    record.Duplex = mode.dmDuplex;
    record.YResolution = mode.dmYResolution;
    record.TTOption = mode.dmTTOption;
}

void RemakeInfoDevice(Session *session) {
    PrinterState &printer = session->printer;
    if (printer.InfoDevice) {
        SelectObject(printer.InfoDevice, GetStockObject(SYSTEM_FONT));
        DeleteDC(printer.InfoDevice);
    }
    printer.InfoDevice = CreatePrinterContext(session);
    if (!printer.InfoDevice) FatalError(session, "Printer Driver Error!", CODE_PRINTER);
    const PixelsOf pixels(session, printer.InfoDevice);
    ApplyMapping(session, printer.InfoDevice);
    printer.InfoPixelsX = session->drawing.LogPixelsX;
    ZeroMemory(printer.Measures, sizeof printer.Measures);
}

void SettlePaper(Session *session) {
    PrinterState &printer = session->printer;
    const LabelGeometry &label = session->form.Header.LabelGeometry;
    if (session->LabelMode) {
        printer.PaperWidth = label.PageWidth;
        printer.PaperHeight = label.PageHeight;
        return;
    }
    POINT pixels{};
    if (Escape(printer.InfoDevice, GETPHYSPAGESIZE, 0, nullptr, &pixels) <= 0) return;
    const int across = GetDeviceCaps(printer.InfoDevice, LOGPIXELSX);
    const int down = GetDeviceCaps(printer.InfoDevice, LOGPIXELSY);
    printer.PaperWidth = static_cast<float>(pixels.x) / static_cast<float>(across);
    printer.PaperHeight = static_cast<float>(pixels.y) / static_cast<float>(down);
}

// The preview measures the form's first font on the printer; the row keeps the measures alone.
void MeasurePreviewFont(Session *session) {
    if (session->SessionKind != KIND_REPORT || !session->OutputToScreen) return;
    const HDC device = session->printer.InfoDevice;
    if (!MakeFont(session, device, 0, true)) return;
    FontEntry *row = &session->form.Fonts[0];
    SelectObject(device, GetStockObject(SYSTEM_FONT));
    DeleteObject(row->Font);
    row->Font = nullptr;
}

void SettleUsableSize(Session *session) {
    PrinterState &printer = session->printer;
    const FormHeader &header = session->form.Header;
    const LabelGeometry &label = header.LabelGeometry;
    if (session->LabelMode) {
        printer.UsableWidth = static_cast<float>(label.LabelsAcross) * label.HorizontalPitch;
        printer.UsableHeight = static_cast<float>(label.LabelsDown) * label.VerticalPitch;
        return;
    }
    printer.UsableWidth = printer.PaperWidth - header.LeftMargin - header.RightMargin;
    printer.UsableHeight = printer.PaperHeight - header.TopMargin - header.BottomMargin;
}

void FitBars(Session *session) {
    const int left = std::max(InchesToUnits(session->form.Header.LeftMargin), BAR_LEFT_EDGE);
    for (int row = 0; row < session->form.TotalItems; ++row) {
        ItemRecord *item = &session->form.Items[row];
        if (item->ItemType != ITEM_BAR) continue;
        item->x = static_cast<int16_t>(left);
        item->width = static_cast<int16_t>(BarWidth(session, item->SectionIndex));
    }
}

} // namespace

int FullBarWidth(const Session *session) {
    const FormHeader &header = session->form.Header;
    const double margins = static_cast<double>(header.LeftMargin) + header.RightMargin;
    return session->printer.ReportWidth - InchesToUnits(margins);
}

int BarWidth(const Session *session, int section) {
    return FullBarWidth(session) / std::max<int>(session->form.Sections[section].Across, 1);
}

int ProcessPrinterData(Session *session) {
    StorePrinter(session);
    RemakeInfoDevice(session);
    SettlePaper(session);
    MeasurePreviewFont(session);
    session->printer.ReportWidth = InchesToUnits(session->printer.PaperWidth);
    SettleUsableSize(session);
    if (!session->LabelMode) FitBars(session);
    return 1;
}

} // namespace tessarine
