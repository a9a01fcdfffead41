// How the members of a form's records are named in JSON.
#pragma once

#include "host/forms/record_json.h"
#include "tessarine.h"

inline constexpr Member header_members[] = {
    MEMBER(FormHeader, ReportName, Text, "name"),
    MEMBER(FormHeader, CallerTag, Text, "caller tag"),
    MEMBER(FormHeader, LeftMargin, Float, "left margin"),
    MEMBER(FormHeader, RightMargin, Float, "right margin"),
    MEMBER(FormHeader, TopMargin, Float, "top margin"),
    MEMBER(FormHeader, BottomMargin, Float, "bottom margin"),
    MEMBER(FormHeader, FormFlags, Word16, "form flags"),
    MEMBER(FormHeader, DateEntryFormat, Word16, "date entry format"),
    MEMBER(FormHeader, RulerFlags, Word16, "ruler flags"),
    MEMBER(FormHeader, BarHeight, Units, "bar height"),
    MEMBER(FormHeader, HostWord, Word16, "host word"),
    MEMBER(FormHeader, HostName1, Text, "host name 1"),
    MEMBER(FormHeader, HostName2, Text, "host name 2"),
    MEMBER(FormHeader, HostShort, Word16, "host short"),
    MEMBER(FormHeader, HostComment, Text, "comment"),
    MEMBER(FormHeader, RunWord, Int16, "run word"),
    MEMBER(FormHeader, LabelType, Word32, "label type"),
    MEMBER(FormHeader, PrinterDevice, Text, "printer"),
    MEMBER(FormHeader, PrinterDriver, Text, "printer driver"),
    MEMBER(FormHeader, PrinterPort, Text, "printer port"),
};

inline constexpr Member label_members[] = {
    MEMBER(LabelGeometry, PageWidth, Float, "page width"),
    MEMBER(LabelGeometry, PageHeight, Float, "page height"),
    MEMBER(LabelGeometry, TopOffset, Float, "top offset"),
    MEMBER(LabelGeometry, LeftOffset, Float, "left offset"),
    MEMBER(LabelGeometry, LabelHeight, Float, "label height"),
    MEMBER(LabelGeometry, LabelWidth, Float, "label width"),
    MEMBER(LabelGeometry, VerticalPitch, Float, "vertical pitch"),
    MEMBER(LabelGeometry, HorizontalPitch, Float, "horizontal pitch"),
    MEMBER(LabelGeometry, LabelsDown, Word16, "labels down"),
    MEMBER(LabelGeometry, LabelsAcross, Word16, "labels across"),
    MEMBER(LabelGeometry, HostWord1, Word16, "host word 1"),
    MEMBER(LabelGeometry, HostWord2, Word16, "host word 2"),
};

inline constexpr Member paper_members[] = {
    MEMBER(PrinterModeRecord, DeviceName, Text, "device"),
    MEMBER(PrinterModeRecord, SpecVersion, Word16, "mode version"),
    MEMBER(PrinterModeRecord, DriverVersion, Word16, "driver version"),
    MEMBER(PrinterModeRecord, Size, Word16, "size"),
    MEMBER(PrinterModeRecord, DriverExtra, Word16, "driver extra"),
    MEMBER(PrinterModeRecord, Fields, Word32, "fields"),
    MEMBER(PrinterModeRecord, Orientation, Int16, "orientation"),
    MEMBER(PrinterModeRecord, PaperSize, Int16, "paper size"),
    MEMBER(PrinterModeRecord, PaperLength, Int16, "paper length"),
    MEMBER(PrinterModeRecord, PaperWidth, Int16, "paper width"),
    MEMBER(PrinterModeRecord, Scale, Int16, "scale"),
    MEMBER(PrinterModeRecord, Copies, Int16, "copies"),
    MEMBER(PrinterModeRecord, DefaultSource, Int16, "default source"),
    MEMBER(PrinterModeRecord, PrintQuality, Int16, "print quality"),
    MEMBER(PrinterModeRecord, Color, Int16, "color"),
    MEMBER(PrinterModeRecord, Duplex, Int16, "duplex"),
    MEMBER(PrinterModeRecord, YResolution, Int16, "y resolution"),
    MEMBER(PrinterModeRecord, TTOption, Int16, "tt option"),
};

