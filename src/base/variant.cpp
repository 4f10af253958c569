// The typed value of the interface, with everything that is not inline in its header.
//
// A value is 8 bytes and a kind, and the kind says which member of the union the bytes are: an integer (0 to 9), a
// floating number (10 and 11) or a pointer (12 to 16). No other member is ever read. On i386 a pointer fills half of the
// bytes, and nothing looks at the other half.
//
// Hosts call all of this, and inside the library whoever handles default, allowed and parsed values does.
//
//     variant_t text("abc");    // obtains 4 bytes from m_mem
//     variant_t copy(text);     // 4 more
//     copy = 7;                 // gives the copy's 4 bytes back
//
// Memory is obtained in obtainCopy and newBlock, and given back in release. The destructor and the assignment, which
// are inline in the header, call release.
#include "tamsu2/variant.h"

#include <cstddef>
#include <cstring>
#include <cwchar>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

namespace tamsu2 {

static_assert(std::is_nothrow_move_constructible_v<variant_t> &&
              std::is_nothrow_move_assignable_v<variant_t>);

namespace {

// A floating kind of the suite's other libraries. Nothing is converted to it or from it, but it compares.
constexpr int otherFloating = 10;

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

bool isInteger(int kind) { return kind >= qel_bool && kind <= qel_uint64; }
bool isFloating(int kind) { return kind == otherFloating || kind == qel_double; }
bool isNarrowText(int kind) { return kind == qel_string || kind == qel_string_ref; }
bool isWideText(int kind) { return kind == qel_wstring || kind == qel_wstring_ref; }

const void* obtainCopy(const void* source, std::size_t bytes) {
    void* copy = memory().obtain(bytes);
    std::memcpy(copy, source, bytes);
    return copy;
}

const void* copyOfText(const char* text) {
    return text == nullptr ? nullptr : obtainCopy(text, std::strlen(text) + 1);
}

const void* copyOfText(const wchar_t* text) {
    return text == nullptr ? nullptr : obtainCopy(text, (std::wcslen(text) + 1) * sizeof(wchar_t));
}

// A block in memory begins with its byte count:  | count, 4 bytes | the bytes ... |
constexpr std::size_t countBytes = sizeof(unsigned int);

unsigned int countOf(const void* block) {
    unsigned int count = 0;
    if (block != nullptr) std::memcpy(&count, block, countBytes);
    return count;
}

const char* bytesOf(const void* block) { return static_cast<const char*>(block) + countBytes; }

const void* newBlock(const void* bytes, unsigned int count) {
    const std::size_t size = countBytes + count;
    if (size < count) throw std::bad_alloc();  // it has wrapped around, which 32 bits can
    char* block = static_cast<char*>(memory().obtain(size));
    std::memcpy(block, &count, countBytes);
    std::memcpy(block + countBytes, bytes, count);
    return block;
}

bool isSameText(const char* left, const char* right) {
    if (left == nullptr || right == nullptr) return left == right;
    return std::strcmp(left, right) == 0;
}

bool isSameText(const wchar_t* left, const wchar_t* right) {
    if (left == nullptr || right == nullptr) return left == right;
    return std::wcscmp(left, right) == 0;
}

bool isSameBlock(const void* left, const void* right) {
    const unsigned int count = countOf(left);
    return count == countOf(right) && (count == 0 || std::memcmp(bytesOf(left), bytesOf(right), count) == 0);
}

// Kept on purpose: a negative integer is read as a number above 2 to the power 63, and so equals no number.
bool isSameNumber(long long integer, double number) {
    return roundedToDouble(static_cast<double>(static_cast<unsigned long long>(integer))) == number;
}

// The nearest number that the target type has.
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
    if (number != number) return 0;  // not a number
    if (number <= static_cast<double>(Limits::min())) return Limits::min();
    if (number >= end) return Limits::max();
    return static_cast<Target>(number);
}

}  // namespace

void variant_t::allocator_t::release(void* block) { ::operator delete(block); }
void* variant_t::allocator_t::obtain(std::size_t bytes) { return ::operator new(bytes); }

// Set up at link time, so that hosts may build variants in their own static constructors.
constinit variant_t::allocator_t variant_t::m_mem;

