// Displays that are in files, each with the records that are expected beside it.
//
// NAME.txt: the first line tells the form of the lines after it.
//   lines:    each ended by CR LF
//   rows:     rows of 80 columns without line breaks
//   screen:   the same, but the text ends with the last character of the last line, as a screen does after the prompt
// For surface segments each line is an element of the PNR object's collection: its number, "|", its text.
//
// NAME.records: "count N", what the count property returns; then for every index from 0 on "index N" and the entries
// stored there, in the order of the keys, but for those that are as an empty record has them.
//   strKeyElement = "5 SSR VGML SK HK1"
// Lines that begin with "#" are comments.
#pragma once

#include <filesystem>
#include <string>

#include "scan/display_scans.h"

namespace wendrill::testing {

// Both throw std::runtime_error with the file and what is wrong in it.
std::u16string ReadDisplay(const std::filesystem::path& path);
std::string ReadExpectedRecords(const std::filesystem::path& path);  // without comments

// A scan's outcome in the form of a records file.
std::string RecordsText(std::int16_t count, const ElementArrays& arrays);

}  // namespace wendrill::testing
