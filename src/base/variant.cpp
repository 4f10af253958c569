#include "tamsu2/variant.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <limits>
#include <type_traits>
#include <utility>

namespace tamsu2 {

static_assert(std::is_same_v<__SIZE_TYPE__, std::size_t> && std::is_same_v<__INT32_TYPE__, std::int32_t> &&
              std::is_same_v<__UINT32_TYPE__, std::uint32_t> && sizeof(long long) == sizeof(double) &&
              sizeof(long long) >= sizeof(void*));

// The standard does not call a template a move constructor; what counts is that it moves.
static_assert(std::is_nothrow_move_constructible_v<variant_t> &&
              std::is_nothrow_move_assignable_v<variant_t>);

namespace {

// The allocator that stands in m_mem now, which need not be the one that the compiler saw built there: it may
// not conclude from the address which operations to call.
variant_t::allocator_t& memory() {
    static variant_t::allocator_t* volatile installed = &variant_t::m_mem;
    return *installed;
}

// Cuts excess precision off: the i387 keeps wider values in its registers than memory does.
double roundedToDouble(double number) {
    volatile double rounded = number;
    return rounded;
}

// What the 8 value bytes hold besides an integer. A pointer fills the first of them.
double numberIn(std::int64_t bits) { return std::bit_cast<double>(bits); }
void* pointerIn(std::int64_t bits) {
    void* pointer = nullptr;
    std::memcpy(&pointer, &bits, sizeof pointer);
    return pointer;
}
long long bitsOf(const void* pointer) {
    long long bits = 0;
    std::memcpy(&bits, &pointer, sizeof pointer);
    return bits;
}

bool ownsMemory(std::int32_t kind) { return kind == qel_string || kind == qel_wstring || kind == qel_block; }
bool isIntegerLike(std::int32_t kind) { return kind >= qel_bool && kind <= qel_uint64; }
bool isNarrowText(std::int32_t kind) { return kind == qel_string || kind == qel_string_ref; }
bool isWideText(std::int32_t kind) { return kind == qel_wstring || kind == qel_wstring_ref; }

void* obtainCopy(const void* source, std::size_t bytes) {
    void* copy = memory().obtain(bytes);
    std::memcpy(copy, source, bytes);
    return copy;
}

void* copyOfText(const char* text) {
    return text == nullptr ? nullptr : obtainCopy(text, std::strlen(text) + 1);
}

void* copyOfText(const wchar_t* text) {
    return text == nullptr ? nullptr : obtainCopy(text, (std::wcslen(text) + 1) * sizeof(wchar_t));
}

// An owned block begins with its byte count.
constexpr std::size_t countBytes = sizeof(std::uint32_t);

std::uint32_t countOf(const void* block) {
    std::uint32_t count = 0;
    if (block != nullptr) std::memcpy(&count, block, countBytes);
    return count;
}

const char* bytesOf(const void* block) { return static_cast<const char*>(block) + countBytes; }

bool sameText(const char* left, const char* right) {
    if (left == nullptr || right == nullptr) return left == right;
    return std::strcmp(left, right) == 0;
}

bool sameText(const wchar_t* left, const wchar_t* right) {
    if (left == nullptr || right == nullptr) return left == right;
    return std::wcscmp(left, right) == 0;
}

bool sameBlock(const void* left, const void* right) {
    const std::uint32_t count = countOf(left);
    return count == countOf(right) && (count == 0 || std::memcmp(bytesOf(left), bytesOf(right), count) == 0);
}

// A negative integer is read as a number above 2 to the power 63, and so equals no double: kept on purpose.
bool sameNumber(std::int64_t integer, double number) {
    return roundedToDouble(static_cast<double>(static_cast<std::uint64_t>(integer))) == number;
}

template <class Target, class Source>
Target saturated(Source integer) {
    using Limits = std::numeric_limits<Target>;
    if (std::cmp_less(integer, Limits::min())) return Limits::min();
    if (std::cmp_greater(integer, Limits::max())) return Limits::max();
    return static_cast<Target>(integer);
}

template <class Target>
Target saturated(double number) {
    using Limits = std::numeric_limits<Target>;
    // One above the largest value is a power of two and thus exact, which the largest value need not be.
    const Target half = Limits::max() / 2 + 1;
    const double end = static_cast<double>(half) * 2.0;
    if (number != number) return 0;
    if (number <= static_cast<double>(Limits::min())) return Limits::min();
    if (number >= end) return Limits::max();
    return static_cast<Target>(number);
}

template <class Target>
Target integerFrom(std::int32_t kind, std::int64_t bits) {
    if (kind == qel_uint64) return saturated<Target>(static_cast<std::uint64_t>(bits));
    if (isIntegerLike(kind)) return saturated<Target>(bits);
    return kind == qel_double ? saturated<Target>(numberIn(bits)) : Target{0};
}

}  // namespace

void variant_t::allocator_t::release(void* block) { ::operator delete(block); }
void* variant_t::allocator_t::obtain(std::size_t bytes) { return ::operator new(bytes); }

// Set up at link time, so that hosts may build variants in their own static constructors.
constinit variant_t::allocator_t variant_t::m_mem;

variant_t::variant_t(long value) : bits(value), tag(sizeof(long) == sizeof(int) ? qel_int : qel_int64) {}
variant_t::variant_t(unsigned long value)
    : bits(static_cast<long long>(value)), tag(sizeof(long) == sizeof(int) ? qel_uint : qel_uint64) {}

variant_t::variant_t(const char* text) : bits(bitsOf(copyOfText(text))), tag(qel_string) {}
variant_t::variant_t(const wchar_t* text) : bits(bitsOf(copyOfText(text))), tag(qel_wstring) {}

variant_t::variant_t(const void* bytes, std::uint32_t count) : tag(qel_block) {
    if (bytes == nullptr) return;
    char* block = static_cast<char*>(memory().obtain(countBytes + count));
    std::memcpy(block, &count, countBytes);
    std::memcpy(block + countBytes, bytes, count);
    bits = bitsOf(block);
}

variant_t variant_t::borrowed(const char* text) {
    variant_t result;
    result.bits = bitsOf(text);
    result.tag = qel_string_ref;
    return result;
}

variant_t variant_t::borrowed(const wchar_t* text) {
    variant_t result;
    result.bits = bitsOf(text);
    result.tag = qel_wstring_ref;
    return result;
}

variant_t::variant_t(const variant_t& other) : bits(other.bits), tag(other.tag) {
    if (!ownsMemory(tag) || bits == 0) return;
    const void* source = pointerIn(other.bits);
    if (tag == qel_string) {
        bits = bitsOf(copyOfText(static_cast<const char*>(source)));
    } else if (tag == qel_wstring) {
        bits = bitsOf(copyOfText(static_cast<const wchar_t*>(source)));
    } else {
        bits = bitsOf(obtainCopy(source, countBytes + countOf(source)));
    }
}

variant_t& variant_t::operator=(const variant_t& other) {
    // The copy comes first: when it fails, this value is still whole.
    if (this != &other) *this = variant_t(other);
    return *this;
}

void variant_t::release() noexcept {
    if (ownsMemory(tag) && bits != 0) memory().release(pointerIn(bits));
}

bool variant_t::asBool() const {
    if (tag == qel_double) return numberIn(bits) < 0.0 || numberIn(bits) > 0.0;
    return isIntegerLike(tag) && bits != 0;
}

int variant_t::asInt() const { return integerFrom<int>(tag, bits); }
unsigned int variant_t::asUInt() const { return integerFrom<unsigned int>(tag, bits); }
long long variant_t::asInt64() const { return integerFrom<long long>(tag, bits); }
unsigned long long variant_t::asUInt64() const { return integerFrom<unsigned long long>(tag, bits); }

double variant_t::asDouble() const {
    if (tag == qel_double) return numberIn(bits);
    if (!isIntegerLike(tag)) return 0.0;
    return roundedToDouble(tag == qel_uint64 ? static_cast<double>(static_cast<std::uint64_t>(bits))
                                             : static_cast<double>(bits));
}

const char* variant_t::asString() const {
    return isNarrowText(tag) ? static_cast<const char*>(pointerIn(bits)) : nullptr;
}

const wchar_t* variant_t::asWString() const {
    return isWideText(tag) ? static_cast<const wchar_t*>(pointerIn(bits)) : nullptr;
}

const void* variant_t::asBlock() const {
    return tag == qel_block && bits != 0 ? bytesOf(pointerIn(bits)) : nullptr;
}

std::uint32_t variant_t::blockSize() const { return tag == qel_block ? countOf(pointerIn(bits)) : 0; }

bool operator==(const variant_t& left, const variant_t& right) {
    if (isIntegerLike(left.tag)) {
        if (isIntegerLike(right.tag)) return left.bits == right.bits;
        return right.tag == qel_double && sameNumber(left.bits, numberIn(right.bits));
    }
    if (left.tag == qel_double) {
        if (right.tag == qel_double) return numberIn(left.bits) == numberIn(right.bits);
        return isIntegerLike(right.tag) && sameNumber(right.bits, numberIn(left.bits));
    }
    if (isNarrowText(left.tag)) return isNarrowText(right.tag) && sameText(left.asString(), right.asString());
    if (isWideText(left.tag)) return isWideText(right.tag) && sameText(left.asWString(), right.asWString());
    if (left.tag != right.tag) return false;
    return left.tag != qel_block || sameBlock(pointerIn(left.bits), pointerIn(right.bits));
}

bool operator!=(const variant_t& left, const variant_t& right) { return !(left == right); }

}  // namespace tamsu2
