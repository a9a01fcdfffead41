#include "tests/support/item_order.h"

#include <algorithm>
#include <tuple>

namespace {

std::string At(int row, const std::string &what) {
    return "row " + std::to_string(row) + ": " + what;
}

const ItemRecord &Row(const Session *session, int row) { return session->form.Items[row]; }

bool IsBar(const Session *session, int row) {
    return row >= 0 && row < session->form.TotalItems && Row(session, row).ItemType == ITEM_BAR;
}

std::string WrongInRow(const Session *session, int row) {
    const int section = Row(session, row).SectionIndex;
    if (section < 0 || section >= MAX_SECTIONS) return At(row, "in no section");
    if (!session->form.Sections[section].InUse)
        return At(row, "in section " + std::to_string(section) + ", which isn't in use");
    const int before = row ? int{Row(session, row - 1).SectionIndex} : -1;
    if (section < before) return At(row, "behind a later section");
    if (IsBar(session, row) == (section == before))
        return At(row, section == before ? "a second bar" : "in front of its bar");
    return "";
}

std::string WrongInSection(const Session *session, int section) {
    const SectionRecord &record = session->form.Sections[section];
    if (!record.InUse) return "";
    if (!IsBar(session, record.BarItem) || Row(session, record.BarItem).SectionIndex != section)
        return "section " + std::to_string(section) + ": BarItem " +
               std::to_string(record.BarItem) + " is not its bar";
    return "";
}

std::string WrongGroup(const Session *session) {
    const ItemRecord *items = session->form.Items;
    const auto groups =
        std::count_if(items, items + session->form.TotalItems,
                      [](const ItemRecord &item) { return item.ItemType == ITEM_GROUP; });
    return groups == 1 ? "" : std::to_string(groups) + " groups";
}

bool StandsBehind(const ItemRecord &item, const ItemRecord &before) {
    return std::tuple(int{item.y}, int{item.x}) >= std::tuple(int{before.y}, int{before.x});
}

} // namespace

std::string WhatIsWrong(const Session *session) {
    if (!IsBar(session, 0)) return "row 0: no bar";
    std::string wrong = WrongGroup(session);
    for (int row = 0; row < session->form.TotalItems && wrong.empty(); ++row)
        wrong = WrongInRow(session, row);
    for (int section = 0; section < MAX_SECTIONS && wrong.empty(); ++section)
        wrong = WrongInSection(session, section);
    return wrong;
}

std::string WhatIsUnsorted(const Session *session) {
    for (int row = 1; row < session->form.TotalItems; ++row)
        if (!IsBar(session, row) && !StandsBehind(Row(session, row), Row(session, row - 1)))
            return At(row, "in front of the one before");
    return "";
}
