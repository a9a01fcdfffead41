// Words about the rows of the section table.
#pragma once

#include "tessarine_numbers.h"

namespace tessarine {

constexpr int BAR_LEFT_EDGE = 62; // form units: a section bar's least left edge

constexpr bool IsSortHeader(int section) {
    return section >= SECTION_SORT_HEADER_1 && section <= SECTION_SORT_HEADER_9;
}

constexpr bool IsDetail(int section) {
    return section >= SECTION_DETAIL_1 && section <= SECTION_DETAIL_9;
}

// Sort footers, report footer and page footer, which print what has been summed up.
constexpr bool IsFooter(int section) { return section >= SECTION_SORT_FOOTER_9; }

constexpr bool IsSortFooter(int section) {
    return section >= SECTION_SORT_FOOTER_9 && section <= SECTION_SORT_FOOTER_1;
}

// The sort footer that closes a sort header's group, and the header of a footer.
constexpr int FooterOf(int header) { return SECTION_PAGE_FOOTER - header; }
constexpr int HeaderOf(int footer) { return SECTION_PAGE_FOOTER - footer; }
static_assert(FooterOf(SECTION_SORT_HEADER_1) == SECTION_SORT_FOOTER_1 &&
              FooterOf(SECTION_SORT_HEADER_9) == SECTION_SORT_FOOTER_9);

} // namespace tessarine
