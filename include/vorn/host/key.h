// Keys: what a declaration leaves behind, and what results are read with.
#ifndef VORN_HOST_KEY_H
#define VORN_HOST_KEY_H

#if __cplusplus >= 201703L

#include <climits>
#include <optional>
#include <vector>

namespace vorn_3_1::host {

/// Names one option or positional argument of one parser, whatever its type. Rules take these. Cheap to copy, and
/// good for as long as anybody holds a result or the parser; it owns nothing.
struct AnyKey {
    unsigned parser = 0;  ///< A number that no other parser of the process has; 0 for a key of nothing.
    unsigned index = 0;
};

namespace detail {

template <class T>
struct Element {
    using Type = T;
};
template <class T>
struct Element<std::optional<T>> {
    using Type = T;
};
template <class T>
struct Element<std::vector<T>> {
    using Type = T;
};

}  // namespace detail

/// What is read with the key: T where there is always a value, std::optional<T> where there may be none, and
/// std::vector<T> where there may be several. The key of an option comes from its declaration.
template <class T>
class Key {
public:
    using Element = typename detail::Element<T>::Type;  ///< The type of one value.

    Key() = default;  ///< A key of nothing.
    explicit Key(AnyKey named) : any(named) {}
    operator AnyKey() const { return any; }

private:
    AnyKey any;
};

/// The positions from `low` to below `high`; everything unless limited. Positions rise along the command line, so
/// those of one option cut it into stretches, in which another may be asked for. A default and all that comes from
/// settings or the environment stands before the first argument.
struct Range {
    int low = 0;
    int high = INT_MAX;
};

inline Range between(int low, int high) { return Range{low, high}; }
inline Range before(int high) { return Range{0, high}; }
inline Range from(int low) { return Range{low, INT_MAX}; }

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
