// Names and values that may have been meant by a mistyped one.
#ifndef VORN_HOST_SUGGESTIONS_H
#define VORN_HOST_SUGGESTIONS_H

#include <string>
#include <string_view>
#include <vector>

namespace vorn_3_1::host::detail {

/// At most three of the names, the best first, none that is far-fetched. A name is near if few letters are wrong,
/// missing or swapped, or if the typed one leaves out whole words: "output" for "output-dir". Words may be shortened.
std::vector<std::string> nearestNames(std::string_view typed, const std::vector<std::string>& names);

/// The same for texts that are not cut into words.
std::vector<std::string> nearestTexts(std::string_view typed, const std::vector<std::string>& texts);

/// "'a'", "'a' or 'b'", "'a', 'b' or 'c'".
std::string quotedAlternatives(const std::vector<std::string>& texts);

/// The letters by which two texts differ: wrong, missing, too many, or swapped with a neighbour. Stops at `most` + 1.
unsigned distance(std::string_view left, std::string_view right, unsigned most);

}  // namespace vorn_3_1::host::detail

#endif
