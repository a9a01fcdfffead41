# Writes a form of 320 items that all show in one window: 4 sections of 79 with labels, fields and
# lines between each other.
BEGIN {
    print "{ \"form\": { \"name\": \"Canvas\", \"left margin\": 0.25, \"right margin\": 0.25 },"
    print "  \"fonts\": [ { \"face\": \"Courier New\", \"points\": 8 }, { \"face\": \"Arial\", \"points\": 8 } ],"
    print "  \"fields\": [ { \"name\": \"AMOUNT\", \"type\": \"double\", \"width\": 12, \"decimals\": 2 } ],"
    print "  \"sections\": ["
    sections = split("Page Header;Report Header;Detail Section 1;Page Footer", names, ";")
    for (section = 1; section <= sections; ++section) {
        printf "    { \"section\": \"%s\", \"height\": 400, \"items\": [", names[section]
        items = section == 1 ? 78 : 79 # the group counts too
        for (item = 0; item < items; ++item) {
            place = sprintf("\"at\": [%d, %d], \"size\": [220, 36], \"font\": %d", 100 + item % 8 * 240,
                            int(item / 8) * 40, section % 2)
            if (item % 8 == 7) printf "%s\n      { \"item\": \"line\", %s }", item ? "," : "", place
            else if (item % 2) printf ",\n      { \"item\": \"field\", %s, \"field\": \"AMOUNT\", \"flags\": [\"right\", \"middle\"] }", place
            else printf "%s\n      { \"item\": \"label\", %s, \"text\": \"Label %d\" }", item ? "," : "", place, item
        }
        printf " ] }%s\n", section < sections ? "," : ""
    }
    print "  ] }"
}
