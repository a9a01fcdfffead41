// Whether a page can be played: a player trusts the sizes and numbers that its records tell.
#pragma once

#include <string>

// What is wrong with a page, by the published format of Windows metafiles; "" for a sound one.
std::string PageFault(const std::string &page);
