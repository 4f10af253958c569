// Texts of 16 bytes that all have one hash in the standard library (libstdc++'s std::hash, which has no key), so that
// each becomes a neighbour of all others in a table that relies on it; and random ones.
#ifndef BENCHMARKS_COLLISIONS_H
#define BENCHMARKS_COLLISIONS_H

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

std::vector<std::string> collidingTexts(std::size_t count);
std::vector<std::string> randomTexts(std::size_t count);

}  // namespace bench

#endif
