// What the print service of the test runtime has made: a PDF for each job.
#pragma once

#include <filesystem>
#include <string>

// The PDF of the job with that title, "" when there is none. A title holds letters and digits.
std::filesystem::path PrintedJob(const std::string &title);
// The same, once it is there; "" when it doesn't come.
std::filesystem::path AwaitPrintedJob(const std::string &title);
