// The types that the companion reads: what is read is shown in a form that reads back to the same. The first byte
// selects the type, and the rest is the text.
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "support/plain_rules.h"
#include "vorn/host.h"
#include "vorn/host/byte_size.h"
#include "vorn/host/duration.h"
#include "vorn/host/path.h"

namespace {

using namespace vorn_3_1::host;
using vorn_tests::require;

template <class T>
void compare(const std::string& text) {
    T value{};
    const std::string reason = Type<T>::read(text, value);
    require(reason.empty() || reason.starts_with("is "), "a reason goes on from the text", reason);
    if (!reason.empty()) return;
    const std::string shown = Type<T>::show(value);
    T again{};
    require(Type<T>::read(shown, again).empty() && again == value, "what is shown reads back",
            text + " " + shown);
    require(Type<T>::show(again) == shown, "what reads back shows the same", text + " " + shown);
}

/// Whether the text is a number as C reads it, to its end, and which.
void compareNumbers(const std::string& text) {
    const bool isOdd = text.find_first_not_of("0123456789+-.eE") != std::string::npos || text.empty();
    char* end = nullptr;
    errno = 0;
    const long long whole = std::strtoll(text.c_str(), &end, 10);
    const bool isWhole = !isOdd && *end == '\0' && errno == 0;
    long long readWhole = 0;
    require(Type<long long>::read(text, readWhole).empty() == isWhole, "whole numbers are C's", text);
    require(!isWhole || readWhole == whole, "the number that C reads", text);
    int narrow = 0;
    require(Type<int>::read(text, narrow).empty() == (isWhole && whole == static_cast<int>(whole)),
            "narrow numbers keep their limits", text);
    const double number = std::strtod(text.c_str(), &end);
    const bool isNumber = !isOdd && *end == '\0' && number - number == 0;
    double readNumber = 0;
    require(Type<double>::read(text, readNumber).empty() == isNumber, "numbers are C's", text);
    require(!isNumber || readNumber == number, "the number that C reads", text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string text(std::string(data + 1, data + size).c_str());
    constexpr decltype(&compare<int>) comparisons[] = {
        compareNumbers,
        compare<bool>,
        compare<unsigned char>,
        compare<short>,
        compare<unsigned>,
        compare<long long>,
        compare<unsigned long long>,
        compare<double>,
        compare<std::string>,
        compare<std::filesystem::path>,
        compare<ByteSize>,
        compare<std::chrono::nanoseconds>,
        compare<std::chrono::seconds>,
        compare<std::chrono::hours>,
        compare<std::chrono::duration<int, std::ratio<1, 3>>>,
    };
    comparisons[data[0] % std::size(comparisons)](text);
    return 0;
}
