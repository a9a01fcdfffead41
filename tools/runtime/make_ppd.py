#!/usr/bin/env python3
"""Writes the PPD of the test printer: 300 dpi PostScript, margins of a quarter inch."""
import sys

SIZES = [("Letter", 612, 792), ("Legal", 612, 1008), ("Executive", 522, 756), ("A3", 842, 1191),
         ("A4", 595, 842), ("A5", 420, 595), ("B5", 516, 729), ("Env10", 297, 684)]
MARGIN = 18  # points
FONTS = ["Courier", "Courier-Bold", "Courier-Oblique", "Courier-BoldOblique", "Helvetica",
         "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique", "Times-Roman",
         "Times-Bold", "Times-Italic", "Times-BoldItalic", "Symbol"]

HEAD = '''*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "TESTPS.PPD"
*Manufacturer: "Test"
*Product: "(Test)"
*ModelName: "Test PostScript Printer"
*ShortNickName: "Test PostScript Printer"
*NickName: "Test PostScript Printer"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*Throughput: "1"
*LandscapeOrientation: Plus90
*TTRasterizer: Type42
*cupsVersion: 2.4
*cupsFilter: "application/vnd.cups-postscript 0 -"
*cupsFilter: "application/postscript 0 -"
*cupsFilter: "application/vnd.cups-command 0 -"'''


def option(key, title, order, default, choices):
    yield f"*OpenUI *{key}/{title}: PickOne"
    yield f"*OrderDependency: {order} AnySetup *{key}"
    yield f"*Default{key}: {default}"
    for name, words, code in choices:
        yield f'*{key} {name}/{words}: "{code}"'
    yield f"*CloseUI: *{key}"


def lines():
    yield HEAD
    yield from option("Resolution", "Resolution", 20, "300dpi",
                      [(f"{r}dpi", f"{r} dpi", f"<</HWResolution[{r} {r}]>>setpagedevice")
                       for r in (150, 300, 600)])
    yield from option("InputSlot", "Source", 10, "Auto",
                      [("Auto", "Automatic", ""), ("Upper", "Upper Tray", ""),
                       ("Manual", "Manual Feed", "")])
    for key in ("PageSize", "PageRegion"):
        yield from option(key, "Page Size", 30, "Letter",
                          [(n, n, f"<</PageSize[{w} {h}]/ImagingBBox null>>setpagedevice")
                           for n, w, h in SIZES])
    yield "*DefaultImageableArea: Letter"
    for n, w, h in SIZES:
        yield f'*ImageableArea {n}/{n}: "{MARGIN} {MARGIN} {w - MARGIN} {h - MARGIN}"'
    yield "*DefaultPaperDimension: Letter"
    for n, w, h in SIZES:
        yield f'*PaperDimension {n}/{n}: "{w} {h}"'
    yield "*DefaultFont: Courier"
    for font in FONTS:
        kind = "Special" if font == "Symbol" else "Standard"
        yield f'*Font {font}: {kind} "(001.004)" {kind} ROM'


with open(sys.argv[1], "w") as ppd:
    ppd.write("\n".join(lines()) + "\n")