variant_t::variant_t(long value) : content{value}, tag(sizeof(long) == sizeof(int) ? qel_int : qel_int64) {}
variant_t::variant_t(unsigned long value)
    : content{static_cast<long long>(value)}, tag(sizeof(long) == sizeof(int) ? qel_uint : qel_uint64) {}

variant_t::variant_t(const char* text) : tag(qel_string) { content.pointer = copyOfText(text); }
variant_t::variant_t(const wchar_t* text) : tag(qel_wstring) { content.pointer = copyOfText(text); }
variant_t::variant_t(const void* bytes, unsigned int count) : tag(qel_block) {
    content.pointer = bytes == nullptr ? nullptr : newBlock(bytes, count);
}

variant_t variant_t::borrowed(const char* text) {
    variant_t result;
    result.content.pointer = text;
    result.tag = qel_string_ref;
    return result;
}

variant_t variant_t::borrowed(const wchar_t* text) {
    variant_t result;
    result.content.pointer = text;
    result.tag = qel_wstring_ref;
    return result;
}

variant_t::variant_t(const variant_t& other) : content(other.content), tag(other.tag) {
    if (!ownsMemory() || other.content.pointer == nullptr) return;
    if (tag == qel_string) {
        content.pointer = copyOfText(other.asString());
    } else if (tag == qel_wstring) {
        content.pointer = copyOfText(other.asWString());
    } else {
        content.pointer = newBlock(other.asBlock(), other.blockSize());
    }
}

variant_t& variant_t::operator=(const variant_t& other) {
    // The copy comes first: when it fails, this value is still whole.
    if (this != &other) *this = variant_t(other);
    return *this;
}

void variant_t::release() noexcept {
    if (!ownsMemory() || content.pointer == nullptr) return;
    memory().release(const_cast<void*>(content.pointer));
}

bool variant_t::asBool() const {
    if (tag == qel_double) return content.number < 0.0 || content.number > 0.0;
    return isInteger(tag) && content.integer != 0;
}

template <class Target>
Target variant_t::toInteger() const {
    if (tag == qel_double) return saturated<Target>(content.number);
    if (tag == qel_uint64) return saturated<Target>(static_cast<unsigned long long>(content.integer));
    return isInteger(tag) ? saturated<Target>(content.integer) : Target{0};
}

int variant_t::asInt() const { return toInteger<int>(); }
unsigned int variant_t::asUInt() const { return toInteger<unsigned int>(); }
long long variant_t::asInt64() const { return toInteger<long long>(); }
unsigned long long variant_t::asUInt64() const { return toInteger<unsigned long long>(); }

double variant_t::asDouble() const {
    if (tag == qel_double) return content.number;
    if (!isInteger(tag)) return 0.0;
    return roundedToDouble(tag == qel_uint64
                               ? static_cast<double>(static_cast<unsigned long long>(content.integer))
                               : static_cast<double>(content.integer));
}

const char* variant_t::asString() const {
    return isNarrowText(tag) ? static_cast<const char*>(content.pointer) : nullptr;
}

const wchar_t* variant_t::asWString() const {
    return isWideText(tag) ? static_cast<const wchar_t*>(content.pointer) : nullptr;
}

const void* variant_t::asBlock() const {
    return tag == qel_block && content.pointer != nullptr ? bytesOf(content.pointer) : nullptr;
}

unsigned int variant_t::blockSize() const { return tag == qel_block ? countOf(content.pointer) : 0; }

bool operator==(const variant_t& left, const variant_t& right) {
    const auto bothAre = [&](bool (*isOfGroup)(int)) { return isOfGroup(left.tag) && isOfGroup(right.tag); };
    if (bothAre(isInteger)) return left.content.integer == right.content.integer;
    if (bothAre(isFloating)) return left.content.number == right.content.number;
    if (isInteger(left.tag) && isFloating(right.tag)) {
        return isSameNumber(left.content.integer, right.content.number);
    }
    if (isFloating(left.tag) && isInteger(right.tag)) return right == left;
    if (bothAre(isNarrowText)) return isSameText(left.asString(), right.asString());
    if (bothAre(isWideText)) return isSameText(left.asWString(), right.asWString());
    if (left.tag != right.tag) return false;
    return left.tag != qel_block || isSameBlock(left.content.pointer, right.content.pointer);
}

bool operator!=(const variant_t& left, const variant_t& right) { return !(left == right); }

}  // namespace tamsu2
