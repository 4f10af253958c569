// How the companion handles values whose type only the host knows.
#ifndef VORN_HOST_VALUES_H
#define VORN_HOST_VALUES_H

#if __cplusplus >= 201703L

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorn_3_1::host {

/// What completion offers where a value is wanted.
enum class Completion { nothing, files, folders };

class Result;

namespace detail {

/// A row of values of one type. TypedValues is the only class behind it.
class Values {
public:
    Values() = default;
    Values(const Values&) = delete;
    Values& operator=(const Values&) = delete;
    virtual ~Values();

    virtual std::size_t size() const = 0;
    virtual void clear() = 0;
    virtual void dropLast() = 0;
    /// Appends a copy of a value of another row of the same type.
    virtual void take(const Values& other, std::size_t index) = 0;
    virtual bool isSame(std::size_t index, const Values& other, std::size_t otherIndex) const = 0;
    /// Appends the value that the text stands for. Returns the reason if it stands for none, and appends nothing.
    virtual std::string read(std::string_view text) = 0;
    virtual std::string show(std::size_t index) const = 0;
};

/// A type may tell what completes its values: struct CompletionOf<Path> { static constexpr Completion kind = ...; }.
template <class T>
struct CompletionOf {
    static constexpr Completion kind = Completion::nothing;
};

struct TypeFacts {
    Values* (*make)();
    const char* (*metavar)();
    bool isNumber;
    bool isText;
    bool isTaught;  ///< Otherwise its values are read by names alone.
    Completion completion;
};

/// A host's function that judges a value.
class Check {
public:
    Check() = default;
    Check(const Check&) = delete;
    Check& operator=(const Check&) = delete;
    virtual ~Check();
    /// "" or the reason against the value.
    virtual std::string judge(const Values& values, std::size_t index) const = 0;
};

/// A host's function that offers values for completion.
class Offer {
public:
    Offer() = default;
    Offer(const Offer&) = delete;
    Offer& operator=(const Offer&) = delete;
    virtual ~Offer();
    virtual bool wantsResult() const = 0;
    /// `before` is the result of the words in front, if it is wanted.
    virtual std::vector<std::string> offers(std::string_view typed, const Result& before) const = 0;
};

/// Owns one object. The standard's own comes with a header that doubles what vorn/host.h costs to compile.
template <class T>
class Owned {
public:
    Owned() = default;
    explicit Owned(T* object) : kept(object) {}
    Owned(Owned&& other) noexcept : kept(std::exchange(other.kept, nullptr)) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(kept, other.kept);
        return *this;
    }
    ~Owned() { delete kept; }

    T* get() const { return kept; }
    T& operator*() const { return *kept; }
    T* operator->() const { return kept; }
    explicit operator bool() const { return kept != nullptr; }

private:
    T* kept = nullptr;
};

}  // namespace detail
}  // namespace vorn_3_1::host

#endif  // C++17

#endif
