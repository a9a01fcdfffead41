#include "designer/section_rules.h"

#include <algorithm>
#include <iterator>

#include "form/sections.h"

namespace tessarine {

namespace {

bool InUse(const FormState &form, int section) { return form.Sections[section].InUse != 0; }

bool IsLastBreak(const FormState &form, int section) {
    return form.BreakCount > 0 && form.Breaks[form.BreakCount - 1].SectionIndex == section;
}

bool IsOnly(const FormState &form, int section) {
    for (int other = 0; other < MAX_SECTIONS; ++other)
        if (other != section && InUse(form, other)) return false;
    return true;
}

bool HasHigherDetail(const FormState &form, int section) {
    return IsDetail(section) && section < SECTION_DETAIL_9 && InUse(form, section + 1);
}

bool HasFooter(const FormState &form, int section) {
    return IsSortHeader(section) && InUse(form, FooterOf(section));
}

bool HasHigherHeader(const FormState &form, int section) {
    return IsSortHeader(section) && !IsLastBreak(form, section);
}

struct Obstacle {
    bool (*Stands)(const FormState &form, int section);
    const char *Text;
};

constexpr Obstacle obstacles[] = {
    {IsOnly, "Cannot delete the last section."},
    {HasHigherDetail, "Before this detail section can be deleted, all higher numbered detail "
                      "sections must be deleted."},
    {HasFooter, "Before this sort header can be deleted, the sort footer must be deleted."},
    {HasHigherHeader, "Before this sort header can be deleted, all higher numbered sort headers "
                      "must be deleted."},
};

} // namespace

bool MayAdd(const FormState &form, int section, bool sorting) {
    if (section < 0 || section >= MAX_SECTIONS || InUse(form, section)) return false;
    if (IsSortHeader(section)) {
        const bool first = section == SECTION_SORT_HEADER_1;
        return sorting && form.BreakCount < MAX_BREAKS && (first || InUse(form, section - 1));
    }
    if (IsDetail(section)) return section == SECTION_DETAIL_1 || InUse(form, section - 1);
    return !IsSortFooter(section) || InUse(form, HeaderOf(section));
}

const char *WhyItStays(const FormState &form, int section) {
    const auto *found =
        std::find_if(std::begin(obstacles), std::end(obstacles),
                     [&](const Obstacle &obstacle) { return obstacle.Stands(form, section); });
    return found == std::end(obstacles) ? nullptr : found->Text;
}

} // namespace tessarine