inline constexpr Member item_members[] = {
    MEMBER(ItemRecord, LabelText, Text, "text"),
    MEMBER(ItemRecord, TextColor, Color, "color"),
    MEMBER(ItemRecord, OutlineStyle, Int16, "outline style"),
    MEMBER(ItemRecord, OutlineWidth, Int16, "outline width"),
    MEMBER(ItemRecord, OutlineColor, Color, "outline color"),
    MEMBER(ItemRecord, LineAngle, Int16, "line angle"),
    MEMBER(ItemRecord, LineStyle, Int16, "line style"),
    MEMBER(ItemRecord, LineWidth, Int16, "line width"),
    MEMBER(ItemRecord, LineColor, Color, "line color"),
    MEMBER(ItemRecord, GroupMark, Word16, "group mark"),
    MEMBER(ItemRecord, KeepSize, Word16, "keep size"),
    MEMBER(ItemRecord, RunOffset, Int16, "run offset"),
};

inline constexpr Member brush_members[] = {
    MEMBER(RepLogbrush, Style, Word16, "style"),
    MEMBER(RepLogbrush, Color, Color, "color"),
    MEMBER(RepLogbrush, Hatch, Int16, "hatch"),
};

inline constexpr Member field_members[] = {
    MEMBER(FieldRecord, FieldWidth, Int16, "width"),
    MEMBER(FieldRecord, Decimals, Int16, "decimals"),
    MEMBER(FieldRecord, Modifiable, Word16, "modifiable"),
    MEMBER(FieldRecord, InUse, Word16, "in use"),
    MEMBER(FieldRecord, HostTable, Int16, "host table"),
    MEMBER(FieldRecord, HostField, Int16, "host field"),
    MEMBER(FieldRecord, TableIndex, Int16, "table index"),
    MEMBER(FieldRecord, DateFormat, Int16, "date format"),
    MEMBER(FieldRecord, TimeForm, Word16, "time form"),
    MEMBER(FieldRecord, DateDelimiter, Text, "date delimiter"),
    MEMBER(FieldRecord, ThousandsChar, Text, "thousands"),
    MEMBER(FieldRecord, DecimalChar, Text, "decimal point"),
    MEMBER(FieldRecord, PadChar, Text, "pad"),
    MEMBER(FieldRecord, CurrencySymbol, Text, "currency"),
    MEMBER(FieldRecord, TrueText, Text, "true text"),
    MEMBER(FieldRecord, FalseText, Text, "false text"),
    MEMBER(FieldRecord, NegativePrefix, Text, "negative prefix"),
    MEMBER(FieldRecord, NegativeSuffix, Text, "negative suffix"),
    MEMBER(FieldRecord, PositivePrefix, Text, "positive prefix"),
    MEMBER(FieldRecord, PositiveSuffix, Text, "positive suffix"),
    MEMBER(FieldRecord, ZeroText, Text, "zero text"),
    MEMBER(FieldRecord, LongValue, Int32, "whole value"),
    MEMBER(FieldRecord, DoubleValue, Double, "double value"),
    MEMBER(FieldRecord, LongSummary, Int32, "whole summary"),
    MEMBER(FieldRecord, DoubleSummary, Double, "double summary"),
    MEMBER(FieldRecord, SummaryCount, Int32, "summary count"),
    MEMBER(FieldRecord, SummarySection, Int16, "summary section"),
    MEMBER(FieldRecord, LineBreakChar, Text, "line break"),
    MEMBER(FieldRecord, RefCount, Word16, "references"),
    MEMBER(FieldRecord, Caption, Text, "caption"),
    MEMBER(FieldRecord, PickerTag, Text, "picker tag"),
};

inline constexpr Member section_members[] = {
    MEMBER(SectionRecord, Across, Int16, "across"),
    MEMBER(SectionRecord, PrintNow, Int16, "print now"),
    MEMBER(SectionRecord, SectionHeight, Int16, "run height"),
    MEMBER(SectionRecord, FirstItem, Int16, "first item"),
    MEMBER(SectionRecord, ItemTotal, Int16, "item total"),
};

