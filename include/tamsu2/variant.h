// The typed value that crosses the interface: default values, allowed values and parsed values.
#ifndef TAMSU2_VARIANT_H
#define TAMSU2_VARIANT_H

#include "vorn/export.h"

// Every file of every host reads this header, so it is made to cost next to nothing (scripts/compile-time):
// - __SIZE_TYPE__, __INT32_TYPE__ and the like are the compiler's own names for std::size_t, std::int32_t. The
//   standard's headers would cost more than the whole interface does.
// - Constructors and assignments with a body are templates. A call deduces nothing and finds them as it would
//   find any other, but a compiler only reads over a template's body until somebody calls it, and most files
//   call none. (The price: before C++17 a returned variant is moved, where a true move constructor is left out.)
namespace tamsu2 {

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
        virtual void release(void* block);          ///< Gives a block back; never null.
        virtual void* obtain(__SIZE_TYPE__ bytes);  ///< A block of that size, or std::bad_alloc.
    };
#pragma GCC diagnostic pop
    static allocator_t m_mem;

    variant_t() noexcept = default;  ///< Empty: kind 17.
    template <class = void>
    variant_t(bool value) : bits(value), tag(qel_bool) {}
    template <class = void>
    variant_t(int value) : bits(value), tag(qel_int) {}
    template <class = void>
    variant_t(unsigned int value) : bits(value), tag(qel_uint) {}
    variant_t(long value);           ///< The signed kind of the same width.
    variant_t(unsigned long value);  ///< The unsigned kind of the same width.
    template <class = void>
    variant_t(long long value) : bits(value), tag(qel_int64) {}
    template <class = void>
    variant_t(unsigned long long value) : bits(static_cast<long long>(value)), tag(qel_uint64) {}
    template <class = void>
    variant_t(double value) : tag(qel_double) {
        __builtin_memcpy(&bits, &value, sizeof bits);
    }
    variant_t(const char* text);                          ///< Copied; a null pointer stays null.
    variant_t(const wchar_t* text);                       ///< Copied; a null pointer stays null.
    variant_t(const void* bytes, __UINT32_TYPE__ count);  ///< Copied; null bytes stay null.
    static variant_t borrowed(const char* text);          ///< Kind 14; the caller keeps the text.
    static variant_t borrowed(const wchar_t* text);       ///< Kind 15; the caller keeps the text.

    variant_t(const variant_t& other);
    variant_t& operator=(const variant_t& other);

    // A moved variant is left empty.
    template <class = void>
    variant_t(variant_t&& other) noexcept : bits(other.bits), tag(other.tag) {
        other.tag = qel_empty;
    }
    template <class = void>
    variant_t& operator=(variant_t&& other) noexcept {
        if (this != &other) {
            release();
            bits = other.bits;
            tag = other.tag;
            other.tag = qel_empty;
        }
        return *this;
    }

    ~variant_t() {
        if ((0x13000 >> tag & 1) != 0) release();  // kinds 12, 13 and 16: a call less for all others
    }

    qel_variant_type_t kind() const noexcept { return static_cast<qel_variant_type_t>(tag); }

    // Numbers convert by value between the numeric kinds: fractions are dropped, what is out of range
    // saturates, not-a-number is 0. Kinds that hold no number read as 0 or false.
    bool asBool() const;
    int asInt() const;
    unsigned int asUInt() const;
    long long asInt64() const;
    unsigned long long asUInt64() const;
    double asDouble() const;

    // Null on every kind that holds no such thing. Valid until the variant changes or is destroyed;
    // a borrowed text as long as its owner keeps it.
    const char* asString() const;
    const wchar_t* asWString() const;
    const void* asBlock() const;
    __UINT32_TYPE__ blockSize() const;  ///< In bytes; 0 when there is no block.

    /// Equality by kinds. Integers compare by their 8 bytes whatever their kinds, so an `int` -1
    /// equals the largest unsigned 64-bit value. An integer meets a double as an unsigned 64-bit
    /// number, so a negative integer equals no double. Texts compare by content, owned or borrowed
    /// alike, but never narrow with wide. Two null texts are equal, and so are two empty variants.
    friend VORN_API bool operator==(const variant_t& left, const variant_t& right);
    friend VORN_API bool operator!=(const variant_t& left, const variant_t& right);

private:
    void release() noexcept;  // gives back what the value owns, if anything

    long long bits = 0;  // an integer, or the representation of a double or of a pointer
    __INT32_TYPE__ tag = qel_empty;
};

}  // namespace tamsu2

#endif
