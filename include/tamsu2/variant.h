// The typed value that crosses the interface: default values, allowed values and parsed values.
#ifndef TAMSU2_VARIANT_H
#define TAMSU2_VARIANT_H

#include "vorn/export.h"

namespace tamsu2 {

// The types that the standard's headers call by these names in std. No header is included for them: the
// standard's cost a host more compile time than the whole interface does.
using size_t = decltype(sizeof(0));
using int32_t = int;
using uint32_t = unsigned int;

/// What a variant_t holds, and what an option's values are. Every value from 0 to 17 may be cast to
/// it; the unnamed ones belong to the suite's other libraries and carry no meaning here.
enum qel_variant_type_t : int {
    qel_bool = 0,
    qel_int = 6,
    qel_uint = 7,
    qel_int64 = 8,
    qel_uint64 = 9,
    qel_double = 11,
    qel_string = 12,       ///< narrow text, an owned copy
    qel_wstring = 13,      ///< wide text, an owned copy
    qel_string_ref = 14,   ///< narrow text, neither copied nor released
    qel_wstring_ref = 15,  ///< wide text, neither copied nor released
    qel_block = 16,        ///< bytes with their count, an owned copy
    qel_empty = 17         ///< no value
};

/// A value of one of the kinds above. Copies own their texts and blocks.
///
/// The layout is contract: 8 value bytes, then the 32-bit kind; 12 bytes in all on i386. Integers
/// fill all 8 bytes: `int` is sign-extended, `bool` and `unsigned int` are zero-extended.
///
/// Copying and building kinds 12, 13 and 16 obtain memory and may throw what the allocator throws
/// (std::bad_alloc by default); a failed assignment leaves the target as it was. Nothing else throws.
class VORN_API variant_t {
public:
    /// Gives the memory of every variant's owned text or block. A process may install another one by
    /// constructing a derived object in the place of m_mem, before the first variant owns memory; the
    /// derived class adds no data. The slot order is contract.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
    class VORN_API allocator_t {
    public:
        virtual void release(void* block);   ///< Gives a block back; never null.
        virtual void* obtain(size_t bytes);  ///< A block of that size, or std::bad_alloc.
    };
#pragma GCC diagnostic pop
    static allocator_t m_mem;

    variant_t() noexcept = default;  ///< Empty: kind 17.
    variant_t(bool value) noexcept;
    variant_t(int value) noexcept;
    variant_t(unsigned int value) noexcept;
    variant_t(long value) noexcept;           ///< The signed kind of the same width.
    variant_t(unsigned long value) noexcept;  ///< The unsigned kind of the same width.
    variant_t(long long value) noexcept;
    variant_t(unsigned long long value) noexcept;
    variant_t(double value) noexcept;
    variant_t(const char* text);                              ///< Copied; a null pointer stays null.
    variant_t(const wchar_t* text);                           ///< Copied; a null pointer stays null.
    variant_t(const void* bytes, uint32_t count);             ///< Copied; null bytes stay null.
    static variant_t borrowed(const char* text) noexcept;     ///< Kind 14; the caller keeps the text.
    static variant_t borrowed(const wchar_t* text) noexcept;  ///< Kind 15; the caller keeps the text.

    // A moved variant is left empty.
    variant_t(const variant_t& other);
    variant_t(variant_t&& other) noexcept;
    variant_t& operator=(const variant_t& other);
    variant_t& operator=(variant_t&& other) noexcept;
    ~variant_t() {
        switch (tag) {
            case qel_string:
            case qel_wstring:
            case qel_block:
                release();
                break;
            default:
                break;
        }
    }

    qel_variant_type_t kind() const noexcept { return static_cast<qel_variant_type_t>(tag); }

    // Numbers convert by value between the numeric kinds: fractions are dropped, what is out of range
    // saturates, not-a-number is 0. Kinds that hold no number read as 0 or false.
    bool asBool() const noexcept;
    int asInt() const noexcept;
    unsigned int asUInt() const noexcept;
    long long asInt64() const noexcept;
    unsigned long long asUInt64() const noexcept;
    double asDouble() const noexcept;

    // Null on every kind that holds no such thing. Valid until the variant changes or is destroyed;
    // a borrowed text as long as its owner keeps it.
    const char* asString() const noexcept;
    const wchar_t* asWString() const noexcept;
    const void* asBlock() const noexcept;
    uint32_t blockSize() const noexcept;  ///< In bytes; 0 when there is no block.

    /// Equality by kinds. Integers compare by their 8 bytes whatever their kinds, so an `int` -1
    /// equals the largest unsigned 64-bit value. An integer meets a double as an unsigned 64-bit
    /// number, so a negative integer equals no double. Texts compare by content, owned or borrowed
    /// alike, but never narrow with wide. Two null texts are equal, and so are two empty variants.
    friend VORN_API bool operator==(const variant_t& left, const variant_t& right) noexcept;
    friend VORN_API bool operator!=(const variant_t& left, const variant_t& right) noexcept;

private:
    union storage_t {
        long long bits;
        double number;
        void* pointer;
    };

    void release() noexcept;

    storage_t payload = {0};
    int32_t tag = qel_empty;
};

}  // namespace tamsu2

#endif