inline constexpr Member user_members[] = {
    MEMBER(UserFieldRecord, UserName, Text, "name"),
    MEMBER(UserFieldRecord, UserPrompt, Text, "prompt"),
    MEMBER(UserFieldRecord, PromptOrder, Word16, "order"),
    MEMBER(UserFieldRecord, UserText, Text, "answer"),
    MEMBER(UserFieldRecord, LongValue, Int32, "whole value"),
    MEMBER(UserFieldRecord, DoubleValue, Double, "double value"),
    MEMBER(UserFieldRecord, UserWidth, Int16, "width"),
};

inline constexpr Member font_members[] = {
    MEMBER(PortableFont, FaceName, Text, "face"),
    MEMBER(PortableFont, Height, Int16, "height"),
    MEMBER(PortableFont, Width, Int16, "width"),
    MEMBER(PortableFont, Escapement, Int16, "escapement"),
    MEMBER(PortableFont, Orientation, Int16, "orientation"),
    MEMBER(PortableFont, Weight, Int16, "weight"),
    MEMBER(PortableFont, Italic, Byte8, "italic byte"),
    MEMBER(PortableFont, Underline, Byte8, "underline byte"),
    MEMBER(PortableFont, StrikeOut, Byte8, "strike out byte"),
    MEMBER(PortableFont, CharSet, Byte8, "character set"),
    MEMBER(PortableFont, OutPrecision, Byte8, "out precision"),
    MEMBER(PortableFont, ClipPrecision, Byte8, "clip precision"),
    MEMBER(PortableFont, Quality, Byte8, "quality"),
    MEMBER(PortableFont, PitchAndFamily, Byte8, "pitch and family"),
};

inline constexpr FlagWord item_flags[] = {
    {"background", FLAG_BACKGROUND},
    {"left", FLAG_LEFT},
    {"right", FLAG_RIGHT},
    {"center", FLAG_CENTER},
    {"top", FLAG_TOP},
    {"middle", FLAG_MIDDLE},
    {"bottom", FLAG_BOTTOM},
    {"group", FLAG_GROUP_TOGGLE},
};
inline constexpr FlagWord side_flags[] = {
    {"left", SIDE_LEFT}, {"right", SIDE_RIGHT}, {"top", SIDE_TOP}, {"bottom", SIDE_BOTTOM}};
inline constexpr FlagWord field_flags[] = {
    {"trim", FIELD_TRIM},
    {"upper case", FIELD_UPPER},
    {"capitalize", FIELD_CAPITALIZE},
    {"lower case", FIELD_LOWER},
    {"wrap", FIELD_WRAP},
    {"word wrap", FIELD_WORD_WRAP},
    {"retain", FIELD_RETAIN},
    {"variable lines", FIELD_VARIABLE_LINES},
    {"in footer", FIELD_IN_FOOTER},
    {"shared", FIELD_SHARED},
    {"branch", FIELD_BRANCH},
    {"postnet", FIELD_POSTNET},
};
inline constexpr FlagWord section_flags[] = {
    {"page before", SECTION_ADVANCE_BEFORE},
    {"page after", SECTION_ADVANCE_AFTER},
    {"reprint", SECTION_REPRINT},
    {"compress before", SECTION_COMPRESS_BEFORE},
    {"compress after", SECTION_COMPRESS_AFTER},
    {"reset page", SECTION_RESET_PAGE},
};
inline constexpr FlagWord symbol_flags[] = {{"always", WHEN_ALWAYS},
                                            {"first on page", WHEN_FIRST_ON_PAGE},
                                            {"first in group", WHEN_FIRST_IN_GROUP}};
inline constexpr FlagWord font_flags[] = {{"italic", 1}, {"underline", 2}, {"strike out", 4}};

inline constexpr const char *kind_names[] = {"data",     "calculation", "system",
                                             "constant", "free",        "user"};
inline constexpr const char *type_names[] = {"",        "numeric", "double", "text",
                                             "logical", "date",    "picture"};
inline constexpr const char *summary_names[] = {"value", "total", "average", "count", "max", "min"};
inline constexpr const char *symbol_names[] = {"none", "currency", "percent"};
